#ifndef STANDALONE_OUTPUT_XLSX_SHEETS_H
#define STANDALONE_OUTPUT_XLSX_SHEETS_H

#include "standalone/output/items.h"
#include "standalone/output/xlsx/workbook.h"

namespace standalone {

// Each adds a sheet. What is larger than a sheet is not cut: the sheet says so instead.

void AddSheet(Workbook& workbook, const Table& table);

/// With a sheet for each of its tests. Numbers are not rounded; formats show the decimals that were asked for.
void AddSheets(Workbook& workbook, const Tabulation& tabulation);

}  // namespace standalone

#endif  // STANDALONE_OUTPUT_XLSX_SHEETS_H
