#include "standalone/commands/list_tables.h"

#include <fmt/format.h>

#include <algorithm>
#include <numeric>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "standalone/shell/name_pattern.h"
#include "standalone/text/counted.h"
#include "standalone/text/number_text.h"
#include "standalone/text/trim.h"

namespace standalone {
namespace {

Cell TextCell(const std::string& text) {
  Cell cell;
  if (!text.empty()) {
    cell.value = text;
  }
  return cell;
}

Cell ListCell(std::vector<std::string> entries) {
  Cell cell;
  cell.value = std::move(entries);
  return cell;
}

std::string TypeOf(const Variable& variable) {
  return variable.width == 0 ? "numeric" : "string, " + Counted(static_cast<std::size_t>(variable.width), "byte");
}

std::string TextOf(const ValueCounts::Value& value) {
  const auto* number = std::get_if<double>(&value);
  return number == nullptr ? std::get<std::string>(value) : ShortestNumber(*number);
}

/// Numbers are compared by their value, texts without blanks at their ends.
bool IsLabelOf(const ValueLabel& label, const ValueCounts::Value& value) {
  const auto* number = std::get_if<double>(&value);
  return number == nullptr ? Trimmed(label.value) == std::get<std::string>(value) : NumberValue(label.value) == *number;
}

}  // namespace

Table SetsTable(const std::vector<StoredSet>& sets) {
  Table table = {"Multiple response sets", "Name", "", {"Type", "Label", "Counted value", "Variables"}, {}};
  for (const StoredSet& set : sets) {
    const bool isDichotomy = set.type == SetType::kDichotomy;
    table.rows.push_back({set.name,
                          {TextCell(isDichotomy ? "dichotomy" : "category"), TextCell(set.label),
                           TextCell(set.countedValue), ListCell(set.variables)}});
  }
  return table;
}

Table VariablesHeading() {
  return {"Variables", "Name", "", {"Type", "Label", "Value labels"}, {}};
}

TableRow VariableRow(const Variable& variable) {
  std::vector<std::string> valueLabels;
  for (const ValueLabel& entry : variable.valueLabels) {
    valueLabels.push_back(fmt::format("{} = {}", entry.value, entry.label));
  }
  return {variable.name,
          {TextCell(TypeOf(variable)), TextCell(variable.label.value_or("")), ListCell(std::move(valueLabels))}};
}

std::vector<ValueRow> ValueRows(const Variable& variable, const ValueCounts& counts) {
  std::vector<ValueRow> shown;
  for (const auto& [value, cases] : counts.Values()) {
    const auto label = std::find_if(variable.valueLabels.begin(), variable.valueLabels.end(),
                                    [key = &value](const ValueLabel& one) { return IsLabelOf(one, *key); });
    shown.push_back(
        {TextOf(value), label == variable.valueLabels.end() ? std::nullopt : std::make_optional(label->label), cases});
  }
  return shown;
}

Table VariablesHeadingWithValues() {
  return {"Variables", "Name", "", {"Type", "Label", "Values (cases)"}, {}};
}

TableRow VariableRow(const Variable& variable, const ValueCounts& counts) {
  std::vector<std::string> values;
  for (const ValueRow& one : ValueRows(variable, counts)) {
    values.push_back(fmt::format("{}{} ({})", one.value, one.label ? " = " + *one.label : "", one.cases));
  }
  // A value ends in a parenthesis, so that none looks like these.
  if (counts.Others() > 0) {
    values.push_back(fmt::format("others: {}", counts.Others()));
  }
  if (counts.Missing() > 0) {
    values.push_back(fmt::format("missing: {}", counts.Missing()));
  }
  return {variable.name,
          {TextCell(TypeOf(variable)), TextCell(variable.label.value_or("")), ListCell(std::move(values))}};
}

std::vector<int> PositionsOf(const std::string& pattern, Dataset& dataset, std::size_t most) {
  std::vector<int> positions;
  if (pattern.empty()) {
    positions.resize(std::min(static_cast<std::size_t>(dataset.VariableCount()), most));
    std::iota(positions.begin(), positions.end(), 0);
    return positions;
  }
  const NamePattern names(pattern);
  dataset.VisitVariables(names.Beginning(), 0, [&](int position, const std::string& name) {
    if (names.Matches(name)) {
      positions.push_back(position);
    }
    return positions.size() < most;
  });
  std::sort(positions.begin(), positions.end());
  return positions;
}

std::string NoSuchVariable(const std::string& pattern) {
  return fmt::format("The dataset has no variable {}.", pattern);
}

}  // namespace standalone
