#include "standalone/sets/set_script.h"

#include <fmt/format.h>

#include <algorithm>

#include "standalone/sets/command_trial.h"
#include "standalone/sets/set_command.h"
#include "standalone/text/visible.h"

namespace standalone {
namespace {

std::string WhyLeftOut(const StoredSet& set, const std::string& reason) {
  return fmt::format("The set {} cannot be written as a command: {}", set.name, reason);
}

/// The first error message; nothing when there is none.
std::optional<std::string> FirstError(const TrialOutcome& outcome) {
  const auto isError = [](const Message& message) { return message.level == Level::kError; };
  const auto found = std::find_if(outcome.messages.begin(), outcome.messages.end(), isError);
  return found == outcome.messages.end() ? std::nullopt : std::optional(found->text);
}

/// What a command that reports no error makes another way: the names as the dictionary has them.
std::string HowMadeOtherwise(const StoredSet& set, const TrialOutcome& outcome) {
  if (outcome.sets.size() == 1) {
    const std::vector<std::string>& made = outcome.sets.front().variables;
    const auto [asStored, asMade] = std::mismatch(set.variables.begin(), set.variables.end(), made.begin(), made.end());
    if (asStored != set.variables.end() && asMade != made.end()) {
      return fmt::format("its variable {} is {} in the dictionary.", *asStored, *asMade);
    }
  }
  return "its command would make another set.";
}

/// Whether the first of the set's variables that is there is numeric.
bool HasNumericVariables(Dataset& dataset, const StoredSet& set) {
  for (const std::string& name : set.variables) {
    if (const Variable* variable = dataset.VariableNamed(name)) {
      return variable->width == 0;
    }
  }
  return false;
}

ScriptedSet ScriptSet(Dataset& dataset, CommandTrial& trial, const StoredSet& set) {
  if (const std::optional<std::string> reason = WhyNoCommandMakes(set)) {
    return {"", WhyLeftOut(set, *reason)};
  }
  std::string command = CommandThatMakes(set, HasNumericVariables(dataset, set));
  const TrialOutcome outcome = trial.Run(command);
  const std::optional<std::string> error = FirstError(outcome);
  if (outcome.sets != std::vector<StoredSet>{set}) {
    return {"", WhyLeftOut(set, error ? *error : HowMadeOtherwise(set, outcome))};
  }
  if (error) {
    return {std::move(command),
            fmt::format("The command of {} makes the set and reports an error: {}", set.name, *error)};
  }
  return {std::move(command), std::nullopt};
}

/// A comment that ends with its line: the blank line ends it also where the text holds the beginning of a comment.
std::string Comment(const std::string& text) {
  return fmt::format("* {}\n\n", Visible(text));
}

}  // namespace

std::vector<ScriptedSet> ScriptSets(Dataset& dataset, const std::vector<StoredSet>& sets) {
  CommandTrial trial(dataset);
  std::vector<ScriptedSet> scripted;
  scripted.reserve(sets.size());
  for (const StoredSet& set : sets) {
    scripted.push_back(ScriptSet(dataset, trial, set));
  }
  return scripted;
}

std::string ScriptOf(const std::string& title, const std::vector<ScriptedSet>& sets, bool deleteAll) {
  std::string script = Comment(title);
  if (deleteAll) {
    script += "MRSET /DELETE NAME=ALL.\n\n";
  }
  for (const ScriptedSet& set : sets) {
    if (set.note) {
      script += Comment(*set.note);
    }
    if (!set.command.empty()) {
      script += set.command + "\n";
    }
  }
  script.pop_back();  // the blank line after the last part
  return script;
}

}  // namespace standalone
