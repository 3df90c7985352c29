#include "standalone/sets/command_trial.h"

#include "standalone/host/session.h"
#include "standalone/language/script.h"
#include "standalone/language/tokenizer.h"

namespace standalone {

TrialOutcome CommandTrial::Run(std::string_view script) {
  TrialOutcome outcome;
  const OutputSink sink{[](const std::string&) {},
                        [&outcome](const Item& item) {
                          if (const auto* message = std::get_if<Message>(&item)) {
                            outcome.messages.push_back(*message);
                          }
                        }};
  SetExchange exchange;
  SetList sets;
  for (const ScriptCommand& command : SplitScript(script)) {
    const std::vector<Token> tokens = Tokenize(command.text);
    Session session(fDataset, command, tokens, sets, exchange, sink);
    fMrset();
    if (session.SavedSets()) {
      sets = *session.SavedSets();
    }
  }
  outcome.sets = Copies(sets);
  return outcome;
}

}  // namespace standalone
