// Bytes as a block of cases: they are refused as damaged, or hold together, and come back the same when they are
// encoded again. Checksums are made right where the input asks for it, or nothing would come behind them.

#include <algorithm>
#include <cmath>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "standalone/cases/block_builder.h"
#include "standalone/cases/block_codec.h"
#include "standalone/cases/checksum.h"
#include "standalone/text/error.h"
#include "standalone/text/number_text.h"
#include "tests/fuzz/check.h"
#include "tests/fuzz/target.h"

namespace fuzz {
namespace {

using standalone::Block;
using standalone::BlockForm;
using standalone::BlockHead;

std::string Bytes(std::uint64_t number) {
  std::string bytes(sizeof number, '\0');
  std::memcpy(bytes.data(), &number, sizeof number);
  return bytes;
}

/// A text of a cell as BlockBuilder takes it; empty where it is missing.
std::string CellOf(const Block& block, std::size_t index) {
  const auto value = [&block](std::size_t code) {
    return code == 0         ? std::string()
           : block.isNumeric ? standalone::ShortestNumber(block.numbers.at(code - 1))
                             : std::string(block.texts.at(code - 1));
  };
  switch (block.form) {
    case BlockForm::kByteCodes:
      return value(block.byteCodes.at(index));
    case BlockForm::kWordCodes:
      return value(block.wordCodes.at(index));
    case BlockForm::kNumbers:
      return std::isnan(block.cellNumbers.at(index)) ? "" : standalone::ShortestNumber(block.cellNumbers.at(index));
    case BlockForm::kTexts:
      return std::string(block.cellTexts.at(index));
    default:
      return value(block.numbers.empty() && block.texts.empty() ? 0 : 1);
  }
}

std::vector<std::string> CellsOf(const Block& block) {
  std::vector<std::string> cells;
  for (std::size_t index = 0; index < block.cases; ++index) {
    cells.push_back(CellOf(block, index));
  }
  return cells;
}

void CheckHead(const BlockHead& head, const Block& block) {
  Check(head.form == block.form && head.isNumeric == block.isNumeric && head.cases == block.cases,
        "head and block are of one form");
  Check(head.numbers == block.numbers, "head and block have the same numbers");
  Check(std::equal(head.texts.begin(), head.texts.end(), block.texts.begin(), block.texts.end()),
        "head and block have the same texts");
  Check(head.counts.size() == head.numbers.size() + head.texts.size(), "a count for each value");
}

/// What was read can be built again, and reads the same.
void CheckBuiltAgain(const Block& block) {
  standalone::BlockBuilder builder(block.isNumeric);
  const std::vector<std::string> cells = CellsOf(block);
  for (const std::string& cell : cells) {
    builder.Add(cell);
  }
  const standalone::EncodedBlock encoded = builder.Finish();
  Block again;
  standalone::DecodeBlock(encoded.head, encoded.cells, again);
  standalone::CheckCounts(standalone::DecodeHead(encoded.head), again);
  Check(CellsOf(again) == cells, "cells come back");
}

/// The first byte: whether the checksums are to be made right; then the size of the head (two bytes), the head without
/// its checksums, and the cells.
void Try(std::string_view input) {
  constexpr std::size_t kBegin = 3;
  if (input.size() < kBegin) {
    return;
  }
  const std::size_t size =
      std::min(input.size() - kBegin, static_cast<std::size_t>(static_cast<unsigned char>(input[1])) |
                                          static_cast<std::size_t>(static_cast<unsigned char>(input[2])) << 8U);
  std::string head(input.substr(kBegin, size));
  const std::string_view cells = input.substr(kBegin + size);
  if (input[0] % 2 == 0) {
    head += Bytes(standalone::Checksum(cells));
    head += Bytes(standalone::Checksum(head));
  }
  Block block;
  try {
    standalone::DecodeBlock(head, cells, block);
  } catch (const standalone::Error& error) {
    Check(error.Kind() == standalone::ErrorKind::kDamaged, "a failure is damage");
    return;
  }
  const BlockHead decoded = standalone::DecodeHead(head);
  CheckHead(decoded, block);
  try {
    standalone::CheckCounts(decoded, block);
  } catch (const standalone::Error& error) {
    Check(error.Kind() == standalone::ErrorKind::kDamaged, "a failure is damage");
  }
  CheckBuiltAgain(block);
}

}  // namespace
}  // namespace fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Try({reinterpret_cast<const char*>(data), size});
  return 0;
}
