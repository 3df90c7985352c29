#include "standalone/cases/block_builder.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <limits>
#include <numeric>
#include <system_error>
#include <utility>

#include "standalone/cases/checksum.h"

namespace standalone {

namespace {

constexpr std::size_t kMaxByteCode = 255;
constexpr std::size_t kMaxUnindexed = 8;  // values that are searched one by one

/// The value of a number as JSON writes it, which is in range; what is nearer to 0 than any double is 0.
double NumberOf(std::string_view cell) {
  double number = 0;
  std::from_chars(cell.data(), cell.data() + cell.size(), number);
  return number == 0 ? 0.0 : number;  // without the sign
}

/// Fibonacci hashing.
std::uint64_t Mixed(std::uint64_t bits) {
  return (bits ^ (bits >> 32)) * 0x9E3779B97F4A7C15U;
}

std::uint64_t HashOf(double number) {
  std::array<char, sizeof number> bytes{};
  std::memcpy(bytes.data(), &number, bytes.size());
  return SeededHash({bytes.data(), bytes.size()});
}

std::size_t PlaceOf(std::uint64_t hash, std::size_t size) {
  return static_cast<std::size_t>(hash >> 32) & (size - 1);
}

}  // namespace

std::size_t BlockBuilder::Memory() const {
  return (fKnownCells == nullptr ? 0 : sizeof(KnownCells)) + fNumbers.capacity() * sizeof(double) + fText.capacity() +
         fTextEnds.capacity() * sizeof(std::uint32_t) + fIndex.capacity() * sizeof(std::uint16_t) + fBytes.capacity() +
         fWords.capacity() * sizeof(std::uint16_t);
}

// A text of up to eight bytes, none of them NUL, is a number that is not 0.
std::uint16_t BlockBuilder::CodeOf(std::string_view cell) {
  constexpr std::uint16_t kUntilCache = sizeof(KnownCells);  // the cells take as much then
  std::uint64_t text = 0;
  if (cell.size() > sizeof text) {
    return CodeOfValue(cell);
  }
  if (fKnownCells == nullptr) {
    if (++fShortCells == kUntilCache) {
      fKnownCells = std::make_unique<KnownCells>();
    }
    return CodeOfValue(cell);
  }
  std::memcpy(&text, cell.data(), cell.size());
  KnownCell& known = (*fKnownCells)[PlaceOf(Mixed(text), std::tuple_size_v<KnownCells>)];
  if (known.text != text) {
    known = {text, CodeOfValue(cell)};
  }
  return known.code;
}

std::uint16_t BlockBuilder::CodeOfValue(std::string_view cell) {
  return fIsNumeric ? CodeOfNumber(NumberOf(cell)) : CodeOfText(cell);
}

std::uint16_t BlockBuilder::CodeOfNumber(double number) {
  const std::uint16_t code = FindOrPlace(
      HashOf(number), [&](std::size_t index) { return fNumbers[index] == number; },
      [this](std::size_t index) { return HashOf(fNumbers[index]); });
  if (code != 0) {
    return code;
  }
  fNumbers.push_back(number);
  return TakeCode();
}

std::uint16_t BlockBuilder::CodeOfText(std::string_view text) {
  const std::uint16_t code = FindOrPlace(
      SeededHash(text), [&](std::size_t index) { return TextAt(index) == text; },
      [this](std::size_t index) { return SeededHash(TextAt(index)); });
  if (code != 0) {
    return code;
  }
  fText.insert(fText.end(), text.begin(), text.end());
  fTextEnds.push_back(static_cast<std::uint32_t>(fText.size()));
  return TakeCode();
}

/// The code of the value that is the same; else 0, and the code that the next value is to have has its place. Linear
/// probing.
template <typename IsSame, typename HashOf>
std::uint16_t BlockBuilder::FindOrPlace(std::uint64_t hash, const IsSame& isSame, const HashOf& hashOf) {
  if (ValueCount() < kMaxUnindexed) {
    std::size_t index = 0;
    while (index < ValueCount() && !isSame(index)) {
      ++index;
    }
    return static_cast<std::uint16_t>(index == ValueCount() ? 0 : index + 1);
  }
  GrowIndex(hashOf);
  std::size_t place = PlaceOf(hash, fIndex.size());
  for (; fIndex[place] != 0; place = (place + 1) & (fIndex.size() - 1)) {
    if (isSame(std::size_t{fIndex[place]} - 1)) {
      return fIndex[place];
    }
  }
  fIndex[place] = static_cast<std::uint16_t>(ValueCount() + 1);
  return 0;
}

/// At most half of the index is taken.
template <typename HashOf>
void BlockBuilder::GrowIndex(const HashOf& hashOf) {
  if (2 * (ValueCount() + 1) <= fIndex.size()) {
    return;
  }
  std::size_t size = 4 * kMaxUnindexed;
  while (size < 2 * (ValueCount() + 1)) {
    size *= 2;
  }
  fIndex.assign(2 * size, 0);
  for (std::size_t index = 0; index < ValueCount(); ++index) {
    std::size_t place = PlaceOf(hashOf(index), fIndex.size());
    while (fIndex[place] != 0) {
      place = (place + 1) & (fIndex.size() - 1);
    }
    fIndex[place] = static_cast<std::uint16_t>(index + 1);
  }
}

std::uint16_t BlockBuilder::TakeCode() {
  if (ValueCount() > kMaxByteCode && !fIsWide) {
    fIsWide = true;
    fWords.assign(fBytes.begin(), fBytes.end());
    fBytes = {};
  }
  return static_cast<std::uint16_t>(ValueCount());
}

std::string_view BlockBuilder::TextAt(std::size_t index) const {
  const std::size_t begin = index == 0 ? 0 : fTextEnds[index - 1];
  return {fText.data() + begin, fTextEnds[index] - begin};
}

EncodedBlock BlockBuilder::Finish() {
  EncodedBlock block = IsPlainSmaller() ? FinishPlain() : FinishCodes();
  *this = BlockBuilder(fIsNumeric);
  return block;
}

bool BlockBuilder::IsPlainSmaller() const {
  const std::size_t values = ValueCount();
  if (values > kMaxValuesOfBlock) {
    return true;
  }
  constexpr std::size_t kSize = sizeof(std::uint32_t);
  const std::size_t codes = values * kSize + Cases() * static_cast<std::size_t>(BitsOfCode(values)) / 8;
  if (fIsNumeric) {
    return Cases() * sizeof(double) < codes + values * sizeof(double);
  }
  std::size_t plain = Cases() * kSize;
  for (std::size_t index = 0; index < Cases(); ++index) {
    const std::size_t code = CodeAt(index);
    plain += code == 0 ? 0 : TextAt(code - 1).size();
  }
  return plain < codes + values * kSize + fText.size();
}

EncodedBlock BlockBuilder::FinishPlain() const {
  const bool areAllDifferent = ValueCount() > kMaxValuesOfBlock;
  std::vector<double> numbers;
  std::vector<std::string_view> texts;
  for (std::size_t index = 0; index < Cases(); ++index) {
    const std::size_t code = areAllDifferent ? index + 1 : CodeAt(index);
    if (fIsNumeric) {
      numbers.push_back(code == 0 ? std::numeric_limits<double>::quiet_NaN() : fNumbers[code - 1]);
    } else {
      texts.push_back(code == 0 ? std::string_view() : TextAt(code - 1));
    }
  }
  return fIsNumeric ? EncodeNumbers(numbers) : EncodeTexts(texts);
}

/// Values and codes are put in ascending order.
EncodedBlock BlockBuilder::FinishCodes() {
  std::vector<std::size_t> order(ValueCount());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::sort(order.begin(), order.end(), [this](std::size_t first, std::size_t second) {
    return fIsNumeric ? fNumbers[first] < fNumbers[second] : TextAt(first) < TextAt(second);
  });
  BlockHead head;
  head.isNumeric = fIsNumeric;
  head.cases = Cases();
  std::vector<std::uint16_t> newCodes(order.size() + 1);
  for (std::size_t rank = 0; rank < order.size(); ++rank) {
    newCodes[order[rank] + 1] = static_cast<std::uint16_t>(rank + 1);
    if (fIsNumeric) {
      head.numbers.push_back(fNumbers[order[rank]]);
    } else {
      head.texts.emplace_back(TextAt(order[rank]));
    }
  }
  std::vector<std::uint16_t> codes(Cases());
  head.counts.resize(order.size() + 1);
  for (std::size_t index = 0; index < codes.size(); ++index) {
    codes[index] = newCodes[CodeAt(index)];
    ++head.counts[codes[index]];
  }
  head.missing = head.counts.front();
  head.counts.erase(head.counts.begin());
  return EncodeCodes(head, codes);
}

}  // namespace standalone
