#include "standalone/data/undo.h"

#include <string>
#include <vector>

namespace standalone {

std::optional<Undone> UndoChanges(Dataset& dataset, std::optional<std::int64_t> to) {
  dataset.BeginCommand(true);
  Undone undone;
  undone.versions = dataset.Versions();
  if (!to && undone.versions.last == undone.versions.first) {
    dataset.EndCommand();
    return std::nullopt;
  }
  undone.target = to.value_or(undone.versions.last - 1);
  const std::vector<StoredSet> sets = dataset.SetsOfVersion(undone.target);
  undone.changed = sets != dataset.Sets();
  undone.written = dataset.SaveSets(sets, to ? "undo --to " + std::to_string(*to) : "undo") == Dataset::Saved::kDone;
  return undone;
}

}  // namespace standalone
