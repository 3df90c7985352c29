#ifndef STANDALONE_DATA_UNDO_H
#define STANDALONE_DATA_UNDO_H

#include <cstdint>
#include <optional>

#include "standalone/data/dataset.h"

namespace standalone {

struct Undone {
  VersionRange versions;    ///< before it
  std::int64_t target = 0;  ///< the version whose sets are there again
  bool changed = false;     ///< false where these were the sets already
  bool written = false;     ///< false also where only the order would change and the dataset cannot be written
};

/// Goes back to the sets of version `to`, or else to those before the last change, in one transaction. That is itself a
/// change. Throws Error, also when there is no such version; nothing is returned when there is no last change.
std::optional<Undone> UndoChanges(Dataset& dataset, std::optional<std::int64_t> to);

}  // namespace standalone

#endif  // STANDALONE_DATA_UNDO_H
