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
/// The set and the BY have so many members and categories that the covariance of their tests would take too much
/// memory.
std::string NoteOnNoCorrection(const std::string& by);

}  // namespace standalone

#endif  // STANDALONE_TABULATION_TABLE_NOTES_H
