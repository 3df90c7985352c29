#include "standalone/import/columns.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <unordered_map>
#include <utility>

#include "standalone/data/number_text.h"
#include "standalone/import/importer.h"
#include "standalone/text/error.h"
#include "standalone/text/names.h"
#include "standalone/text/unicode.h"

namespace standalone {

namespace {

std::string_view WithoutBlanks(std::string_view text) {
  constexpr std::string_view kBlanks = " \t";
  const std::size_t begin = std::min(text.find_first_not_of(kBlanks), text.size());
  text.remove_prefix(begin);
  return text.substr(0, text.find_last_not_of(kBlanks) + 1);
}

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
      throw Error(fmt::format("{}, column {}: the name {} is that of column {} already.", path, index + 1,
                                    Quoted(name), entry->second + 1));
    }
  }
  return columns;
}

}  // namespace

Column::Column(CodebookField field) : fField(std::move(field)) {}

void Column::Learn(std::string_view cell) {
  const std::string_view text = WithoutBlanks(cell);
  if (IsSettled() || text.empty()) {
    return;
  }
  fHasNumber = true;
  if (!IsJsonNumber(text)) {
    fField.type = FieldType::kString;
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

std::optional<std::string> Column::Convert(std::string_view& cell) {
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
  const std::string_view text = WithoutBlanks(cell);
  if (text.empty()) {
    cell = text;
    return std::nullopt;
  }
  const std::optional<std::string_view> number = JsonNumber(text, fScratch);
  if (!number) {
    return Quoted(cell) + " is not a number";
  }
  if (fField.type != FieldType::kNumber && !IsWhole(*number)) {
    return Quoted(cell) + " is not a whole number";
  }
  cell = *number;
  return std::nullopt;
}

std::optional<std::string> Column::ConvertBoolean(std::string_view& cell) const {
  constexpr std::array<std::string_view, 4> kTrue = {"1", "true", "True", "TRUE"};
  constexpr std::array<std::string_view, 4> kFalse = {"0", "false", "False", "FALSE"};
  const std::string_view text = WithoutBlanks(cell);
  if (text.empty()) {
    cell = text;
  } else if (std::find(kTrue.begin(), kTrue.end(), text) != kTrue.end()) {
    cell = "1";
  } else if (std::find(kFalse.begin(), kFalse.end(), text) != kFalse.end()) {
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
      throw Error(
          fmt::format("{}, field {}: {} has no such column.", codebookPath, Quoted(field.name), dataPath));
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
