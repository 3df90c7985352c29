#include "standalone/shell/shell_command.h"

#include <algorithm>
#include <cstddef>

#include "standalone/language/blanks.h"
#include "standalone/text/unicode.h"

namespace standalone {
namespace {

std::string_view WithoutBlanks(std::string_view text) {
  while (!text.empty() && IsBlank(text.front())) {
    text.remove_prefix(1);
  }
  while (!text.empty() && IsBlank(text.back())) {
    text.remove_suffix(1);
  }
  return text;
}

std::string_view WithoutPeriod(std::string_view text) {
  if (!text.empty() && text.back() == '.') {
    text.remove_suffix(1);
  }
  return WithoutBlanks(text);
}

}  // namespace

const std::vector<ShellCommandRule>& ShellCommands() {
  static const std::vector<ShellCommandRule> kRules = {
      {"exit", ShellCommandKind::kQuit, "", "the same as quit"},
      {"help", ShellCommandKind::kHelp, "[TOPIC]", "this list; or on MRSET, MDGROUP, MCGROUP, DISPLAY, DELETE"},
      {"log", ShellCommandKind::kLog, "", "the changes of the sets, the last one first"},
      {"quit", ShellCommandKind::kQuit, "", "leave the shell; so does Ctrl-D on an empty line"},
      {"sets", ShellCommandKind::kSets, "", "the dataset's sets"},
      {"undo", ShellCommandKind::kUndo, "[N]", "take the last change back, or all behind version N"},
      {"variables", ShellCommandKind::kVariables, "[PATTERN]", "the variables, or those with names such as q*"},
  };
  return kRules;
}

std::optional<ShellCommand> ReadShellCommand(std::string_view line) {
  line = WithoutPeriod(WithoutBlanks(line));
  const auto wordEnd = static_cast<std::size_t>(std::find_if(line.begin(), line.end(), IsBlank) - line.begin());
  const std::vector<ShellCommandRule>& rules = ShellCommands();
  const auto rule = std::find_if(rules.begin(), rules.end(), [&](const ShellCommandRule& one) {
    return CompareNoCase(one.name, line.substr(0, wordEnd)) == 0;
  });
  if (rule == rules.end()) {
    return std::nullopt;
  }
  return ShellCommand{&*rule, std::string(WithoutBlanks(line.substr(wordEnd)))};
}

}  // namespace standalone
