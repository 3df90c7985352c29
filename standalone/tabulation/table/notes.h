#ifndef STANDALONE_TABULATION_TABLE_NOTES_H
#define STANDALONE_TABULATION_TABLE_NOTES_H

#include <cstdint>
#include <string>
#include <vector>

#include "standalone/tabulation/counting/set_count.h"
#include "standalone/tabulation/request.h"
#include "standalone/tabulation/statistics/association.h"
#include "standalone/tabulation/tabulation.h"

namespace standalone {

/// What a reader of the table should know, as sentences; what is to be said of tests apart. `withoutWeight`: the cases
/// that WHERE selects and that have no valid weight.
std::vector<std::string> NotesOn(const Tabulation& table, const SetCount& count, const TabulationRequest& request,
                                 std::int64_t withoutWeight);

/// Why there is no test against a BY.
std::string NoteOnNoTest(const std::string& by, Testability testability);
/// Why the test of the whole set against a BY has no corrected figures: the covariance of the members' tests is of so
/// many members and categories that it would take too long, or nothing is left of it.
std::string NoteOnNoCorrection(const std::string& by, bool isTooLarge);

}  // namespace standalone

#endif  // STANDALONE_TABULATION_TABLE_NOTES_H
