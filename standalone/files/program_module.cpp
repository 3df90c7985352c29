#include "standalone/files/program_module.h"

#include <dlfcn.h>
#include <fmt/format.h>

#include <array>
#include <filesystem>

#include "standalone/text/error.h"

namespace standalone {
namespace {

namespace fs = std::filesystem;

/// Where modules may lie, seen from the program's folder: beside it, in a build tree, where they are installed.
constexpr std::array<const char*, 3> kModuleFolders = {".", "../lib", MRSET_MODULE_FOLDER};

}  // namespace

std::string ModulePath(const std::string& file, const std::string& advice) {
  const fs::path programFolder = fs::read_symlink("/proc/self/exe").parent_path();
  for (const char* folder : kModuleFolders) {
    const fs::path candidate = programFolder / folder / file;
    if (fs::exists(candidate)) {
      return candidate.lexically_normal();
    }
  }
  throw Error(fmt::format("The module {} is neither next to the program in {} nor in its library folder; {}.", file,
                          programFolder.string(), advice));
}

void* LoadFromModule(const std::string& path, const char* name) {
  // A path without a slash would be looked up among the system's libraries.
  void* library = dlopen(fs::absolute(path).c_str(), RTLD_NOW | RTLD_LOCAL);
  if (library == nullptr) {
    throw Error(fmt::format("The module {} cannot be loaded: {}.", path, dlerror()));
  }
  return dlsym(library, name);
}

}  // namespace standalone
