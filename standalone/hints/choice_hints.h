#ifndef STANDALONE_HINTS_CHOICE_HINTS_H
#define STANDALONE_HINTS_CHOICE_HINTS_H

#include <string>
#include <vector>

#include "standalone/dataset/dataset.h"

namespace standalone {

/// The hints after a command that found the sets `before` and leaves `after`, for each dichotomy set that it made: that
/// its variables label the counted value differently, as answers do; and that no case holds the counted value, with
/// values that there are, without blanks at their ends, or which variables no case has chosen. Where the cases cannot
/// be read there is no hint.
std::vector<std::string> HintsOnChoices(Dataset& dataset, const SetList& before, const SetList& after);

}  // namespace standalone

#endif  // STANDALONE_HINTS_CHOICE_HINTS_H
