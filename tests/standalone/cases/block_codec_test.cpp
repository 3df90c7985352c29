#include "standalone/cases/block_codec.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "standalone/cases/checksum.h"
#include "standalone/text/error.h"

namespace standalone {
namespace {

constexpr double kNone = std::numeric_limits<double>::quiet_NaN();

/// Numbers as the bytes of a head or of cells.
template <typename Number>
std::string Bytes(const std::vector<Number>& numbers) {
  return {reinterpret_cast<const char*>(numbers.data()), numbers.size() * sizeof(Number)};
}

std::string Bytes32(const std::vector<std::uint32_t>& numbers) {
  return Bytes(numbers);
}

/// Ends a head with the right checksums.
std::string Sealed(const std::string& head, const std::string& cells) {
  const std::string body = head + Bytes<std::uint64_t>({Checksum(cells)});
  return body + Bytes<std::uint64_t>({Checksum(body)});
}

/// A head of its parts, with the right checksums.
std::string Head(char encoding, char isNumeric, const std::vector<std::uint32_t>& numbers, const std::string& values,
                 const std::vector<std::uint32_t>& counts, const std::string& cells) {
  return Sealed(std::string{encoding, isNumeric} + Bytes32(numbers) + values + Bytes32(counts), cells);
}

std::string Complaint(const std::string& head, const std::string& cells) {
  try {
    Block block;
    DecodeBlock(head, cells, block);
    CheckCounts(DecodeHead(head), block);
  } catch (const Error& error) {
    EXPECT_EQ(error.Kind(), ErrorKind::kDamaged);
    return error.what();
  }
  return "";
}

BlockHead NumberHead(std::size_t missing, const std::vector<double>& numbers, const std::vector<std::size_t>& counts) {
  BlockHead head;
  head.cases = missing;
  for (const std::size_t count : counts) {
    head.cases += count;
  }
  head.missing = missing;
  head.numbers = numbers;
  head.counts = counts;
  return head;
}

TEST(BlockCodec, WritesTheBytesThatTheHeaderDescribes) {
  const EncodedBlock block = EncodeCodes(NumberHead(1, {0, 1.5}, {2, 1}), {1, 2, 0, 1});
  EXPECT_EQ(block.cells, "\x49");  // 01 00 10 01 from the last case on
  EXPECT_EQ(block.head, Head(2, 1, {4, 1, 2}, Bytes<double>({0, 1.5}), {2, 1}, block.cells));
  EXPECT_EQ(Complaint(block.head, block.cells), "");
}

TEST(BlockCodec, KeepsCodesInAsFewBitsAsTheyNeed) {
  for (const auto& [values, bits] : std::vector<std::pair<std::size_t, int>>{
           {1, 1}, {2, 2}, {3, 2}, {4, 4}, {15, 4}, {16, 8}, {255, 8}, {256, 16}, {65'535, 16}}) {
    EXPECT_EQ(BitsOfCode(values), bits) << values;
  }
}

TEST(BlockCodec, ReadsEveryEncodingInEveryNumberOfCases) {
  for (const std::size_t values : {1U, 3U, 15U, 255U, 300U}) {
    for (std::size_t more = 1; more <= 9; ++more) {
      std::vector<std::uint16_t> codes;
      BlockHead head;
      for (std::size_t value = 0; value < values; ++value) {
        head.numbers.push_back(static_cast<double>(value) / 4);
        head.counts.push_back(1);
        codes.push_back(static_cast<std::uint16_t>(values - value));
      }
      codes.insert(codes.end(), more, 0);
      head.missing = more;
      head.cases = codes.size();
      const EncodedBlock encoded = EncodeCodes(head, codes);
      Block block;
      DecodeBlock(encoded.head, encoded.cells, block);
      EXPECT_EQ(block.form, values > 255 ? BlockForm::kWordCodes : BlockForm::kByteCodes);
      EXPECT_EQ(block.numbers, head.numbers);
      EXPECT_EQ(std::vector<std::uint16_t>(block.byteCodes.begin(), block.byteCodes.end()),
                values > 255 ? std::vector<std::uint16_t>() : codes);
      EXPECT_EQ(block.wordCodes, values > 255 ? codes : std::vector<std::uint16_t>());
      EXPECT_EQ(Complaint(encoded.head, encoded.cells), "");
    }
  }
}

TEST(BlockCodec, AConstantHasNoCells) {
  const EncodedBlock one = EncodeCodes(NumberHead(0, {7}, {3}), {1, 1, 1});
  EXPECT_EQ(one.cells, "");
  const BlockHead head = DecodeHead(one.head);
  EXPECT_EQ(head.form, BlockForm::kConstant);
  EXPECT_EQ(head.numbers, std::vector<double>({7}));
  EXPECT_EQ(head.counts, std::vector<std::size_t>({3}));

  const BlockHead none = DecodeHead(EncodeCodes(NumberHead(3, {}, {}), {0, 0, 0}).head);
  EXPECT_EQ(none.form, BlockForm::kConstant);
  EXPECT_EQ(none.missing, 3U);
}

TEST(BlockCodec, KeepsPlainCellsAsTheyAre) {
  const EncodedBlock numbers = EncodeNumbers({1.25, kNone, -1e300});
  Block block;
  DecodeBlock(numbers.head, numbers.cells, block);
  EXPECT_EQ(block.form, BlockForm::kNumbers);
  ASSERT_EQ(block.cellNumbers.size(), 3U);
  EXPECT_EQ(block.cellNumbers[0], 1.25);
  EXPECT_TRUE(std::isnan(block.cellNumbers[1]));
  EXPECT_EQ(block.cellNumbers[2], -1e300);
  EXPECT_EQ(DecodeHead(numbers.head).missing, 1U);

  const EncodedBlock texts = EncodeTexts({"a", "", "\xC3\xA4\xC3\xB6"});
  DecodeBlock(texts.head, texts.cells, block);
  EXPECT_EQ(block.form, BlockForm::kTexts);
  EXPECT_FALSE(block.isNumeric);
  EXPECT_TRUE(block.cellNumbers.empty());
  EXPECT_EQ(block.cellTexts, std::vector<std::string_view>({"a", "", "\xC3\xA4\xC3\xB6"}));
  EXPECT_EQ(DecodeHead(texts.head).missing, 1U);
}

TEST(BlockCodec, ABlockIsUsedAgainForOneOfAnotherForm) {
  Block block;
  const EncodedBlock texts = EncodeTexts({"a", "b"});
  DecodeBlock(texts.head, texts.cells, block);
  const EncodedBlock codes = EncodeCodes(NumberHead(1, {7}, {1}), {0, 1});
  DecodeBlock(codes.head, codes.cells, block);
  EXPECT_TRUE(block.isNumeric);
  EXPECT_TRUE(block.texts.empty());
  EXPECT_TRUE(block.cellTexts.empty());
  EXPECT_EQ(block.byteCodes, std::vector<std::uint8_t>({0, 1}));
}

TEST(BlockCodec, RefusesWhateverItDoesNotWrite) {
  const std::string two = Bytes<double>({1, 2});
  const std::string cells = "\x09";  // 1, 2, missing, missing
  const std::string good = Head(2, 1, {4, 2, 2}, two, {1, 1}, cells);
  ASSERT_EQ(Complaint(good, cells), "");
  const std::string texts = Bytes32({1, 1}) + "ab";
  ASSERT_EQ(Complaint(Head(2, 0, {4, 2, 2}, texts, {1, 1}, cells), cells), "");
  const std::string numbers = Bytes<double>({1, 2});
  const std::string infinite = Bytes<double>({1, std::numeric_limits<double>::infinity()});
  struct Row {
    std::string head;
    std::string cells;
    const char* complaint;
  };
  const std::vector<Row> rows = {
      {"", "", "it is too short"},
      {good.substr(1), cells, "the checksum of its head is wrong"},
      {good, "\x06", "the checksum of its cells is wrong"},
      {Sealed({2, 1}, cells), cells, "it is too short"},
      {Head(8, 1, {4, 2, 2}, two, {1, 1}, cells), cells, "its encoding is unknown"},
      {Head(-1, 1, {4, 2, 2}, two, {1, 1}, cells), cells, "its encoding is unknown"},
      {Head(2, 2, {4, 2, 2}, two, {1, 1}, cells), cells, "its encoding is unknown"},
      {Head(7, 1, {2, 0, 0}, "", {}, cells), cells, "its encoding is that of another type"},
      {Head(6, 0, {2, 0, 0}, "", {}, cells), cells, "its encoding is that of another type"},
      {Head(0, 1, {0, 0, 0}, "", {}, ""), "", "its number of cases is out of range"},
      {Head(0, 1, {65'537, 65'537, 0}, "", {}, ""), "", "its number of cases is out of range"},
      {Head(0, 1, {2, 0, 2}, two, {1, 1}, ""), "", "its number of values does not fit its encoding"},
      {Head(1, 1, {2, 0, 2}, two, {1, 1}, cells), cells, "its number of values does not fit its encoding"},
      {Head(1, 1, {2, 2, 0}, "", {}, cells), cells, "its number of values does not fit its encoding"},
      {Head(5, 1, {2, 0, 65'536}, "", {}, cells), cells, "its number of values does not fit its encoding"},
      {Head(5, 1, {2, 0, 65'535}, "", {}, cells), cells, "it is too short"},
      {Head(5, 0, {2, 0, 65'535}, "", {}, cells), cells, "it is too short"},
      {Head(6, 1, {2, 0, 2}, two, {1, 1}, numbers), numbers, "its number of values does not fit its encoding"},
      {Head(2, 1, {4, 2, 2}, Bytes<double>({2, 1}), {1, 1}, cells), cells, "its values do not ascend"},
      {Head(2, 1, {4, 2, 2}, Bytes<double>({1, 1}), {1, 1}, cells), cells, "its values do not ascend"},
      {Head(2, 1, {4, 2, 2}, Bytes<double>({1, kNone}), {1, 1}, cells), cells, "a value is not a number"},
      {Head(2, 1, {4, 2, 2}, infinite, {1, 1}, cells), cells, "a value is not a number"},
      {Head(2, 0, {4, 2, 2}, Bytes32({1, 1}) + "ba", {1, 1}, cells), cells, "its values do not ascend"},
      {Head(2, 0, {4, 2, 2}, Bytes32({0, 2}) + "ab", {1, 1}, cells), cells, "a value is empty"},
      {Head(2, 0, {4, 2, 2}, Bytes32({1, 4'000'000'000}) + "ab", {1, 1}, cells), cells, "it is too short"},
      {Head(2, 0, {4, 2, 2}, Bytes32({1, 1}) + "a\xC3", {1, 1}, cells), cells, "a text is not valid UTF-8"},
      {Head(2, 0, {4, 2, 2}, Bytes32({1, 1}) + "\xC3\xA4", {1, 1}, cells), cells, "a text is not valid UTF-8"},
      {Head(2, 0, {4, 2, 2}, Bytes32({1, 1}) + std::string("a\0", 2), {1, 1}, cells), cells,
       "a text is not valid UTF-8"},
      {Head(2, 1, {4, 2, 2}, two, {1, 1, 1}, cells), cells, "it is too long"},
      {Head(2, 1, {4, 1, 2}, two, {1, 1}, cells), cells, "its counts do not add up"},
      {Head(2, 1, {4, 2, 2}, two, {2, 0}, cells), cells, "its counts do not add up"},
      {Head(0, 1, {4, 2, 1}, Bytes<double>({1}), {2}, ""), "", "its counts do not add up"},
      {Head(6, 1, {2, 3, 0}, "", {}, numbers), numbers, "its counts do not add up"},
      {Head(0, 1, {2, 2, 0}, "", {}, cells), cells, "its cells are of another size"},
      {Head(2, 1, {4, 2, 2}, two, {1, 1}, "\x09z"), "\x09z", "its cells are of another size"},
      {Head(6, 1, {3, 0, 0}, "", {}, numbers), numbers, "its cells are of another size"},
      {Head(6, 1, {2, 0, 0}, "", {}, infinite), infinite, "a value is not a number"},
      {Head(2, 1, {3, 1, 2}, two, {1, 1}, "\x49"), "\x49", "there are codes after its last case"},
      {Head(2, 1, {4, 2, 2}, two, {1, 1}, "\x0D"), "\x0D", "a code stands for no value"},
      {Head(2, 1, {4, 2, 2}, two, {1, 1}, "\x0A"), "\x0A", "its head counts other cells than there are"},
      {Head(2, 1, {4, 2, 2}, two, {1, 1}, "\x19"), "\x19", "its head counts other cells than there are"},
      {Head(6, 1, {2, 1, 0}, "", {}, numbers), numbers, "its head counts other cells than there are"},
      {Head(7, 0, {2, 1, 0}, "", {}, texts), texts, "its head counts other cells than there are"},
      {Head(7, 0, {2, 0, 0}, "", {}, texts + "c"), texts + "c", "it is too long"},
      {Head(7, 0, {3, 0, 0}, "", {}, texts), texts, "it is too short"},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(Complaint(row.head, row.cells), row.complaint) << &row - rows.data();
  }
}

TEST(BlockCodec, ABitThatIsChangedIsNoticed) {
  const EncodedBlock encoded = EncodeCodes(NumberHead(1, {0, 1.5}, {2, 1}), {1, 2, 0, 1});
  for (std::size_t bit = 0; bit < 8 * encoded.head.size(); ++bit) {
    std::string head = encoded.head;
    head[bit / 8] = static_cast<char>(head[bit / 8] ^ (1 << (bit % 8)));
    EXPECT_EQ(Complaint(head, encoded.cells), "the checksum of its head is wrong") << bit;
  }
  for (int bit = 0; bit < 8; ++bit) {
    const std::string cells(1, static_cast<char>(encoded.cells[0] ^ (1 << bit)));
    EXPECT_EQ(Complaint(encoded.head, cells), "the checksum of its cells is wrong") << bit;
  }
}

TEST(BlockCodec, ABlockThatIsCutOffIsNoticed) {
  const EncodedBlock encoded = EncodeTexts({"a", "bc"});
  for (std::size_t size = 0; size < encoded.head.size(); ++size) {
    EXPECT_NE(Complaint(encoded.head.substr(0, size), encoded.cells), "") << size;
  }
  for (std::size_t size = 0; size < encoded.cells.size(); ++size) {
    EXPECT_NE(Complaint(encoded.head, encoded.cells.substr(0, size)), "") << size;
  }
}

}  // namespace
}  // namespace standalone
