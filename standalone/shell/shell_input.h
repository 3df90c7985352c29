#ifndef STANDALONE_SHELL_SHELL_INPUT_H
#define STANDALONE_SHELL_SHELL_INPUT_H

#include <string>
#include <string_view>

namespace standalone {

/// What came in at once.
struct Typed {
  enum class Kind {
    kText,
    kAbandoned,  ///< the user gave up what was typed, and the open command with it
    kEnd         ///< there is no more input
  };

  Kind kind = Kind::kEnd;
  std::string text;  ///< one line or more, without the last line end
};

/// Where the shell's lines come from.
class ShellInput {
 public:
  virtual ~ShellInput() = default;

  /// What comes next; waits for it. `openText` is what there is of a command that is not complete; empty on a fresh
  /// line.
  virtual Typed Read(std::string_view openText) = 0;

  /// Keeps the lines of a command, or of what was given up, so that they can be had again.
  virtual void Remember(const std::string& lines) = 0;

  /// Whether all that comes is one script: its lines are counted from its beginning, and its end ends the open command.
  /// Else lines are counted from each fresh one, and a command that is open at the end is given up.
  virtual bool IsScript() const = 0;
};

}  // namespace standalone

#endif  // STANDALONE_SHELL_SHELL_INPUT_H
