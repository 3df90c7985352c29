#ifndef STANDALONE_CONSOLE_EXIT_STATUS_H
#define STANDALONE_CONSOLE_EXIT_STATUS_H

namespace standalone {

/// How the program ends; other programs rely on the numbers.
enum ExitStatus : int {
  kSuccess = 0,   ///< no error-level message
  kErrors = 1,    ///< at least one error-level message
  kUnusable = 2,  ///< wrong usage, or a file that cannot be read or is not what it should be
  kAborted = 3    ///< a command was aborted
};

}  // namespace standalone

#endif  // STANDALONE_CONSOLE_EXIT_STATUS_H
