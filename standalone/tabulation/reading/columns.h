#ifndef STANDALONE_TABULATION_READING_COLUMNS_H
#define STANDALONE_TABULATION_READING_COLUMNS_H

#include <cstddef>
#include <deque>
#include <unordered_map>

#include "standalone/tabulation/source.h"

namespace standalone {

/// The columns that a command needs, each read once for every block however often it is needed.
class Columns {
 public:
  explicit Columns(TabulationSource& source) : fSource(source) {}

  /// The cells of a variable in the block that is read, which come and go with Read().
  const Block& Need(int variable) {
    const auto [place, isNew] = fPlaces.emplace(variable, fBlocks.size());
    if (isNew) {
      fBlocks.emplace_back();
      fVariables.push_back(variable);
    }
    return fBlocks[place->second];
  }

  void Read(std::size_t number) {
    for (std::size_t index = 0; index < fBlocks.size(); ++index) {
      fSource.ReadBlock(fVariables[index], number, fBlocks[index]);
    }
  }

 private:
  TabulationSource& fSource;
  std::unordered_map<int, std::size_t> fPlaces;
  std::deque<int> fVariables;
  std::deque<Block> fBlocks;  // which stay where they are
};

/// Consecutive cases of the block that is read.
struct Chunk {
  std::size_t begin = 0;
  std::size_t cases = 0;
};

}  // namespace standalone

#endif  // STANDALONE_TABULATION_READING_COLUMNS_H
