#ifndef STANDALONE_RUN_SCRIPT_SOURCE_H
#define STANDALONE_RUN_SCRIPT_SOURCE_H

#include <stdexcept>
#include <string>

namespace standalone {

/// A script that cannot be read; what() is one sentence that names the file.
class ScriptError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// The whole text of a script file, or of standard input for "-". Throws ScriptError.
std::string ReadScript(const std::string& path);

}  // namespace standalone

#endif  // STANDALONE_RUN_SCRIPT_SOURCE_H
