#include "standalone/commands/list_tables.h"

#include <fmt/format.h>

#include <algorithm>
#include <numeric>
#include <string>
#include <utility>
#include <vector>

#include "standalone/shell/name_pattern.h"
#include "standalone/text/counted.h"

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
  const std::string type = variable.width == 0 ? "numeric" : "string, " + Counted(variable.width, "byte");
  return {variable.name, {TextCell(type), TextCell(variable.label.value_or("")), ListCell(std::move(valueLabels))}};
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
