#include "standalone/storage/companions.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <string_view>

#include "standalone/files/folder.h"
#include "standalone/files/temporary_file.h"
#include "standalone/storage/file_format.h"

namespace standalone {

namespace {

constexpr std::array<std::string_view, 3> kEndings = {"-journal", "-wal", "-shm"};

}  // namespace

std::optional<std::string> ComplaintOnReservedName(const std::string& path) {
  if (TemporaryFile::IsReserved(path)) {
    return path + " is a name of temporary files, which are removed; give another one.";
  }
  for (const std::string_view ending : kEndings) {
    const std::size_t length = path.size() - std::min(path.size(), ending.size());
    const std::string dataset = path.substr(0, length);
    if (std::string_view(path).substr(length) == ending && IsDatasetFile(dataset)) {
      return fmt::format("{} is a name that belongs to the dataset {}; give another one.", path, dataset);
    }
  }
  return std::nullopt;
}

std::optional<std::string> FindCompanion(const std::string& path) {
  for (const std::string_view ending : kEndings) {
    const std::string companion = path + std::string(ending);
    if (IsThere(companion)) {
      return companion;
    }
  }
  return std::nullopt;
}

}  // namespace standalone
