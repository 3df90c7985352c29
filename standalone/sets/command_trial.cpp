#include "standalone/sets/command_trial.h"

#include "standalone/host/command_context.h"
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
    CommandContext context(fDataset, command, tokens, sets, exchange, sink);
    fMrset();
    if (context.SavedSets()) {
      sets = *context.SavedSets();
    }
  }
  outcome.sets = Copies(sets);
  return outcome;
}

}  // namespace standalone
