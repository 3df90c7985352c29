#include "standalone/output/csv/csv_text.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <ostream>

#include "standalone/text/number_text.h"

namespace standalone {
namespace {

constexpr std::array<std::string_view, 11> kFormulaBegins = {"=",      "+",      "-",  "@",  "\uFF1D", "\uFF0B",
                                                             "\uFF0D", "\uFF20", "\t", "\r", "\n"};

bool BeginsFormula(std::string_view text) {
  return std::any_of(kFormulaBegins.begin(), kFormulaBegins.end(),
                     [&](std::string_view begin) { return text.substr(0, begin.size()) == begin; });
}

}  // namespace

std::string HarmlessInSpreadsheets(std::string_view text) {
  const std::string_view rest = text.substr(std::min(text.find_first_not_of('\''), text.size()));
  const bool isHarmless = !BeginsFormula(rest) || NumberValue(text).has_value();
  return std::string(isHarmless ? "" : "'").append(text);
}

std::string CsvCell(std::string_view text) {
  if (text.find_first_of("\",\r\n") == std::string_view::npos) {
    return std::string(text);
  }
  std::string cell = "\"";
  for (const char c : text) {
    cell.append(c == '"' ? 2 : 1, c);
  }
  return cell + '"';
}

void WriteCsvRecord(std::ostream& stream, const std::vector<std::string>& cells) {
  const char* separator = "";
  for (const std::string& cell : cells) {
    stream << separator << CsvCell(cell);
    separator = ",";
  }
  stream << "\r\n";
}

}  // namespace standalone
