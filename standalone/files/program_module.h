#ifndef STANDALONE_FILES_PROGRAM_MODULE_H
#define STANDALONE_FILES_PROGRAM_MODULE_H

#include <string>

namespace standalone {

/// The path of a module that comes with the program: beside it, in a build tree, or where it is installed. The sentence
/// of the Error, where it is in none of these places, ends with the advice.
std::string ModulePath(const std::string& file, const std::string& advice);

/// Loads a module, which stays loaded, and returns what it calls by this name; null if it has nothing of that name.
/// Throws Error where the file cannot be loaded.
void* LoadFromModule(const std::string& path, const char* name);

}  // namespace standalone

#endif  // STANDALONE_FILES_PROGRAM_MODULE_H
