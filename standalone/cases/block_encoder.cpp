#include <algorithm>
#include <limits>

#include "standalone/cases/block_bytes.h"
#include "standalone/cases/block_codec.h"
#include "standalone/cases/block_encoding.h"
#include "standalone/cases/checksum.h"

namespace standalone {

namespace {

BlockEncoding EncodingOfBits(int bits) {
  switch (bits) {
    case 1:
      return BlockEncoding::kBits1;
    case 2:
      return BlockEncoding::kBits2;
    case 4:
      return BlockEncoding::kBits4;
    case 8:
      return BlockEncoding::kBits8;
    default:
      return BlockEncoding::kBits16;
  }
}

/// A u32 with the size of each text, then all bytes.
template <typename Texts>
void AppendTexts(const Texts& texts, std::string& out) {
  for (const auto& text : texts) {
    AppendNumber(static_cast<std::uint32_t>(text.size()), out);
  }
  for (const auto& text : texts) {
    out.append(text);
  }
}

std::string EncodeHead(BlockEncoding encoding, const BlockHead& head, std::string_view cells) {
  std::string out;
  AppendNumber(static_cast<std::uint8_t>(encoding), out);
  AppendNumber(static_cast<std::uint8_t>(head.isNumeric ? 1 : 0), out);
  AppendNumber(static_cast<std::uint32_t>(head.cases), out);
  AppendNumber(static_cast<std::uint32_t>(head.missing), out);
  AppendNumber(static_cast<std::uint32_t>(head.counts.size()), out);
  AppendNumbers(head.numbers.data(), head.numbers.size(), out);
  AppendTexts(head.texts, out);
  for (const std::size_t count : head.counts) {
    AppendNumber(static_cast<std::uint32_t>(count), out);
  }
  AppendNumber(Checksum(cells), out);
  AppendNumber(Checksum(out), out);
  return out;
}

std::string PackCodes(const std::vector<std::uint16_t>& codes, int bits) {
  std::string out;
  if (bits == 16) {
    AppendNumbers(codes.data(), codes.size(), out);
    return out;
  }
  const std::size_t perByte = static_cast<std::size_t>(8 / bits);
  out.reserve((codes.size() + perByte - 1) / perByte);
  for (std::size_t first = 0; first < codes.size(); first += perByte) {
    unsigned byte = 0;
    const std::size_t end = std::min(first + perByte, codes.size());
    for (std::size_t at = end; at > first; --at) {
      byte = (byte << static_cast<unsigned>(bits)) | codes[at - 1];
    }
    out.push_back(static_cast<char>(byte));
  }
  return out;
}

}  // namespace

int BitsOfCode(std::size_t values) {
  for (const int bits : {1, 2, 4, 8}) {
    if (values < std::size_t{1} << static_cast<unsigned>(bits)) {
      return bits;
    }
  }
  return 16;
}

EncodedBlock EncodeCodes(const BlockHead& head, const std::vector<std::uint16_t>& codes) {
  const bool isConstant = head.counts.empty() || (head.counts.size() == 1 && head.missing == 0);
  const int bits = BitsOfCode(head.counts.size());
  EncodedBlock block;
  if (!isConstant) {
    block.cells = PackCodes(codes, bits);
  }
  block.head = EncodeHead(isConstant ? BlockEncoding::kConstant : EncodingOfBits(bits), head, block.cells);
  return block;
}

EncodedBlock EncodeNumbers(const std::vector<double>& cells) {
  BlockHead head;
  head.cases = cells.size();
  head.missing =
      static_cast<std::size_t>(std::count_if(cells.begin(), cells.end(), [](double cell) { return cell != cell; }));
  EncodedBlock block;
  block.cells.reserve(cells.size() * sizeof(double));
  for (const double cell : cells) {  // a NaN may be any; one of them is written
    AppendNumber(cell != cell ? std::numeric_limits<double>::quiet_NaN() : cell, block.cells);
  }
  block.head = EncodeHead(BlockEncoding::kNumbers, head, block.cells);
  return block;
}

EncodedBlock EncodeTexts(const std::vector<std::string_view>& cells) {
  BlockHead head;
  head.isNumeric = false;
  head.cases = cells.size();
  head.missing = static_cast<std::size_t>(
      std::count_if(cells.begin(), cells.end(), [](std::string_view cell) { return cell.empty(); }));
  EncodedBlock block;
  AppendTexts(cells, block.cells);
  block.head = EncodeHead(BlockEncoding::kTexts, head, block.cells);
  return block;
}

}  // namespace standalone
