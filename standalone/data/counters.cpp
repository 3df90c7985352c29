#include "standalone/data/counters.h"

#include <fmt/format.h>

#include "standalone/data/commit.h"
#include "standalone/data/history.h"
#include "standalone/data/limits.h"
#include "standalone/data/schema.h"
#include "standalone/text/error.h"

namespace standalone {

namespace {

[[noreturn]] void Fail(const std::string& name, const char* what) {
  throw Error(ErrorKind::kNoPermission,
              fmt::format("{} cannot be changed: its counter of {} is at its limit.", name, what));
}

}  // namespace

void FailIfWritesAreUsedUp(Database& database, const std::string& name) {
  if (GenerationOf(database) >= kGreatestNumber) {
    Fail(name, "writes");
  }
}

void FailIfChangesAreUsedUp(Database& database, const std::string& name) {
  FailIfWritesAreUsedUp(database, name);
  if (FormatVersion(database) == kFormatVersion && KeptVersions(database).last >= kGreatestNumber) {
    Fail(name, "changes");
  }
}

}  // namespace standalone
