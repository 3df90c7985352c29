#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <numeric>

#include "standalone/cases/block_bytes.h"
#include "standalone/cases/block_codec.h"
#include "standalone/cases/block_encoding.h"
#include "standalone/cases/checksum.h"
#include "standalone/text/unicode.h"

namespace standalone {

namespace {

/// The head as it lies there: the views point into it.
struct RawHead {
  BlockEncoding encoding = BlockEncoding::kConstant;
  bool isNumeric = true;
  std::size_t cases = 0;
  std::size_t missing = 0;
  std::vector<double> numbers;
  std::vector<std::string_view> texts;
  std::vector<std::uint32_t> counts;
  std::uint64_t checksumOfCells = 0;
};

bool IsPlain(BlockEncoding encoding) {
  return encoding == BlockEncoding::kNumbers || encoding == BlockEncoding::kTexts;
}

BlockForm FormOf(BlockEncoding encoding) {
  switch (encoding) {
    case BlockEncoding::kConstant:
      return BlockForm::kConstant;
    case BlockEncoding::kBits16:
      return BlockForm::kWordCodes;
    case BlockEncoding::kNumbers:
      return BlockForm::kNumbers;
    case BlockEncoding::kTexts:
      return BlockForm::kTexts;
    default:
      return BlockForm::kByteCodes;
  }
}

/// How many bits the codes have; 0 where there are none.
int BitsOf(BlockEncoding encoding) {
  constexpr std::array<int, 8> kBits = {0, 1, 2, 4, 8, 16, 0, 0};
  return kBits[static_cast<std::size_t>(encoding)];
}

bool BeginsCharacter(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0) != 0x80;
}

/// Texts one after another in `bytes`, all of it, each of them UTF-8 without NUL.
void SplitTexts(const std::vector<std::uint32_t>& sizes, std::string_view bytes, std::vector<std::string_view>& texts) {
  if (bytes.find('\0') != std::string_view::npos || !IsValidUtf8(bytes)) {
    FailAsDamagedBlock("a text is not valid UTF-8");
  }
  ByteReader reader(bytes);
  texts.clear();
  texts.reserve(sizes.size());
  for (const std::uint32_t size : sizes) {
    texts.push_back(reader.Take(size));
    if (size != 0 && !BeginsCharacter(texts.back().front())) {
      FailAsDamagedBlock("a text is not valid UTF-8");
    }
  }
  if (reader.Left() != 0) {
    FailAsDamagedBlock("it is too long");
  }
}

template <typename Values>
bool Ascend(const Values& values) {
  return std::adjacent_find(values.begin(), values.end(),
                            [](const auto& first, const auto& second) { return !(first < second); }) == values.end();
}

void TakeValues(ByteReader& reader, std::size_t count, RawHead& head) {
  if (head.isNumeric) {
    reader.TakeAll(count, head.numbers);
    if (!std::all_of(head.numbers.begin(), head.numbers.end(), [](double number) { return std::isfinite(number); })) {
      FailAsDamagedBlock("a value is not a number");
    }
  } else {
    std::vector<std::uint32_t> sizes;
    reader.TakeAll(count, sizes);
    SplitTexts(sizes, reader.Take(std::accumulate(sizes.begin(), sizes.end(), std::size_t{0})), head.texts);
    if (std::any_of(sizes.begin(), sizes.end(), [](std::uint32_t size) { return size == 0; })) {
      FailAsDamagedBlock("a value is empty");
    }
  }
  if (!Ascend(head.numbers) || !Ascend(head.texts)) {
    FailAsDamagedBlock("its values do not ascend");
  }
}

void CheckNumberOfValues(const RawHead& head, std::size_t values) {
  const int bits = BitsOf(head.encoding);
  const bool isRight = bits != 0                                   ? values != 0 && BitsOfCode(values) == bits
                       : head.encoding == BlockEncoding::kConstant ? values <= 1
                                                                   : values == 0;
  if (!isRight || values > kMaxValuesOfBlock) {
    FailAsDamagedBlock("its number of values does not fit its encoding");
  }
}

void CheckCountsAddUp(const RawHead& head) {
  const std::size_t valid = std::accumulate(head.counts.begin(), head.counts.end(), std::size_t{0});
  const bool isRight = IsPlain(head.encoding) ? head.missing <= head.cases : valid + head.missing == head.cases;
  const bool hasUnused = std::find(head.counts.begin(), head.counts.end(), 0U) != head.counts.end();
  const bool isTwofold = head.encoding == BlockEncoding::kConstant && !head.counts.empty() && head.missing != 0;
  if (!isRight || hasUnused || isTwofold) {
    FailAsDamagedBlock("its counts do not add up");
  }
}

RawHead ReadHead(std::string_view bytes) {
  if (bytes.size() < sizeof(std::uint64_t)) {
    FailAsDamagedBlock("it is too short");
  }
  const std::string_view body = bytes.substr(0, bytes.size() - sizeof(std::uint64_t));
  if (ByteReader(bytes.substr(body.size())).Take<std::uint64_t>() != Checksum(body)) {
    FailAsDamagedBlock("the checksum of its head is wrong");
  }
  ByteReader reader(body);
  RawHead head;
  const auto encoding = reader.Take<std::uint8_t>();
  const auto isNumeric = reader.Take<std::uint8_t>();
  if (encoding > static_cast<std::uint8_t>(BlockEncoding::kTexts) || isNumeric > 1) {
    FailAsDamagedBlock("its encoding is unknown");
  }
  head.encoding = static_cast<BlockEncoding>(encoding);
  head.isNumeric = isNumeric == 1;
  if (IsPlain(head.encoding) && head.isNumeric != (head.encoding == BlockEncoding::kNumbers)) {
    FailAsDamagedBlock("its encoding is that of another type");
  }
  head.cases = reader.Take<std::uint32_t>();
  head.missing = reader.Take<std::uint32_t>();
  const std::size_t values = reader.Take<std::uint32_t>();
  if (head.cases == 0 || head.cases > kMaxCasesOfBlock) {
    FailAsDamagedBlock("its number of cases is out of range");
  }
  CheckNumberOfValues(head, values);
  TakeValues(reader, values, head);
  reader.TakeAll(values, head.counts);
  head.checksumOfCells = reader.Take<std::uint64_t>();
  if (reader.Left() != 0) {
    FailAsDamagedBlock("it is too long");
  }
  CheckCountsAddUp(head);
  return head;
}

/// The codes in each byte, the first in the lowest bits.
template <int bits>
constexpr auto CodesOfBytes() {
  constexpr std::size_t kPerByte = 8 / bits;
  std::array<std::array<std::uint8_t, kPerByte>, 256> codes{};
  for (std::size_t byte = 0; byte < codes.size(); ++byte) {
    for (std::size_t code = 0; code < kPerByte; ++code) {
      codes[byte][code] = static_cast<std::uint8_t>((byte >> (code * bits)) & ((1U << bits) - 1));
    }
  }
  return codes;
}

template <int bits>
void Unpack(std::string_view cells, std::size_t count, std::vector<std::uint8_t>& out) {
  static constexpr auto kCodes = CodesOfBytes<bits>();
  constexpr std::size_t kPerByte = 8 / bits;
  if (cells.size() != (count + kPerByte - 1) / kPerByte) {
    FailAsDamagedBlock("its cells are of another size");
  }
  out.resize(cells.size() * kPerByte);
  std::uint8_t* next = out.data();
  for (const char byte : cells) {
    std::memcpy(next, kCodes[static_cast<unsigned char>(byte)].data(), kPerByte);
    next += kPerByte;
  }
  if (std::any_of(out.begin() + static_cast<std::ptrdiff_t>(count), out.end(), [](auto code) { return code != 0; })) {
    FailAsDamagedBlock("there are codes after its last case");
  }
  out.resize(count);
}

void CopyCodes(std::string_view cells, std::size_t count, std::vector<std::uint8_t>& out) {
  if (cells.size() != count) {
    FailAsDamagedBlock("its cells are of another size");
  }
  ByteReader(cells).TakeAll(count, out);
}

/// The greatest code; a loop that the compiler vectorises.
template <typename Code>
Code Greatest(const std::vector<Code>& codes) {
  Code greatest = 0;
  for (const Code code : codes) {
    greatest = std::max(greatest, code);
  }
  return greatest;
}

void DecodeCodes(const RawHead& head, std::string_view cells, Block& block) {
  switch (head.encoding) {
    case BlockEncoding::kBits1:
      Unpack<1>(cells, head.cases, block.byteCodes);
      break;
    case BlockEncoding::kBits2:
      Unpack<2>(cells, head.cases, block.byteCodes);
      break;
    case BlockEncoding::kBits4:
      Unpack<4>(cells, head.cases, block.byteCodes);
      break;
    case BlockEncoding::kBits8:
      CopyCodes(cells, head.cases, block.byteCodes);
      break;
    default:
      if (cells.size() != head.cases * sizeof(std::uint16_t)) {
        FailAsDamagedBlock("its cells are of another size");
      }
      ByteReader(cells).TakeAll(head.cases, block.wordCodes);
  }
  if (std::max<std::size_t>(Greatest(block.byteCodes), Greatest(block.wordCodes)) > head.counts.size()) {
    FailAsDamagedBlock("a code stands for no value");
  }
}

void DecodeNumbers(std::size_t cases, std::string_view cells, Block& block) {
  if (cells.size() != cases * sizeof(double)) {
    FailAsDamagedBlock("its cells are of another size");
  }
  ByteReader(cells).TakeAll(cases, block.cellNumbers);
  bool hasInfinite = false;
  for (const double number : block.cellNumbers) {
    hasInfinite |= std::isinf(number);
  }
  if (hasInfinite) {
    FailAsDamagedBlock("a value is not a number");
  }
}

void DecodeTexts(std::size_t cases, std::string_view cells, Block& block) {
  block.bytes = cells;
  ByteReader reader(block.bytes);
  std::vector<std::uint32_t> sizes;
  reader.TakeAll(cases, sizes);
  SplitTexts(sizes, reader.TakeRest(), block.cellTexts);
}

/// The values of texts, of which the block needs its own bytes.
void TakeTexts(const std::vector<std::string_view>& texts, Block& block) {
  block.bytes.clear();
  block.texts.clear();
  for (const std::string_view text : texts) {
    block.bytes.append(text);
  }
  ByteReader reader(block.bytes);
  for (const std::string_view text : texts) {
    block.texts.push_back(reader.Take(text.size()));
  }
}

template <typename Codes>
std::vector<std::size_t> CountsOf(const Codes& codes, std::size_t values) {
  std::vector<std::size_t> counts(values + 1);
  for (const auto code : codes) {
    ++counts[code];
  }
  return counts;
}

/// Of the missing cells, and then of each value.
std::vector<std::size_t> CountsOf(const BlockHead& head, const Block& block) {
  switch (block.form) {
    case BlockForm::kByteCodes:
      return CountsOf(block.byteCodes, head.counts.size());
    case BlockForm::kWordCodes:
      return CountsOf(block.wordCodes, head.counts.size());
    case BlockForm::kNumbers:
      return {static_cast<std::size_t>(std::count_if(block.cellNumbers.begin(), block.cellNumbers.end(),
                                                     [](double cell) { return std::isnan(cell); }))};
    case BlockForm::kTexts:
      return {static_cast<std::size_t>(std::count_if(block.cellTexts.begin(), block.cellTexts.end(),
                                                     [](std::string_view cell) { return cell.empty(); }))};
    default:
      return head.counts.empty() ? std::vector<std::size_t>{block.cases} : std::vector<std::size_t>{0, block.cases};
  }
}

}  // namespace

