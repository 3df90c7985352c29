#include "standalone/host/pivot.h"

#include <algorithm>

namespace standalone {

std::size_t Pivot::AddDimension(const std::string& title) {
  fDimensions.push_back({title, false, {}, {}});
  return fDimensions.size() - 1;
}

void Pivot::PlaceOnColumns(std::size_t dimension) {
  fDimensions[dimension].onColumns = true;
}

std::size_t Pivot::AddCategory(std::size_t dimension, const std::string& heading) {
  Dimension& target = fDimensions[dimension];
  target.categories.push_back(heading);
  target.alive.push_back(target.categories.size() - 1);
  return target.alive.back();
}

void Pivot::ReleaseCategory(std::size_t dimension, std::size_t category) {
  std::vector<std::size_t>& alive = fDimensions[dimension].alive;
  alive.erase(std::remove(alive.begin(), alive.end(), category), alive.end());
}

Cell& Pivot::CellAt(std::size_t dimension, std::size_t category) {
  Place place{0, 0};
  for (std::size_t index = 0; index < fDimensions.size(); ++index) {
    const Dimension& other = fDimensions[index];
    const std::size_t current = index == dimension ? category : other.alive.empty() ? 0 : other.alive.back();
    (other.onColumns ? place.second : place.first) = current;
  }
  return fCells[place];
}

const Pivot::Dimension* Pivot::FindDimension(bool onColumns) const {
  const auto found = std::find_if(fDimensions.begin(), fDimensions.end(),
                                  [&](const Dimension& dimension) { return dimension.onColumns == onColumns; });
  return found == fDimensions.end() ? nullptr : &*found;
}

Table Pivot::ToTable() const {
  Table table;
  table.title = fTitle;
  if (const Dimension* columns = FindDimension(true)) {
    table.columnDimension = columns->title;
    table.columns = columns->categories;
  }
  if (const Dimension* rows = FindDimension(false)) {
    table.rowDimension = rows->title;
    for (const std::string& name : rows->categories) {
      table.rows.push_back({name, std::vector<Cell>(table.columns.size())});
    }
  }
  for (const auto& [place, cell] : fCells) {
    if (place.first < table.rows.size() && place.second < table.columns.size()) {
      table.rows[place.first].cells[place.second] = cell;
    }
  }
  return table;
}

}  // namespace standalone
