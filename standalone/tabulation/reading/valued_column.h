#ifndef STANDALONE_TABULATION_READING_VALUED_COLUMN_H
#define STANDALONE_TABULATION_READING_VALUED_COLUMN_H

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "standalone/cases/block.h"
#include "standalone/tabulation/reading/bits.h"
#include "standalone/tabulation/reading/code_bits.h"
#include "standalone/tabulation/reading/columns.h"
#include "standalone/tabulation/reading/values.h"

namespace standalone {

/// The values that a column holds in the cases that matter. A value becomes one of `values` when the first such case
/// holds it; values that no such case holds cost nothing and leave no trace.
class ValuedColumn {
 public:
  ValuedColumn(const Block& block, Values& values) : fBlock(&block), fValues(&values) {}

  /// To be called when the block was read.
  void StartBlock();

  /// Tells the values of those `cases` of the chunk that have one: either, for each value, onBits(index of the value,
  /// its cases), or, for each case, onCase(index of its value, place of the case). A value may come more than once, a
  /// case does not.
  template <class OnBits, class OnCase>
  void Read(const Chunk& chunk, const Bits& cases, OnBits onBits, OnCase onCase);

 private:
  static constexpr std::size_t kUnknown = static_cast<std::size_t>(-1);
  static constexpr std::size_t kMissing = kUnknown - 1;

  /// What the code stands for: an index of a value, or kMissing.
  std::size_t Meaning(std::size_t code) {
    if (fMeanings[code] == kUnknown) {
      fMeanings[code] =
          fBlock->isNumeric ? fValues->IndexOf(fBlock->numbers[code - 1]) : fValues->IndexOf(fBlock->texts[code - 1]);
    }
    return fMeanings[code];
  }

  template <class Code, class OnBits, class OnCase>
  void ReadCodes(const Code* codes, const Chunk& chunk, const Bits& cases, OnBits onBits, OnCase onCase);

  const Block* fBlock;
  Values* fValues;
  std::vector<std::size_t> fMeanings;  // of codes
};

template <class Code, class OnBits, class OnCase>
void ValuedColumn::ReadCodes(const Code* codes, const Chunk& chunk, const Bits& cases, OnBits onBits, OnCase onCase) {
  constexpr std::size_t kCasesOfSearch = 80;  // so many one by one take as long as the search for one code
  Bits missing = cases;
  KeepCode(codes, chunk.cases, Code{0}, missing);
  Bits rest = Without(cases, missing);
  const std::size_t values = fMeanings.size() - 1;
  if (static_cast<std::size_t>(CountOf(rest)) < values * kCasesOfSearch) {
    ForEachCase(rest, [&](std::size_t place) {
      if (const std::size_t meaning = Meaning(codes[place]); meaning != kMissing) {
        onCase(meaning, place);
      }
    });
    return;
  }
  for (std::size_t code = 1; code <= values; ++code) {
    Bits found = rest;
    KeepCode(codes, chunk.cases, static_cast<Code>(code), found);
    if (HasCases(found) && Meaning(code) != kMissing) {
      onBits(Meaning(code), found);
      TakeOut(rest, found);
    }
  }
}

template <class OnBits, class OnCase>
void ValuedColumn::Read(const Chunk& chunk, const Bits& cases, OnBits onBits, OnCase onCase) {
  switch (fBlock->form) {
    case BlockForm::kConstant:
      if (HasCases(cases) && Meaning(fMeanings.size() - 1) != kMissing) {
        onBits(Meaning(1), cases);
      }
      return;
    case BlockForm::kByteCodes:
      ReadCodes(fBlock->byteCodes.data() + chunk.begin, chunk, cases, onBits, onCase);
      return;
    case BlockForm::kWordCodes:
      ReadCodes(fBlock->wordCodes.data() + chunk.begin, chunk, cases, onBits, onCase);
      return;
    case BlockForm::kNumbers:
      ForEachCase(cases, [&](std::size_t place) {
        if (const double number = fBlock->cellNumbers[chunk.begin + place]; !std::isnan(number)) {
          onCase(fValues->IndexOf(number), place);
        }
      });
      return;
    case BlockForm::kTexts:
      ForEachCase(cases, [&](std::size_t place) {
        if (const std::string_view text = fBlock->cellTexts[chunk.begin + place]; !ComparedText(text).empty()) {
          onCase(fValues->IndexOf(text), place);
        }
      });
      return;
  }
}

}  // namespace standalone

#endif  // STANDALONE_TABULATION_READING_VALUED_COLUMN_H
