#ifndef STANDALONE_DATASET_CHANGE_H
#define STANDALONE_DATASET_CHANGE_H

#include <cstdint>
#include <string>
#include <vector>

namespace standalone {

enum class ChangeKind { kDefined = 1, kChanged = 2, kDeleted = 3, kMoved = 4 };

/// One set that a change of the dataset's sets touched.
struct ChangedSet {
  std::string name;  ///< of a set that was changed, its name before
  ChangeKind kind = ChangeKind::kDefined;
};

/// One save that changed the sets.
struct Change {
  std::int64_t number = 0;       ///< from 1, never used again
  std::string time;              ///< UTC, as in 2024-05-01T12:33:01Z
  std::string command;           ///< its whole text
  bool reordered = false;        ///< whether sets that stayed came into another order
  std::vector<ChangedSet> sets;  ///< without those that were only moved
};

/// One import that made the dataset or replaced its variables and cases.
struct LoggedImport {
  std::int64_t afterChange = 0;  ///< the number of the last change before it
  std::string time;              ///< as of a change
  std::string command;           ///< its options and the name of the survey
  std::int64_t variables = 0;
  std::int64_t cases = 0;
};

/// The versions of the sets that can be had. Version N is what change N left, version 0 what stood before the first.
struct VersionRange {
  std::int64_t first = 0;
  std::int64_t last = 0;  ///< the sets as they are
};

}  // namespace standalone

#endif  // STANDALONE_DATASET_CHANGE_H
