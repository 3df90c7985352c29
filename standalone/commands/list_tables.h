#ifndef STANDALONE_COMMANDS_LIST_TABLES_H
#define STANDALONE_COMMANDS_LIST_TABLES_H

#include <cstddef>
#include <limits>
#include <string>
#include <vector>

#include "standalone/dataset/dataset.h"
#include "standalone/output/items.h"

namespace standalone {

// The lists of what a dataset holds, as tables: all but the rows, and a row.

Table SetsHeading();
TableRow SetRow(const StoredSet& set);

Table VariablesHeading();
TableRow VariableRow(const Variable& variable);

/// The positions, in dictionary order, of the variables that the pattern stands for, all for an empty one;
/// `most` of them at most.
std::vector<int> PositionsOf(const std::string& pattern, Dataset& dataset,
                             std::size_t most = std::numeric_limits<std::size_t>::max());

/// Where the pattern stands for none.
std::string NoSuchVariable(const std::string& pattern);

/// What people read in place of an empty table of sets; empty where it is not.
std::string AbsenceOfSets(const std::vector<StoredSet>& sets);

}  // namespace standalone

#endif  // STANDALONE_COMMANDS_LIST_TABLES_H
