#ifndef STANDALONE_OUTPUT_CSV_CSV_TEXT_H
#define STANDALONE_OUTPUT_CSV_CSV_TEXT_H

#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

namespace standalone {

/// The text as a cell that no spreadsheet takes for a formula: one that begins, after any apostrophes, with =, +, -,
/// @, their full-width forms, a tab or a line end gets an apostrophe in front, unless it is a number. So an apostrophe
/// before one of these is always one that was added.
std::string HarmlessInSpreadsheets(std::string_view text);

/// A cell as in RFC 4180: in quotes where it needs them.
std::string CsvCell(std::string_view text);

/// A record of such cells with its line end, CR LF.
void WriteCsvRecord(std::ostream& stream, const std::vector<std::string>& cells);

}  // namespace standalone

#endif  // STANDALONE_OUTPUT_CSV_CSV_TEXT_H
