#ifndef STANDALONE_OUTPUT_XLSX_XLSX_FUNCTIONS_H
#define STANDALONE_OUTPUT_XLSX_XLSX_FUNCTIONS_H

#include <xlsxwriter.h>

namespace standalone {

/// What is used of the library that writes workbooks. The program is not linked with it: to load it and the libraries
/// that it needs takes as long as a whole small command. The module mrset-xlsx.so is, and is loaded with the first
/// workbook. It alone may make such a struct.
struct XlsxFunctions {
  decltype(&lxw_strerror) errorText = lxw_strerror;
  decltype(&lxw_workbook_free) workbookFree = lxw_workbook_free;
  decltype(&workbook_new_opt) workbookNew = workbook_new_opt;
  decltype(&workbook_add_worksheet) workbookAddSheet = workbook_add_worksheet;
  decltype(&workbook_add_format) workbookAddFormat = workbook_add_format;
  decltype(&workbook_close) workbookClose = workbook_close;
  decltype(&worksheet_write_string) sheetWriteString = worksheet_write_string;
  decltype(&worksheet_write_number) sheetWriteNumber = worksheet_write_number;
  decltype(&worksheet_merge_range) sheetMergeRange = worksheet_merge_range;
  decltype(&worksheet_freeze_panes) sheetFreezePanes = worksheet_freeze_panes;
  decltype(&worksheet_set_column) sheetSetColumn = worksheet_set_column;
  decltype(&format_set_num_format) formatSetNumber = format_set_num_format;
  decltype(&format_set_text_wrap) formatSetWrap = format_set_text_wrap;
  decltype(&format_set_align) formatSetAlign = format_set_align;
  decltype(&format_set_bold) formatSetBold = format_set_bold;
};

/// Those of the module. Throws Error where it cannot be loaded.
const XlsxFunctions& Xlsx();

}  // namespace standalone

#endif  // STANDALONE_OUTPUT_XLSX_XLSX_FUNCTIONS_H
