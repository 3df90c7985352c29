#ifndef STANDALONE_RUN_SCRIPT_SOURCE_H
#define STANDALONE_RUN_SCRIPT_SOURCE_H

#include <cstddef>
#include <optional>
#include <string>

namespace standalone {

/// The whole text of a script file, or of standard input for "-". Throws Error.
std::string ReadScript(const std::string& path);

/// Reads standard input line by line, each as soon as it is there.
class StandardInputLines {
 public:
  /// The next line without its "\n"; waits for it. Nothing at the end of the input. Throws Error.
  std::optional<std::string> Next();

 private:
  std::string fRead;          // what was read and is not handed out yet
  std::size_t fBegin = 0;     // where that begins in it
  std::size_t fSearched = 0;  // after fBegin there is no line end up to here
};

}  // namespace standalone

#endif  // STANDALONE_RUN_SCRIPT_SOURCE_H
