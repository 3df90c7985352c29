#ifndef STANDALONE_SHELL_SHELL_H
#define STANDALONE_SHELL_SHELL_H

#include <string>
#include <string_view>

#include "standalone/language/script.h"
#include "standalone/shell/shell_input.h"
#include "standalone/shell/shell_word.h"

namespace standalone {

/// What is done with the commands of a shell.
class ShellActions {
 public:
  virtual ~ShellActions() = default;
  virtual void Run(const ScriptCommand& command) = 0;

  /// Any but those that end the shell.
  virtual void Perform(const ShellCommand& command) = 0;

  /// Says a sentence to the person who types.
  virtual void Say(const std::string& sentence) = 0;
};

/// Reads lines and has the commands in them done, each as soon as it is complete.
class Shell {
 public:
  /// `source` is what the input is called. All must outlive the shell.
  Shell(ShellInput& input, ShellActions& actions, const std::string& source)
      : fInput(input), fActions(actions), fSource(source), fCollector(source) {}

  /// Returns at the end of the input, or when a command says so.
  void Run();

 private:
  void Take(std::string_view text);
  void TakeLine(std::string_view line);
  void AddLine(std::string_view line);
  void RefuseWhatIsNoCommand();
  void RemarkOnShellCommand(std::string_view line);
  void EndEntry();
  void SayRemark();

  ShellInput& fInput;
  ShellActions& fActions;
  std::string fSource;
  CommandCollector fCollector;
  std::string fEntry;         // the lines since the last fresh one
  bool fHasRemarked = false;  // on the open command
  bool fHasEnded = false;
};

}  // namespace standalone

#endif  // STANDALONE_SHELL_SHELL_H
