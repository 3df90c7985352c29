#ifndef STANDALONE_TABULATION_READING_WEIGHT_READER_H
#define STANDALONE_TABULATION_READING_WEIGHT_READER_H

#include <array>
#include <string>
#include <vector>

#include "standalone/tabulation/reading/bits.h"
#include "standalone/tabulation/reading/columns.h"
#include "standalone/tabulation/request.h"
#include "standalone/tabulation/source.h"

namespace standalone {

/// A weight, or a sum of weights, and the same of its square.
struct Weight {
  double once = 0;
  double squared = 0;

  Weight& operator+=(const Weight& other) {
    once += other.once;
    squared += other.squared;
    return *this;
  }
};

/// For each case of a chunk.
using Weights = std::array<Weight, kChunkCases>;

/// The limits of weights: within them no sum of squares is too large or too small for a number.
inline constexpr double kLeastWeight = 1e-100;
inline constexpr double kGreatestWeight = 1e100;

/// Reads the weights of cases. One that is missing, zero or negative is not valid.
class WeightReader {
 public:
  /// Throws TabulationError for what is no numeric variable.
  WeightReader(const Spoken& name, TabulationSource& source, Columns& columns);

  const std::string& Name() const { return fName; }

  /// Throws TabulationError for a valid weight beyond the limits.
  void Read(const Chunk& chunk);
  /// Of the last chunk: the cases with a valid weight, and these weights.
  const Bits& Valid() const { return fValid; }
  const Weights& Of() const { return fWeights; }

 private:
  template <class Number>
  void Take(std::size_t cases, Number number);
  [[noreturn]] void RefuseWeight() const;

  Spoken fSpoken;
  std::string fName;
  const Block* fBlock;
  Bits fValid{};
  Weights fWeights{};
};

}  // namespace standalone

#endif  // STANDALONE_TABULATION_READING_WEIGHT_READER_H
