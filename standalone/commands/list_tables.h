#ifndef STANDALONE_COMMANDS_LIST_TABLES_H
#define STANDALONE_COMMANDS_LIST_TABLES_H

#include <cstddef>
#include <limits>
#include <optional>
#include <string>
#include <vector>

#include "standalone/dataset/cell_values.h"
#include "standalone/dataset/dataset.h"
#include "standalone/output/items.h"

namespace standalone {

/// What people read in place of an empty table of sets.
inline constexpr const char* kAbsenceOfSets = "The dataset has no multiple response sets.\n";

Table SetsTable(const std::vector<StoredSet>& sets);

// The table of variables, which may be large: all but the rows, and a row.

Table VariablesHeading();
TableRow VariableRow(const Variable& variable);

/// The values that are shown of one variable at most, the smallest.
inline constexpr std::size_t kMaxShownValues = 100;

/// A value that variables have, as people and programs read it, with its label if it has one.
struct ValueRow {
  std::string value;
  std::optional<std::string> label;
  std::size_t cases;
};

std::vector<ValueRow> ValueRows(const Variable& variable, const ValueCounts& counts);

/// The same lists with the values that the cases hold, and how many cases, in place of the value labels.
Table VariablesHeadingWithValues();
TableRow VariableRow(const Variable& variable, const ValueCounts& counts);

/// The positions, in dictionary order, of the variables that the pattern stands for, all for an empty one;
/// `most` of them at most.
std::vector<int> PositionsOf(const std::string& pattern, Dataset& dataset,
                             std::size_t most = std::numeric_limits<std::size_t>::max());

/// Where the pattern stands for none.
std::string NoSuchVariable(const std::string& pattern);

}  // namespace standalone

#endif  // STANDALONE_COMMANDS_LIST_TABLES_H
