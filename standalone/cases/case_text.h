#ifndef STANDALONE_CASES_CASE_TEXT_H
#define STANDALONE_CASES_CASE_TEXT_H

#include <string>
#include <string_view>

namespace standalone {

/// Appends a text as a JSON string.
void AppendJsonString(std::string_view text, std::string& out);

/// Appends a cell as it is stored: of a numeric variable the number, given as JSON writes it, or null where the cell is
/// empty; else a JSON string.
void AppendCell(std::string_view cell, bool isNumeric, std::string& out);

}  // namespace standalone

#endif  // STANDALONE_CASES_CASE_TEXT_H
