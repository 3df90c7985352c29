#ifndef STANDALONE_OUTPUT_CSV_CSV_TABULATION_H
#define STANDALONE_OUTPUT_CSV_CSV_TABULATION_H

#include <vector>

#include "standalone/output/items.h"

namespace standalone {

/// A tabulation for programs, with every figure it has, not rounded: a table of its cells, with a row for each member
/// and column, and, where tests were asked for, one of its tests.
std::vector<Table> CsvTables(const Tabulation& tabulation);

}  // namespace standalone

#endif  // STANDALONE_OUTPUT_CSV_CSV_TABULATION_H
