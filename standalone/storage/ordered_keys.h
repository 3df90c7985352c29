#ifndef STANDALONE_STORAGE_ORDERED_KEYS_H
#define STANDALONE_STORAGE_ORDERED_KEYS_H

#include <functional>
#include <utility>

#include "standalone/storage/database.h"

namespace standalone {

/// Verifies that the keys of an ordered scan ascend strictly, or with std::greater<> that they fall. In a damaged file
/// a page of a B-tree can be the child of several pages or of one page several times; a scan then meets the same rows
/// again and again, and would take time exponential in the depth of the tree. What is filtered out of a scan must be
/// filtered after its key was verified, not by the query.
template <typename Key, typename Order = std::less<>>
class OrderedKeys {
 public:
  explicit OrderedKeys(const Database& database) : fDatabase(database) {}

  /// The key of the next row. Throws an Error of kind kDamaged where it does not come after the last one.
  const Key& Next(Key key) {
    if (fHasLast && !Order()(fLast, key)) {
      fDatabase.FailAsDamaged();
    }
    fHasLast = true;
    fLast = std::move(key);
    return fLast;
  }

 private:
  const Database& fDatabase;
  bool fHasLast = false;
  Key fLast{};
};

}  // namespace standalone

#endif  // STANDALONE_STORAGE_ORDERED_KEYS_H
