#ifndef STANDALONE_CHECK_COUNTED_VALUE_CHECK_H
#define STANDALONE_CHECK_COUNTED_VALUE_CHECK_H

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "standalone/cases/case_reader.h"
#include "standalone/dataset/stored_set.h"

namespace standalone {

/// Finds the dichotomy sets whose counted value no case has.
class CountedValueCheck {
 public:
  /// Adds a set with the positions of its variables, all numeric or all strings. The set must outlive the check.
  void Add(const StoredSet& set, bool isNumeric, const std::vector<std::size_t>& positions);

  /// Looks at the cells of a case that is sound.
  void Look(std::string_view cells);

  /// A sentence on each set that is left, in the order of Add(); none without a case.
  std::vector<std::string> Sentences() const;

 private:
  struct Wanted {
    const StoredSet* set;
    CaseCell value;
    bool isFound = false;
  };

  void DropFound();

  bool fHasCases = false;
  std::vector<Wanted> fWanted;
  std::vector<std::pair<std::size_t, std::size_t>>
      fPlaces;  // position of a variable, index of a set: of those not found
};

}  // namespace standalone

#endif  // STANDALONE_CHECK_COUNTED_VALUE_CHECK_H
