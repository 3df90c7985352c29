#ifndef STANDALONE_CHECK_COUNTED_VALUE_CHECK_H
#define STANDALONE_CHECK_COUNTED_VALUE_CHECK_H

#include <cstddef>
#include <map>
#include <string>
#include <vector>

#include "standalone/cases/block.h"
#include "standalone/dataset/stored_set.h"

namespace standalone {

/// Finds the dichotomy sets whose counted value no case has.
class CountedValueCheck {
 public:
  /// Adds a set with the positions of its variables, all numeric or all strings. The set must outlive the check.
  void Add(const StoredSet& set, bool isNumeric, const std::vector<std::size_t>& positions);

  /// Looks at a sound block of the variable at a position.
  void Look(std::size_t position, const Block& block);

  /// The variable at a position has cells that cannot be read: nothing is said of its sets.
  void PassOver(std::size_t position);

  /// A sentence on each set that is left, in the order of Add(); none without a case.
  std::vector<std::string> Sentences() const;

 private:
  struct Wanted {
    const StoredSet* set;
    bool isNumeric;
    double number;
    std::string text;
    bool isFound = false;
  };

  static bool Holds(const Block& block, const Wanted& wanted);

  bool fHasCases = false;
  std::vector<Wanted> fWanted;
  std::multimap<std::size_t, std::size_t> fPlaces;  // indexes of sets by the positions of their variables
};

}  // namespace standalone

#endif  // STANDALONE_CHECK_COUNTED_VALUE_CHECK_H
