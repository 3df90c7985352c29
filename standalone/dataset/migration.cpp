#include "standalone/dataset/migration.h"

#include <fmt/format.h>
#include <sys/stat.h>

#include <algorithm>
#include <fstream>
#include <iterator>

#include "standalone/files/temporary_file.h"
#include "standalone/storage/file_format.h"

namespace standalone {

namespace {

bool Exists(const std::string& path) {
  struct stat status = {};
  return lstat(path.c_str(), &status) == 0;
}

bool HaveSameBytes(const std::string& first, const std::string& second) {
  struct stat status = {};
  if (stat(second.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) {
    return false;
  }
  using Bytes = std::istreambuf_iterator<char>;
  std::ifstream one(first, std::ios::binary);
  std::ifstream other(second, std::ios::binary);
  return one && other && std::equal(Bytes(one), Bytes(), Bytes(other), Bytes());
}

void CopyPermissions(const std::string& from, const std::string& to) {
  struct stat status = {};
  if (stat(from.c_str(), &status) == 0) {
    chmod(to.c_str(), status.st_mode & 07777);
  }
}

// A migration that was cut off may have left its copy, which then serves; what else has the name is kept.
std::string SetAside(const Database& database, const std::string& path, std::int64_t version) {
  const std::string first = fmt::format("{}.v{}.bak", path, version);
  TemporaryFile copy(path);
  CopyPermissions(path, copy.Path());
  database.CopyInto(copy.Path());
  std::string place = first;
  for (int number = 2; Exists(place); ++number) {
    if (HaveSameBytes(copy.Path(), place)) {
      return place;
    }
    place = fmt::format("{}.{}", first, number);
  }
  copy.PutInPlaceAs(place);
  return place;
}

void UpgradeTables(Database& database, std::int64_t version) {
  for (const TableDefinition& table : Tables()) {
    if (table.since > version) {
      database.Execute(table.sql);
    }
  }
}

// Positions that follow each other directly leave a new set no place between two others.
void SpreadPositions(Database& database) {
  database.Execute(
      "UPDATE mr_set SET position = spread.position FROM"
      " (SELECT id, row_number() OVER (ORDER BY position, id) * 1048576 AS position FROM mr_set) AS spread"
      " WHERE mr_set.id = spread.id");
}

}  // namespace

std::optional<std::string> Migrate(Database& database, const std::string& path) {
  const std::int64_t version = FormatVersion(database);
  if (version == kFormatVersion) {
    return std::nullopt;
  }
  const std::string copy = SetAside(database, path, version);
  UpgradeTables(database, version);
  SpreadPositions(database);
  static_assert(kFormatVersion == 2, "the pragma is written out");
  database.Execute("PRAGMA user_version = 2");
  return fmt::format("{} was upgraded from format {} to {}; the original is kept as {}.", path, version, kFormatVersion,
                     copy);
}

}  // namespace standalone
