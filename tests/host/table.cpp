#include <algorithm>

#include "tests/host/rendering.h"
#include "tests/host/scripted_host.h"

namespace scripted {
namespace {

constexpr char kBetweenCells[] = " | ";

bool IsColumns(const Dimension& dimension) {
  return dimension.position && dimension.position->place == BpDimension::kColumns;
}

const Dimension* FindDimension(const Table& table, bool columns) {
  const auto found = std::find_if(table.dimensions.begin(), table.dimensions.end(),
                                  [columns](const Dimension& dimension) { return IsColumns(dimension) == columns; });
  return table.dimensions.size() != 2 || found == table.dimensions.end() ? nullptr : &*found;
}

std::string CellText(const Cell* cell) {
  if (cell == nullptr) {
    return "-";
  }
  std::string text = "-";
  if (cell->text) {
    text = cell->text->entries ? Join(*cell->text->entries, "; ") : cell->text->text;
  }
  for (const TextData& note : cell->notes) {
    text += " {" + note.text + "}";
  }
  return text;
}

}  // namespace

const Dimension* Table::Columns() const {
  return FindDimension(*this, true);
}

const Dimension* Table::Rows() const {
  return FindDimension(*this, false);
}

const Cell* Table::At(std::size_t row, std::size_t column) const {
  const Dimension* columns = Columns();
  if (columns == nullptr || Rows() == nullptr) {
    return nullptr;
  }
  const bool columnsFirst = columns == &dimensions.front();
  const std::vector<std::size_t> place = columnsFirst ? std::vector{column, row} : std::vector{row, column};
  const auto found = std::find_if(cells.begin(), cells.end(), [&place](const Cell& cell) { return cell.at == place; });
  return found == cells.end() ? nullptr : &*found;
}

std::vector<std::string> Table::Lines() const {
  const Dimension* columns = Columns();
  const Dimension* rows = Rows();
  if (columns == nullptr || rows == nullptr) {
    return {title.text};
  }
  std::vector<std::string> lines{title.text + ": " + rows->title.text + " by " + columns->title.text, ""};
  for (const TextData& heading : columns->categories) {
    lines.back().append(lines.back().empty() ? "" : kBetweenCells).append(heading.text);
  }
  for (std::size_t row = 0; row < rows->categories.size(); ++row) {
    lines.push_back(rows->categories[row].text);
    for (std::size_t column = 0; column < columns->categories.size(); ++column) {
      lines.back().append(kBetweenCells).append(CellText(At(row, column)));
    }
  }
  return lines;
}

}  // namespace scripted
