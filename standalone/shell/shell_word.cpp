#include "standalone/shell/shell_word.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>

#include "standalone/language/comments.h"
#include "standalone/language/grammar.h"
#include "standalone/language/nearest_name.h"
#include "standalone/language/slips.h"
#include "standalone/text/trim.h"
#include "standalone/text/unicode.h"

namespace standalone {
namespace {

std::string_view WithoutPeriod(std::string_view text) {
  if (!text.empty() && text.back() == '.') {
    text.remove_suffix(1);
  }
  return Trimmed(text, kBlanks);
}

/// The first word; what is after a "/", "=" or quote is not of it.
std::string FirstWord(std::string_view text) {
  const auto isEnd = [](char c) { return IsBlank(c) || std::string_view("/=[]'\"").find(c) != std::string_view::npos; };
  const auto end = std::find_if(text.begin() + 1, text.end(), isEnd);
  return {text.begin(), end};
}

std::vector<std::string> AllCommands() {
  std::vector<std::string> names = {std::string(kMrsetCommand)};
  for (const ShellCommandRule& rule : ShellCommands()) {
    names.emplace_back(rule.name);
  }
  return names;
}

}  // namespace

const std::vector<ShellCommandRule>& ShellCommands() {
  static const std::vector<ShellCommandRule> kRules = {
      {"exit", ShellCommandKind::kQuit, "", "the same as quit"},
      {"help", ShellCommandKind::kHelp, "[TOPIC]", "this list; or a topic: undo, MRSET, MDGROUP, ..."},
      {"log", ShellCommandKind::kLog, "", "the changes of the sets, the last one first"},
      {"quit", ShellCommandKind::kQuit, "", "leave the shell; so does Ctrl-D on an empty line"},
      {"sets", ShellCommandKind::kSets, "", "the dataset's sets"},
      {"undo", ShellCommandKind::kUndo, "[N]", "take back the last change, or all after N; twice restores"},
      {"variables", ShellCommandKind::kVariables, "[PATTERN]", "the variables, or those with names such as q*"},
  };
  return kRules;
}

std::optional<ShellCommand> ReadShellCommand(std::string_view line) {
  line = WithoutPeriod(Trimmed(line, kBlanks));
  const auto wordEnd = static_cast<std::size_t>(std::find_if(line.begin(), line.end(), IsBlank) - line.begin());
  const std::vector<ShellCommandRule>& rules = ShellCommands();
  const auto rule = std::find_if(rules.begin(), rules.end(), [&](const ShellCommandRule& one) {
    return CompareNoCase(one.name, line.substr(0, wordEnd)) == 0;
  });
  if (rule == rules.end()) {
    return std::nullopt;
  }
  return ShellCommand{&*rule, std::string(Trimmed(line.substr(wordEnd), kBlanks))};
}

bool ShellCommand::IsAsMeant() const {
  return rule->argument.empty() ? argument.empty() : std::none_of(argument.begin(), argument.end(), IsBlank);
}

std::optional<std::string> RefusalOfUnknownCommand(std::string_view openText) {
  const std::string word = FirstWord(openText);
  if (word[0] == '*' || NamesKeyword(ToUpper(word), kMrsetCommand)) {
    return std::nullopt;
  }
  const std::string quoted = Shortened(word);
  const std::optional<std::string> meant = MeantWord(word, AllCommands());
  if (CompareNoCase(word, "redo") == 0) {
    return "There is no command redo; undo right after an undo restores the sets.";
  }
  if (meant) {
    return fmt::format("There is no command {}; did you mean {}?", quoted, *meant);
  }
  return fmt::format("There is no command {}; {}.", quoted,
                     HintOnBeginning(openText).value_or("type MRSET, or one of the commands that help lists"));
}

}  // namespace standalone
