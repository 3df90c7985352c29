#ifndef STANDALONE_RUN_MODULE_H
#define STANDALONE_RUN_MODULE_H

#include <stdexcept>
#include <string>

namespace standalone {

/// A command module that cannot be loaded. what() is one sentence that names the file.
class ModuleError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// The entry point of a command module.
using CommandEntry = void (*)();

/// Loads the MRSET module, which stays loaded, and returns its entry point. The environment variable MRSET_MODULE names
/// the file; without it, it is found from the place of the running program.
CommandEntry LoadMrsetModule();

}  // namespace standalone

#endif  // STANDALONE_RUN_MODULE_H
