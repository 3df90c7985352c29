#ifndef STANDALONE_DATASET_UNDO_H
#define STANDALONE_DATASET_UNDO_H

#include <cstdint>
#include <optional>
#include <vector>

#include "standalone/dataset/dataset.h"

namespace standalone {

struct Undone {
  VersionRange versions;          ///< before it
  std::int64_t target = 0;        ///< the version whose sets are there again
  std::vector<StoredSet> before;  ///< the sets before the undo
  std::vector<StoredSet> after;   ///< and after it
  bool written = false;           ///< false where they are the same, or only the order differs and cannot be kept
};

/// Goes back to the sets of version `to`, or else to those before the last change, in one transaction. That is itself a
/// change, unless only the order differs. Throws Error, also when there is no such version; nothing is returned
/// when there is no last change.
std::optional<Undone> UndoChanges(Dataset& dataset, std::optional<std::int64_t> to);

}  // namespace standalone

#endif  // STANDALONE_DATASET_UNDO_H
