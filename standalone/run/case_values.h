#ifndef STANDALONE_RUN_CASE_VALUES_H
#define STANDALONE_RUN_CASE_VALUES_H

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "standalone/data/dataset.h"
#include "standalone/run/case_tally.h"

namespace standalone {

/// The values that each variable has in the cases, so that these are read once for all the sets of a run. They are read
/// as far as sets have asked for.
class CaseValues {
 public:
  /// As TallyCases(), but for the cases that are known. False also where a variable that no case may have chosen has
  /// more values than are kept.
  bool Tally(Dataset& dataset, std::vector<SetTally>& tallies, std::size_t& bytesLeft);

 private:
  void TallyKnown(std::vector<OpenVariable>& open) const;
  bool ReadOn(Dataset& dataset, std::vector<OpenVariable>& open, std::size_t& bytesLeft);
  bool AddCase(std::string_view cells, std::vector<OpenVariable>& open);

  std::vector<ValueList> fValues;  // by position of the variable
  std::int64_t fNextCase = 0;
  bool fHasAllCases = false;
};

}  // namespace standalone

#endif  // STANDALONE_RUN_CASE_VALUES_H
