#ifndef STANDALONE_SETS_SET_DIFF_H
#define STANDALONE_SETS_SET_DIFF_H

#include <string>
#include <variant>
#include <vector>

#include "standalone/dataset/stored_set.h"

namespace standalone {

/// A member of a set that is not the same in A and B.
struct FieldDifference {
  std::string field;  ///< as in the JSON form of a set
  std::variant<std::string, bool> a;
  std::variant<std::string, bool> b;
};

/// How two lists of names differ. Names are the same without regard to case.
struct ListDifference {
  std::vector<std::string> onlyInA;
  std::vector<std::string> onlyInB;
  std::vector<std::string> commonInA;  ///< the names in both, in the order and the spelling of A
  std::vector<std::string> commonInB;  ///< the same names, in the order and the spelling of B
  bool reordered = false;              ///< whether those are in another order
};

/// A set that both have, and not the same one.
struct DifferingSet {
  StoredSet a;
  StoredSet b;
  std::vector<FieldDifference> fields;  ///< all but the variables
  bool variablesDiffer = false;
  ListDifference variables;
};

struct SetsDifference {
  std::vector<StoredSet> onlyInA;
  std::vector<StoredSet> onlyInB;
  std::vector<DifferingSet> changed;  ///< in the order of A
  ListDifference names;               ///< of the lists as a whole

  bool IsNone() const { return onlyInA.empty() && onlyInB.empty() && changed.empty() && !names.reordered; }
};

/// Compares two lists of sets; the names within each differ without regard to case.
SetsDifference CompareSets(const std::vector<StoredSet>& a, const std::vector<StoredSet>& b);

}  // namespace standalone

#endif  // STANDALONE_SETS_SET_DIFF_H
