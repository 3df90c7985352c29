#include "standalone/dataset/counters.h"

#include <fmt/format.h>

#include "standalone/dataset/history.h"
#include "standalone/storage/commit.h"
#include "standalone/storage/limits.h"
#include "standalone/text/error.h"

namespace standalone {

namespace {

[[noreturn]] void Fail(const std::string& name, const char* what) {
  throw Error(ErrorKind::kNoPermission,
              fmt::format("{} cannot be changed: its counter of {} is at its limit.", name, what));
}

}  // namespace

void FailIfWritesAreUsedUp(Database& database, const std::string& name) {
  if (GenerationOf(database) >= kMaxNumber) {
    Fail(name, "writes");
  }
}

void FailIfChangesAreUsedUp(Database& database, const std::string& name) {
  FailIfWritesAreUsedUp(database, name);
  if (KeptVersions(database).last >= kMaxNumber) {
    Fail(name, "changes");
  }
}

}  // namespace standalone
