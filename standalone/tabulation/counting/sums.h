#ifndef STANDALONE_TABULATION_COUNTING_SUMS_H
#define STANDALONE_TABULATION_COUNTING_SUMS_H

#include <cstddef>
#include <cstdint>
#include <vector>

#include "standalone/tabulation/reading/bits.h"
#include "standalone/tabulation/reading/by_reader.h"
#include "standalone/tabulation/reading/weight_reader.h"

namespace standalone {

/// The rows that cases of a set are counted in: first these, then the nets, then the members.
enum CountedRow : std::size_t { kAllRow, kAnsweredRow, kNoneChosenRow, kBaseRow, kFirstNetRow };

/// The cases of a chunk that are in a row.
struct RowOfChunk {
  std::size_t row = 0;
  const Bits* cases = nullptr;
};

/// The cases of a row in a column: their number, and the sums of their weights.
struct CountedCell {
  std::int64_t cases = 0;
  Weight weights;

  CountedCell& operator+=(const CountedCell& other) {
    cases += other.cases;
    weights += other.weights;
    return *this;
  }
};

/// The cells of one BY. Weights are summed from kBaseRow on: by block first, so that what many cases add up to loses
/// nothing that matters.
class Sums {
 public:
  /// `weights` is null where each case's is 1.
  void Add(const std::vector<RowOfChunk>& rows, ByReader& by, const Weights* weights);
  void EndBlock();

  CountedCell At(std::size_t row, std::size_t column) const;
  /// The cases of a row that are not missing in the BY.
  CountedCell Present(std::size_t row) const;

 private:
  using Cells = std::vector<CountedCell>;  // of a row: the cases that are present where columns overlap, the columns

  Cells& CellsOf(const RowOfChunk& row, std::size_t columns);
  void AddCases(const RowOfChunk& row, const ByReader& by);
  void AddCasesOneByOne(const RowOfChunk& row, ByReader& by);
  void AddWeights(const RowOfChunk& row, const ByReader& by, const Weights& weights);
  void AddWeightsOneByOne(const RowOfChunk& row, ByReader& by, const Weights& weights);

  bool fIsWeighted = false;
  bool fHasOverlaps = false;
  std::vector<Cells> fBlock;
  std::vector<Cells> fTotal;
};

}  // namespace standalone

#endif  // STANDALONE_TABULATION_COUNTING_SUMS_H
