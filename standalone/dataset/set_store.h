#ifndef STANDALONE_DATASET_SET_STORE_H
#define STANDALONE_DATASET_SET_STORE_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "standalone/dataset/change.h"
#include "standalone/dataset/stored_set.h"
#include "standalone/storage/database.h"

namespace standalone {

/// A set together with where it is stored.
struct KeptSet {
  std::int64_t id = 0;
  std::int64_t position = 0;
  SharedSet set;
  std::string key;  ///< the upper-case form of the name
};

/// The number; one beyond kMaxNumber is the mark of a damaged file.
std::int64_t OrdinaryNumber(Database& database, std::int64_t number);

/// The set whose name, type, label, counted value and two marks are the columns from `first` on, without its variables.
StoredSet SetOfColumns(Database& database, Query& row, int first);

/// The sets of a dataset in their order.
std::vector<KeptSet> LoadSets(Database& database);

/// What became of one set.
struct SetEdit {
  ChangeKind kind = ChangeKind::kDefined;
  std::int64_t id = 0;
  const KeptSet* before = nullptr;  ///< null for a set that was defined
  std::string name;                 ///< as it was before, or of a set that was defined, as it is
};

struct SetEdits {
  std::vector<SetEdit> edits;
  bool reordered = false;  ///< whether sets that stayed came into another order
};

/// What was written: the stretch of the stored sets that was replaced, and by what.
struct SetWrite {
  SetEdits edits;         ///< refers to the sets that were stored before, so not to be used after ApplyTo()
  std::size_t first = 0;  ///< where the stretch begins
  std::size_t count = 0;  ///< how many sets it had
  std::vector<KeptSet> replacement;

  /// Replaces the stretch in the list of the sets that were stored before.
  void ApplyTo(std::vector<KeptSet>& stored) &&;
};

/// Writes what differs between the sets that are stored and those that are to be, within the transaction of the caller.
/// The names of `after` differ without regard to case.
SetWrite WriteSets(Database& database, const std::vector<KeptSet>& before, const SetList& after);

/// Whether the two lists hold the same sets in whatever order.
bool SameButForOrder(const std::vector<KeptSet>& before, const SetList& after);

}  // namespace standalone

#endif  // STANDALONE_DATASET_SET_STORE_H
