#ifndef STANDALONE_DATASET_CELL_VALUES_H
#define STANDALONE_DATASET_CELL_VALUES_H

#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <variant>

#include "standalone/dataset/dataset.h"

namespace standalone {

/// A value that is not missing: a number or a text.
using CellValue = std::variant<double, std::string_view>;

/// Hands over the values that a variable has in the cases, with the number of cases that hold them, until `visit`
/// returns false; in any order, and a value may come several times. Texts have no blanks at their ends; blank ones are
/// missing. Reads the heads of the blocks, and cells only where a head does not tell.
void VisitValues(Dataset& dataset, int variable,
                 const std::function<bool(const CellValue& value, std::size_t cases)>& visit);

/// The values of a variable in ascending order, the first of them where there are many.
class ValueCounts {
 public:
  using Value = std::variant<double, std::string>;

  /// Of the values at most `most` are kept.
  ValueCounts(Dataset& dataset, int variable, std::size_t most);

  const std::map<Value, std::size_t>& Values() const { return fValues; }

  /// Cases that hold other values, all of them greater.
  std::size_t Others() const { return fOthers; }
  std::size_t Missing() const { return fMissing; }

 private:
  void Add(const CellValue& value, std::size_t cases);

  std::size_t fMost;
  std::map<Value, std::size_t> fValues;
  std::size_t fOthers = 0;
  std::size_t fMissing = 0;
};

}  // namespace standalone

#endif  // STANDALONE_DATASET_CELL_VALUES_H
