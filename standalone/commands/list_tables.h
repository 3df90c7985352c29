#ifndef STANDALONE_COMMANDS_LIST_TABLES_H
#define STANDALONE_COMMANDS_LIST_TABLES_H

#include <cstddef>
#include <limits>
#include <string>
#include <vector>

#include "standalone/dataset/dataset.h"
#include "standalone/output/items.h"

namespace standalone {

/// What people read in place of an empty table of sets.
inline constexpr const char* kAbsenceOfSets = "The dataset has no multiple response sets.\n";

Table SetsTable(const std::vector<StoredSet>& sets);

// The table of variables, which may be large: all but the rows, and a row.

Table VariablesHeading();
TableRow VariableRow(const Variable& variable);

/// The positions, in dictionary order, of the variables that the pattern stands for, all for an empty one;
/// `most` of them at most.
std::vector<int> PositionsOf(const std::string& pattern, Dataset& dataset,
                             std::size_t most = std::numeric_limits<std::size_t>::max());

/// Where the pattern stands for none.
std::string NoSuchVariable(const std::string& pattern);

}  // namespace standalone

#endif  // STANDALONE_COMMANDS_LIST_TABLES_H
