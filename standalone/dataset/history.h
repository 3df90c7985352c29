#ifndef STANDALONE_DATASET_HISTORY_H
#define STANDALONE_DATASET_HISTORY_H

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "standalone/dataset/change.h"
#include "standalone/dataset/set_store.h"
#include "standalone/dataset/stored_set.h"
#include "standalone/storage/database.h"

namespace standalone {

// Of each change the dataset keeps how the sets that it touched were before, so that from the sets as they are the list
// before any change that is kept can be rebuilt.

/// How many changes a dataset keeps, and how many imports.
inline constexpr std::int64_t kMaxKeptChanges = 1000;

/// Adds a change, within the transaction that makes it, and drops those beyond kMaxKeptChanges.
void AddChange(Database& database, const std::string& command, const SetEdits& edits);

/// Adds sets that were only moved to what the last change did, if there is one, within the transaction that moves them.
void AddToLastChange(Database& database, const SetEdits& moves);

/// The time as it is kept with a change.
std::string TimeNow();

/// Whether the text is a time as it is kept with a change.
bool IsTimeOfChange(const std::string& text);

VersionRange KeptVersions(Database& database);

/// The newest change with a number lower than that, if there is one.
std::optional<Change> ChangeBefore(Database& database, std::int64_t number);

/// The sets of a dataset as they were, further and further back.
class Rewind {
 public:
  using VisitForm = std::function<void(const StoredSet& before)>;

  /// Begins with the sets as they are. `visit`, if it is not empty, gets each form that a set had before a change, as
  /// the change is undone.
  Rewind(Database& database, const std::vector<KeptSet>& now, VisitForm visit = {});

  /// Undoes the changes with numbers from `last` down to `first`, which must follow on what was undone before. Throws
  /// an Error of kind kDamaged where a change does not fit the sets that it is to have left.
  void Undo(std::int64_t first, std::int64_t last);

  /// Whether two sets have the same name, without regard to case, or the same position.
  bool HasDuplicates() const { return fDuplicates != 0; }

  /// In their order.
  std::vector<StoredSet> Sets() const;

 private:
  struct PlacedSet {
    std::int64_t position = 0;
    SharedSet set;
  };

  void UndoRow(Query& row);
  void Put(std::int64_t id, PlacedSet set);
  PlacedSet Take(std::int64_t id);

  Database& fDatabase;
  VisitForm fVisit;
  std::unordered_map<std::int64_t, PlacedSet> fSets;  // by id
  std::unordered_map<std::string, int> fKeys;         // how many sets have them
  std::unordered_map<std::int64_t, int> fPositions;   // how many sets have them
  int fDuplicates = 0;
};

}  // namespace standalone

#endif  // STANDALONE_DATASET_HISTORY_H
