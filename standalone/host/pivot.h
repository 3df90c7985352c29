#ifndef STANDALONE_HOST_PIVOT_H
#define STANDALONE_HOST_PIVOT_H

#include <cstddef>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "standalone/output/items.h"

namespace standalone {

/// A table while it is being filled: two dimensions of categories, and cells where they cross.
class Pivot {
 public:
  explicit Pivot(std::string title) : fTitle(std::move(title)) {}

  /// Adds a dimension; it holds the rows until it is placed.
  std::size_t AddDimension(const std::string& title);
  void PlaceOnColumns(std::size_t dimension);

  /// Adds a category at the end of a dimension; it is alive until released.
  std::size_t AddCategory(std::size_t dimension, const std::string& heading);
  void ReleaseCategory(std::size_t dimension, std::size_t category);

  /// The cell at a category and, in every other dimension, the category that was added last and is alive.
  Cell& CellAt(std::size_t dimension, std::size_t category);

  /// The table as it stands.
  Table ToTable() const;

 private:
  struct Dimension {
    std::string title;
    bool onColumns = false;
    std::vector<std::string> categories;
    std::vector<std::size_t> alive;  // in the order in which they were added
  };
  using Place = std::pair<std::size_t, std::size_t>;  // category on the rows, category on the columns

  const Dimension* FindDimension(bool onColumns) const;

  std::string fTitle;
  std::vector<Dimension> fDimensions;
  std::map<Place, Cell> fCells;
};

}  // namespace standalone

#endif  // STANDALONE_HOST_PIVOT_H
