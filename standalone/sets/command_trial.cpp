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
  for (const ScriptCommand& command : SplitScript(script)) {
    const std::vector<Token> tokens = Tokenize(command.text);
    Session session(fDataset, command, tokens, outcome.sets, sink);
    fMrset();
    if (session.SavedSets()) {
      outcome.sets = *session.SavedSets();
    }
  }
  return outcome;
}

}  // namespace standalone
