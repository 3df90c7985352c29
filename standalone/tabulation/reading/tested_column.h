#ifndef STANDALONE_TABULATION_READING_TESTED_COLUMN_H
#define STANDALONE_TABULATION_READING_TESTED_COLUMN_H

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "standalone/cases/block.h"
#include "standalone/tabulation/reading/bits.h"
#include "standalone/tabulation/reading/columns.h"
#include "standalone/tabulation/reading/value_test.h"

namespace standalone {

/// The cases of which a cell holds what is meant.
class TestedColumn {
 public:
  TestedColumn(const Block& block, ValueTest test) : fBlock(&block), fTest(std::move(test)) {}

  /// To be called when the block was read: its values are looked at once.
  void StartBlock();

  /// Keeps those of the chunk's cases.
  void Keep(const Chunk& chunk, Bits& bits) const;

 private:
  bool IsMeant(std::size_t code) const;
  template <class Code>
  void KeepCodes(const Code* codes, std::size_t cases, Bits& bits) const;
  template <class Cell>
  void KeepCells(const Cell* cells, Bits& bits) const;

  const Block* fBlock;
  ValueTest fTest;
  std::vector<std::uint16_t> fMeant;   // codes; of a constant 0 or 1
  std::vector<std::uint8_t> fIsMeant;  // for each code
};

}  // namespace standalone

#endif  // STANDALONE_TABULATION_READING_TESTED_COLUMN_H
