#include "standalone/import/columns.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <unordered_map>
#include <utility>

#include "standalone/dataset/variable.h"
#include "standalone/import/importer.h"
#include "standalone/text/error.h"
#include "standalone/text/names.h"
#include "standalone/text/number_text.h"
#include "standalone/text/trim.h"
#include "standalone/text/unicode.h"

namespace standalone {

namespace {

constexpr std::string_view kCellBlanks = " \t";

bool IsWhole(std::string_view number) {
  if (number.find_first_of(".eE") == std::string_view::npos) {
    return true;
  }
  const std::optional<double> value = NumberValue(number);
  return value && *value == std::floor(*value);
}

std::string Quoted(std::string_view text) {
  return fmt::format("\"{}\"", Shortened(text));
}

// The column of each name, by its upper-case form.
std::unordered_map<std::string, std::size_t> IndexNames(const std::vector<std::string>& header,
                                                        const std::string& path) {
  std::unordered_map<std::string, std::size_t> columns;
  for (std::size_t index = 0; index < header.size(); ++index) {
    const std::string& name = header[index];
    if (!IsValidVariableName(name)) {
      throw Error(fmt::format("{}, column {}: {} is not a valid variable name.", path, index + 1, Quoted(name)));
    }
    const auto [entry, isNew] = columns.emplace(ToUpper(name), index);
    if (!isNew) {
      throw Error(fmt::format("{}, column {}: duplicate name {} (also column {}).", path, index + 1, Quoted(name),
                              entry->second + 1));
    }
  }
  return columns;
}

}  // namespace

Column::Column(CodebookField field) : fField(std::move(field)) {}

void Column::Learn(std::string_view cell) {
  const std::string_view text = Trimmed(cell, kCellBlanks);
  if (IsSettled() || text.empty() || IsMissing(cell)) {
    return;
  }
  fHasNumber = true;
  if (!IsJsonNumber(text)) {
    fField.type = FieldType::kString;
    fIsStringByData = true;
  }
}

void Column::Settle() {
  if (!IsSettled()) {
    fField.type = fHasNumber ? FieldType::kNumber : FieldType::kString;
  }
}

Variable Column::ToVariable() const {
  Variable variable;
  variable.name = fField.name;
  if (fField.type == FieldType::kString) {
    variable.width = fField.maxLength ? static_cast<int>(*fField.maxLength) : kWidthOfLongestValue;
  }
  variable.label = fField.title;
  variable.valueLabels = fField.categories;
  return variable;
}

bool Column::IsMissing(std::string_view cell) const {
  const std::vector<std::string>& missing = fField.missingValues;
  const auto isCell = [text = Trimmed(cell, kCellBlanks), cell](const std::string& one) {
    return one == cell || one == text;
  };
  return std::any_of(missing.begin(), missing.end(), isCell);
}

bool Column::IsStringForFewCells() const {
  constexpr std::size_t kFew = 3;
  constexpr std::size_t kShare = 20;
  const bool isFew = fOdd.count <= std::max(kFew, (fOdd.count + fOdd.numbers) / kShare);
  return fOdd.count > 0 && isFew && fOdd.numbers >= 2 * fOdd.count;
}

/// Ends where the column is one of texts, as most are.
void Column::CountOdd(std::string_view cell, std::size_t line) {
  constexpr std::size_t kMaxOdd = 1000;
  const std::string_view text = Trimmed(cell, kCellBlanks);
  if (!fIsStringByData || text.empty()) {
    return;
  }
  if (IsJsonNumber(text)) {
    ++fOdd.numbers;
  } else {
    fOdd.inOtherForm += JsonNumber(text, fScratch) ? 1 : 0;
    if (fOdd.count++ == 0) {
      fOdd.line = line;
      fOdd.text = Shortened(text);
    }
  }
  fIsStringByData = fOdd.count <= kMaxOdd + fOdd.numbers;
}

std::optional<std::string> Column::Convert(std::string_view& cell, std::size_t line) {
  if (!fField.missingValues.empty() && IsMissing(cell)) {
    cell = {};
    return std::nullopt;
  }
  CountOdd(cell, line);
  switch (fField.type) {
    case FieldType::kString:
      return ConvertString(cell);
    case FieldType::kBoolean:
      return ConvertBoolean(cell);
    default:
      return ConvertNumber(cell);
  }
}

std::optional<std::string> Column::ConvertString(std::string_view cell) const {
  if (!fField.maxLength || cell.size() <= *fField.maxLength || CountCharacters(cell) <= *fField.maxLength) {
    return std::nullopt;
  }
  return fmt::format("the value has {} characters where the codebook allows {}", CountCharacters(cell),
                     *fField.maxLength);
}

std::optional<std::string> Column::ConvertNumber(std::string_view& cell) {
  const std::string_view text = Trimmed(cell, kCellBlanks);
  if (text.empty()) {
    cell = text;
    return std::nullopt;
  }
  const std::optional<std::string_view> number = JsonNumber(WithPlainMarks(text), fScratch);
  if (!number) {
    return Quoted(cell) + " is not a number";
  }
  if (fField.type != FieldType::kNumber && !IsWhole(*number)) {
    return Quoted(cell) + " is not a whole number";
  }
  cell = *number;
  return std::nullopt;
}

/// The number with a point for the codebook's decimalChar and without its groupChar, which stands between digits;
/// empty, which is no number, where they stand elsewhere.
std::string_view Column::WithPlainMarks(std::string_view number) {
  const std::string& decimal = fField.decimalChar;
  const std::string& group = fField.groupChar;
  if (decimal == "." && group.empty()) {
    return number;
  }
  fPlain.clear();
  for (std::size_t offset = 0; offset < number.size();) {
    const std::string_view rest = number.substr(offset);
    if (!group.empty() && rest.substr(0, group.size()) == group) {
      offset += group.size();
      const bool isBetweenDigits =
          !fPlain.empty() && IsDigit(fPlain.back()) && offset < number.size() && IsDigit(number[offset]);
      if (!isBetweenDigits || fPlain.find('.') != std::string::npos) {
        return {};
      }
    } else if (rest.substr(0, decimal.size()) == decimal) {
      fPlain += '.';
      offset += decimal.size();
    } else if (rest[0] == '.') {
      return {};
    } else {
      fPlain += rest[0];
      ++offset;
    }
  }
  return fPlain;
}

std::optional<std::string> Column::ConvertBoolean(std::string_view& cell) const {
  const std::vector<std::string>& trues = fField.trueValues;
  const std::vector<std::string>& falses = fField.falseValues;
  const std::string_view text = Trimmed(cell, kCellBlanks);
  if (text.empty()) {
    cell = text;
  } else if (std::find(trues.begin(), trues.end(), text) != trues.end()) {
    cell = "1";
  } else if (std::find(falses.begin(), falses.end(), text) != falses.end()) {
    cell = "0";
  } else {
    return Quoted(cell) + " is neither true nor false";
  }
  return std::nullopt;
}

std::vector<Column> MakeColumns(const std::vector<std::string>& header, const std::string& dataPath,
                                std::vector<CodebookField> fields, const std::string& codebookPath) {
  const std::unordered_map<std::string, std::size_t> columnOfName = IndexNames(header, dataPath);
  std::vector<CodebookField> described(header.size());
  for (CodebookField& field : fields) {
    const auto found = columnOfName.find(ToUpper(field.name));
    if (found == columnOfName.end()) {
      throw Error(fmt::format("{}, field {}: {} has no such column.", codebookPath, Quoted(field.name), dataPath));
    }
    described[found->second] = std::move(field);
  }
  std::vector<Column> columns;
  columns.reserve(header.size());
  for (std::size_t index = 0; index < header.size(); ++index) {
    described[index].name = header[index];
    columns.emplace_back(std::move(described[index]));
  }
  return columns;
}

}  // namespace standalone
