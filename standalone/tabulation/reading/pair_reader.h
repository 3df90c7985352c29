#ifndef STANDALONE_TABULATION_READING_PAIR_READER_H
#define STANDALONE_TABULATION_READING_PAIR_READER_H

#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <utility>
#include <vector>

#include "standalone/tabulation/reading/by_reader.h"
#include "standalone/tabulation/reading/by_variable_reader.h"
#include "standalone/tabulation/reading/tested_column.h"

namespace standalone {

/// Columns that are the pairs that occur of two variables' values.
class PairReader : public ByReader {
 public:
  PairReader(const ByRequest& by, TabulationSource& source, Columns& columns);

  void StartBlock() override;
  void ReadColumns(const Chunk& chunk, const Bits& cases) override;
  std::size_t ColumnCount() const override { return fPairs.size(); }
  std::vector<ByCategory> Categories() const override;

 private:
  std::uint32_t ColumnOf(std::uint32_t first, std::uint32_t second);

  ByVariableReader fFirst;
  ByVariableReader fSecond;
  TestedColumn fSecondMissing;
  std::vector<std::pair<std::uint32_t, std::uint32_t>> fPairs;
  std::unordered_map<std::uint64_t, std::uint32_t> fColumnOfPair;
  std::vector<std::uint32_t> fNearColumns;  // of pairs of the first values, plus 1; 0: not met yet
};

}  // namespace standalone

#endif  // STANDALONE_TABULATION_READING_PAIR_READER_H
