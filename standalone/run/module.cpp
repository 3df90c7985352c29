#include "standalone/run/module.h"

#include <fmt/format.h>

#include <cstdlib>

#include "standalone/files/program_module.h"
#include "standalone/text/error.h"

namespace standalone {
namespace {

std::string MrsetModulePath() {
  if (const char* path = std::getenv("MRSET_MODULE"); path != nullptr && *path != '\0') {
    return path;
  }
  return ModulePath("mrset.so", "set MRSET_MODULE to its path");
}

}  // namespace

CommandEntry LoadMrsetModule() {
  const std::string path = MrsetModulePath();
  void* entry = LoadFromModule(path, "mrset_");
  if (entry == nullptr) {
    throw Error(fmt::format("The file {} is not an MRSET module: it has no entry point mrset_.", path));
  }
  return reinterpret_cast<CommandEntry>(entry);
}

}  // namespace standalone
