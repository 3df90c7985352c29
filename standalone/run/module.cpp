#include "standalone/run/module.h"

#include <dlfcn.h>
#include <fmt/format.h>

#include <array>
#include <cstdlib>
#include <filesystem>

#include "standalone/text/error.h"

namespace standalone {
namespace {

namespace fs = std::filesystem;

constexpr const char* kModuleFile = "mrset.so";

/// Where the module may lie, seen from the program's folder: beside it, in a build tree, where it is installed.
constexpr std::array<const char*, 3> kModuleFolders = {".", "../lib", MRSET_MODULE_FOLDER};

std::string ModulePath() {
  if (const char* path = std::getenv("MRSET_MODULE"); path != nullptr && *path != '\0') {
    return path;
  }
  const fs::path programFolder = fs::read_symlink("/proc/self/exe").parent_path();
  for (const char* folder : kModuleFolders) {
    const fs::path candidate = programFolder / folder / kModuleFile;
    if (fs::exists(candidate)) {
      return candidate.lexically_normal();
    }
  }
  throw Error(
      fmt::format("The module {} is neither next to the program in {} nor in its library folder; set "
                  "MRSET_MODULE to its path.",
                  kModuleFile, programFolder.string()));
}

}  // namespace

CommandEntry LoadMrsetModule() {
  const std::string path = ModulePath();
  // A path without a slash would be looked up among the system's libraries.
  void* library = dlopen(fs::absolute(path).c_str(), RTLD_NOW | RTLD_LOCAL);
  if (library == nullptr) {
    throw Error(fmt::format("The module {} cannot be loaded: {}.", path, dlerror()));
  }
  void* entry = dlsym(library, "mrset_");
  if (entry == nullptr) {
    throw Error(fmt::format("The file {} is not an MRSET module: it has no entry point mrset_.", path));
  }
  return reinterpret_cast<CommandEntry>(entry);
}

}  // namespace standalone
