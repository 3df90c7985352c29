#ifndef STANDALONE_RUN_MODULE_H
#define STANDALONE_RUN_MODULE_H

#include <string>

namespace standalone {

/// The entry point of a command module.
using CommandEntry = void (*)();

/// Loads the MRSET module, which stays loaded, and returns its entry point. The environment variable MRSET_MODULE names
/// the file; without it, it is found from the place of the running program.
CommandEntry LoadMrsetModule();

}  // namespace standalone

#endif  // STANDALONE_RUN_MODULE_H
