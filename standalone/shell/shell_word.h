#ifndef STANDALONE_SHELL_SHELL_WORD_H
#define STANDALONE_SHELL_SHELL_WORD_H

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace standalone {

// The commands that the shell itself understands: one line each, with or without a final period.

enum class ShellCommandKind { kHelp, kSets, kVariables, kUndo, kLog, kQuit };

struct ShellCommandRule {
  std::string_view name;
  ShellCommandKind kind;
  std::string_view argument;  ///< what may follow, as the help shows it; empty for nothing
  std::string_view purpose;
};

/// By name.
const std::vector<ShellCommandRule>& ShellCommands();

struct ShellCommand {
  const ShellCommandRule* rule;
  std::string argument;     ///< the rest of the line without the blanks around it and the final period
  bool withValues = false;  ///< of variables: --values was the last word, which is not in the argument

  /// Whether it has what may follow it, at most one word.
  bool IsAsMeant() const;
};

/// The shell's command that the first word of the line names, in any case; nothing for any other line.
std::optional<ShellCommand> ReadShellCommand(std::string_view line);

/// What to say where the command that begins so is neither MRSET, TABULATE nor a comment, and can never run: one
/// sentence, with the command that was meant where one is near. Nothing where it may run.
std::optional<std::string> RefusalOfUnknownCommand(std::string_view openText);

}  // namespace standalone

#endif  // STANDALONE_SHELL_SHELL_WORD_H
