#ifndef STANDALONE_OUTPUT_CSV_CSV_TABULATION_H
#define STANDALONE_OUTPUT_CSV_CSV_TABULATION_H

#include "standalone/output/table_writer.h"
#include "standalone/tabulation/tabulation.h"

namespace standalone {

/// Writes a tabulation for programs, with every figure it has, not rounded: a table of its cells, with a row for each
/// member and column, and, where tests were asked for, one of its tests.
void WriteCsv(TableWriter& tables, const Tabulation& tabulation);

}  // namespace standalone

#endif  // STANDALONE_OUTPUT_CSV_CSV_TABULATION_H
