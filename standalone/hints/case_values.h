#ifndef STANDALONE_HINTS_CASE_VALUES_H
#define STANDALONE_HINTS_CASE_VALUES_H

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "standalone/dataset/dataset.h"
#include "standalone/hints/case_tally.h"

namespace standalone {

/// The values that each variable has in the cases, kept so that these are not read anew for each set. They are read as
/// far as sets have asked for.
class CaseValues {
 public:
  enum class Answer {
    kGood,    ///< as TallyCases(): true
    kNone,    ///< as TallyCases(): false
    kUnknown  ///< the cases must be read: one of them is no case, or a variable has more values than are kept
  };

  /// Does what TallyCases() does, from what is known, reading on where that does not suffice.
  Answer Tally(Dataset& dataset, std::vector<SetTally>& tallies, std::size_t& bytesLeft);

 private:
  bool TallyKnown(std::vector<OpenVariable>& open) const;
  Answer ReadOn(Dataset& dataset, std::vector<OpenVariable>& open, std::size_t& bytesLeft);
  bool AddCase(std::string_view cells, std::vector<OpenVariable>& open);
  const ValueList& ValuesOf(const OpenVariable& variable) const;

  std::vector<ValueList> fValues;  // by position of the variable
  std::int64_t fNextCase = 0;
  std::size_t fBytes = 0;  // of the cases that were read
  bool fHasAllCases = false;
  bool fIsAtLimit = false;
};

}  // namespace standalone

#endif  // STANDALONE_HINTS_CASE_VALUES_H
