#ifndef STANDALONE_TABULATION_STATISTICS_ADJUSTED_P_H
#define STANDALONE_TABULATION_STATISTICS_ADJUSTED_P_H

#include <vector>

#include "standalone/tabulation/request.h"
#include "standalone/tabulation/tabulation.h"

namespace standalone {

/// Gives the tests that have a p its adjusted value, by Holm's step-down procedure or by Bonferroni's correction.
void AdjustP(Adjustment adjustment, std::vector<MemberTest>& tests);

}  // namespace standalone

#endif  // STANDALONE_TABULATION_STATISTICS_ADJUSTED_P_H
