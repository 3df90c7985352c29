#ifndef STANDALONE_DATA_SET_STORE_H
#define STANDALONE_DATA_SET_STORE_H

#include <vector>

#include "standalone/data/database.h"
#include "standalone/data/dataset.h"

namespace standalone {

/// A set together with where it is stored.
struct KeptSet {
  std::int64_t id = 0;
  std::int64_t position = 0;
  StoredSet set;
};

/// The sets of a dataset in their order.
std::vector<KeptSet> LoadSets(Database& database);

/// Writes what differs between the sets that are stored and those that are to be, within the transaction of the caller;
/// returns them as they are then stored. The names of `after` differ without regard to case.
std::vector<KeptSet> WriteSets(Database& database, const std::vector<KeptSet>& before,
                               const std::vector<StoredSet>& after);

/// Whether the two lists hold the same sets in whatever order.
bool SameButForOrder(const std::vector<KeptSet>& before, const std::vector<StoredSet>& after);

}  // namespace standalone

#endif  // STANDALONE_DATA_SET_STORE_H
