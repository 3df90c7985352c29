#include "standalone/tabulation/reading/tested_column.h"

#include <limits>
#include <string_view>

#include "standalone/tabulation/reading/code_bits.h"

namespace standalone {
namespace {

constexpr std::size_t kMostSearches = 16;  // to search for more codes one by one takes longer than to look each case up

std::size_t ValueCount(const Block& block) {
  return block.isNumeric ? block.numbers.size() : block.texts.size();
}

}  // namespace

bool TestedColumn::IsMeant(std::size_t code) const {
  if (fBlock->isNumeric) {
    return fTest.Holds(code == 0 ? std::numeric_limits<double>::quiet_NaN() : fBlock->numbers[code - 1]);
  }
  return fTest.Holds(code == 0 ? std::string_view() : fBlock->texts[code - 1]);
}

void TestedColumn::StartBlock() {
  const std::size_t codes = ValueCount(*fBlock) + 1;
  fMeant.clear();
  fIsMeant.assign(codes, 0);
  for (std::size_t code = 0; code < codes; ++code) {
    if (IsMeant(code)) {
      fIsMeant[code] = 1;
      fMeant.push_back(static_cast<std::uint16_t>(code));
    }
  }
}

template <class Code>
void TestedColumn::KeepCodes(const Code* codes, std::size_t cases, Bits& bits) const {
  if (fMeant.size() == 1) {
    KeepCode(codes, cases, static_cast<Code>(fMeant[0]), bits);
    return;
  }
  Bits kept{};
  if (fMeant.size() <= kMostSearches) {
    for (const std::uint16_t code : fMeant) {
      Bits found = bits;
      KeepCode(codes, cases, static_cast<Code>(code), found);
      AddTo(kept, found);
    }
  } else {
    for (std::size_t place = 0; place < cases; ++place) {
      kept[place / kCasesOfWord] |= std::uint64_t{fIsMeant[codes[place]]} << (place % kCasesOfWord);
    }
  }
  KeepIn(bits, kept);
}

template <class Cell>
void TestedColumn::KeepCells(const Cell* cells, Bits& bits) const {
  Bits kept{};
  ForEachCase(bits, [&](std::size_t place) {
    if (fTest.Holds(cells[place])) {
      AddCase(kept, place);
    }
  });
  bits = kept;
}

void TestedColumn::Keep(const Chunk& chunk, Bits& bits) const {
  switch (fBlock->form) {
    case BlockForm::kConstant:
      if (fIsMeant.back() == 0) {
        bits.fill(0);
      }
      return;
    case BlockForm::kByteCodes:
      KeepCodes(fBlock->byteCodes.data() + chunk.begin, chunk.cases, bits);
      return;
    case BlockForm::kWordCodes:
      KeepCodes(fBlock->wordCodes.data() + chunk.begin, chunk.cases, bits);
      return;
    case BlockForm::kNumbers:
      KeepCells(fBlock->cellNumbers.data() + chunk.begin, bits);
      return;
    case BlockForm::kTexts:
      KeepCells(fBlock->cellTexts.data() + chunk.begin, bits);
      return;
  }
}

}  // namespace standalone
