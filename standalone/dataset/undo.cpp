#include "standalone/dataset/undo.h"

#include <string>

namespace standalone {

std::optional<Undone> UndoChanges(Dataset& dataset, std::optional<std::int64_t> to) {
  dataset.BeginTransaction(Access::kExclusive);
  Undone undone;
  undone.versions = dataset.Versions();
  if (!to && undone.versions.last == undone.versions.first) {
    dataset.EndTransaction();
    return std::nullopt;
  }
  undone.target = to.value_or(undone.versions.last - 1);
  undone.before = dataset.Sets();
  undone.after = dataset.SetsOfVersion(undone.target);
  const Dataset::Saved saved = dataset.SaveSets(undone.after, to ? "undo --to " + std::to_string(*to) : "undo");
  undone.written = saved != Dataset::Saved::kUnchanged;
  return undone;
}

}  // namespace standalone
