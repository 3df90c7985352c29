#ifndef STANDALONE_TABULATION_STATISTICS_ASSOCIATION_H
#define STANDALONE_TABULATION_STATISTICS_ASSOCIATION_H

#include <string>

#include "standalone/tabulation/counting/shares.h"
#include "standalone/tabulation/request.h"
#include "standalone/tabulation/tabulation.h"

namespace standalone {

enum class Testability { kTestable, kSmallBase, kNoCategory, kOneCategory, kEqualCategories, kEqualMembers };

/// Whether there is anything to test: two cases, a category that some of them are in and others are not, and a member
/// that some chose and others did not.
Testability TestabilityOf(const TestedTable& table);

/// The tests of a set against a BY that is testable: Pearson's chi-square of each member, and their sum with the
/// second-order Rao-Scott correction.
TabulationTest TestAssociation(const TestedTable& table, const std::string& by, Adjustment adjustment);

}  // namespace standalone

#endif  // STANDALONE_TABULATION_STATISTICS_ASSOCIATION_H
