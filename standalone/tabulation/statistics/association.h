#ifndef STANDALONE_TABULATION_STATISTICS_ASSOCIATION_H
#define STANDALONE_TABULATION_STATISTICS_ASSOCIATION_H

#include <string>

#include "standalone/tabulation/counting/shares.h"
#include "standalone/tabulation/request.h"
#include "standalone/tabulation/tabulation.h"

namespace standalone {

enum class Testability { kTestable, kSmallBase, kOneCategory, kNoCategory };

/// Whether there is anything to test: two cases and, where columns overlap, any column, else two of them
/// with cases.
Testability TestabilityOf(const TestedTable& table);

/// The tests of a set against a BY that is testable: Pearson's chi-square of each member, and their sum with the
/// second-order Rao-Scott correction.
TabulationTest TestAssociation(const TestedTable& table, const std::string& by, Adjustment adjustment);

}  // namespace standalone

#endif  // STANDALONE_TABULATION_STATISTICS_ASSOCIATION_H
