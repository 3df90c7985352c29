#ifndef STANDALONE_HINTS_CHOICE_HINTS_H
#define STANDALONE_HINTS_CHOICE_HINTS_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "standalone/dataset/dataset.h"
#include "standalone/hints/case_tally.h"
#include "standalone/hints/case_values.h"

namespace standalone {

/// Hints on what the cases hold of the dichotomy sets that commands define. The cases are read only for new and changed
/// sets, no farther than to the first case that leaves nothing to say and not beyond the first 2 MB of them, 32 MB in
/// all for a run, and none of more than 100,000 variables; where that is not enough, or the cases cannot be read, there
/// is no hint. From the second command on what is read is kept, of up to 20,000 variables, as long as nobody else
/// writes.
class ChoiceHints {
 public:
  /// The dataset must outlive the hints.
  explicit ChoiceHints(Dataset& dataset) : fDataset(dataset) {}

  /// The hints after a command that found the sets `before` and leaves `after`, for each set that it made: that its
  /// variables label the counted value differently, as answers do; and that no case holds the counted value, with
  /// values that there are, without blanks at their ends, or which variables no case has chosen.
  std::vector<std::string> HintsOnChange(const SetList& before, const SetList& after);

 private:
  bool Tally(std::vector<SetTally>& tallies);

  Dataset& fDataset;
  std::uint64_t fRevision = 0;  // of the dataset, in which the rest was read
  bool fHasRead = false;
  CaseValues fValues;
  std::size_t fBytesLeft = 32'000'000;
};

}  // namespace standalone

#endif  // STANDALONE_HINTS_CHOICE_HINTS_H
