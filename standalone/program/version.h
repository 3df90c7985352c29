#ifndef STANDALONE_PROGRAM_VERSION_H
#define STANDALONE_PROGRAM_VERSION_H

#include <string>

namespace standalone {

/// "0.1.0 (1b636435c7a6)": the project's version and, where it was built from a git working tree, the commit.
std::string Version();

}  // namespace standalone

#endif  // STANDALONE_PROGRAM_VERSION_H
