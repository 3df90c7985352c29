#include "standalone/tabulation/reading/by_variable_reader.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "standalone/tabulation/reading/counted_set.h"

namespace standalone {

ByVariableReader::ByVariableReader(const Spoken& name, TabulationSource& source, Columns& columns)
    : ByVariableReader(source.VariableAt(FindVariable(name, source)), columns.Need(FindVariable(name, source))) {}

ByVariableReader::ByVariableReader(const Variable& variable, const Block& block)
    : ByReader(variable.name), fValues(variable.width == 0), fLabels(variable.width == 0), fColumn(block, fValues) {
  fLabels.Add(variable.valueLabels);
}

void ByVariableReader::AddGroup(std::size_t column, const Bits& cases) {
  const auto same = std::find_if(fColumns.groups.begin(), fColumns.groups.end(),
                                 [column](const CaseGroup& group) { return group.index == column; });
  if (same == fColumns.groups.end()) {
    fColumns.groups.push_back({column, cases});
  } else {
    AddTo(same->cases, cases);
  }
}

void ByVariableReader::ReadColumns(const Chunk& chunk, const Bits& cases) {
  fColumns.isGrouped = true;
  fColumns.groups.clear();
  fColumns.present.fill(0);
  fColumn.Read(
      chunk, cases,
      [this](std::size_t column, const Bits& found) {
        AddGroup(column, found);
        AddTo(fColumns.present, found);
      },
      [this](std::size_t column, std::size_t place) {
        fColumns.isGrouped = false;
        ListCases();
        fColumns.columnOf[place] = static_cast<std::uint32_t>(column);
        AddCase(fColumns.present, place);
      });
}

std::vector<ByCategory> ByVariableReader::Categories() const {
  std::vector<std::size_t> all(fValues.Size());
  std::iota(all.begin(), all.end(), std::size_t{0});
  std::vector<ByCategory> categories;
  for (const std::size_t index : fLabels.Ordered(all, fValues)) {
    const std::string value = fValues.TextOf(index);
    categories.push_back({index, {value}, {fLabels.LabelOf(value)}});
  }
  return categories;
}

}  // namespace standalone