BlockHead DecodeHead(std::string_view head) {
  RawHead raw = ReadHead(head);
  return {FormOf(raw.encoding),
          raw.isNumeric,
          raw.cases,
          raw.missing,
          std::move(raw.numbers),
          {raw.texts.begin(), raw.texts.end()},
          {raw.counts.begin(), raw.counts.end()}};
}

void DecodeBlock(std::string_view head, std::string_view cells, Block& block) {
  RawHead raw = ReadHead(head);
  if (Checksum(cells) != raw.checksumOfCells) {
    FailAsDamagedBlock("the checksum of its cells is wrong");
  }
  block.form = FormOf(raw.encoding);
  block.isNumeric = raw.isNumeric;
  block.cases = raw.cases;
  block.byteCodes.clear();
  block.wordCodes.clear();
  block.cellNumbers.clear();
  block.cellTexts.clear();
  block.numbers.swap(raw.numbers);
  TakeTexts(raw.texts, block);
  if (block.form == BlockForm::kNumbers) {
    DecodeNumbers(raw.cases, cells, block);
  } else if (block.form == BlockForm::kTexts) {
    DecodeTexts(raw.cases, cells, block);
  } else if (block.form != BlockForm::kConstant) {
    DecodeCodes(raw, cells, block);
  } else if (!cells.empty()) {
    FailAsDamagedBlock("its cells are of another size");
  }
}

void CheckCounts(const BlockHead& head, const Block& block) {
  const std::vector<std::size_t> counts = CountsOf(head, block);
  if (counts.front() != head.missing ||
      !std::equal(counts.begin() + 1, counts.end(), head.counts.begin(), head.counts.end())) {
    FailAsDamagedBlock("its head counts other cells than there are");
  }
}

}  // namespace standalone
