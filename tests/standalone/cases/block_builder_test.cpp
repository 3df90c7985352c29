#include "standalone/cases/block_builder.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <set>
#include <string>
#include <variant>
#include <vector>

#include "standalone/text/number_text.h"

namespace standalone {
namespace {

using Texts = std::vector<std::string>;

EncodedBlock Built(bool isNumeric, const Texts& cells) {
  BlockBuilder builder(isNumeric);
  for (const std::string& cell : cells) {
    builder.Add(cell);
  }
  return builder.Finish();
}

/// The cells of a block; numbers as the shortest text.
Texts CellsOf(const EncodedBlock& encoded) {
  Block block;
  DecodeBlock(encoded.head, encoded.cells, block);
  CheckCounts(DecodeHead(encoded.head), block);
  Texts cells;
  const auto value = [&block](std::size_t code) {
    return code == 0         ? std::string()
           : block.isNumeric ? ShortestNumber(block.numbers[code - 1])
                             : std::string(block.texts[code - 1]);
  };
  for (std::size_t index = 0; index < block.cases; ++index) {
    switch (block.form) {
      case BlockForm::kConstant:
        cells.push_back(value(block.numbers.empty() && block.texts.empty() ? 0 : 1));
        break;
      case BlockForm::kByteCodes:
        cells.push_back(value(block.byteCodes[index]));
        break;
      case BlockForm::kWordCodes:
        cells.push_back(value(block.wordCodes[index]));
        break;
      case BlockForm::kNumbers:
        cells.push_back(std::isnan(block.cellNumbers[index]) ? "" : ShortestNumber(block.cellNumbers[index]));
        break;
      case BlockForm::kTexts:
        cells.emplace_back(block.cellTexts[index]);
    }
  }
  return cells;
}

BlockForm FormOf(bool isNumeric, const Texts& cells) {
  return DecodeHead(Built(isNumeric, cells).head).form;
}

/// So many different values, each so many times.
Texts Different(std::size_t count, std::size_t times, const std::string& before = "") {
  Texts cells;
  for (std::size_t index = 0; index < count * times; ++index) {
    cells.push_back(before + std::to_string(index % count));
  }
  return cells;
}

TEST(BlockBuilder, ChoosesTheFormByWhatTheBlockHolds) {
  EXPECT_EQ(FormOf(true, {"7", "7.0"}), BlockForm::kConstant);
  EXPECT_EQ(FormOf(true, {"", ""}), BlockForm::kConstant);
  EXPECT_EQ(FormOf(false, {"a", "a"}), BlockForm::kConstant);
  EXPECT_EQ(FormOf(true, {"7", "", "", "", "", "", "", "", ""}), BlockForm::kByteCodes);
  EXPECT_EQ(FormOf(true, Different(255, 4)), BlockForm::kByteCodes);
  EXPECT_EQ(FormOf(true, Different(256, 4)), BlockForm::kWordCodes);
  EXPECT_EQ(FormOf(true, Different(40'000, 1)), BlockForm::kNumbers);
  EXPECT_EQ(FormOf(true, Different(65'536, 1)), BlockForm::kNumbers);
  EXPECT_EQ(FormOf(false, Different(20, 10, "text ")), BlockForm::kByteCodes);
  EXPECT_EQ(FormOf(false, Different(300, 10, "text ")), BlockForm::kWordCodes);
  EXPECT_EQ(FormOf(false, Different(1000, 1)), BlockForm::kTexts);
  EXPECT_EQ(FormOf(false, Different(65'536, 1)), BlockForm::kTexts);
}

TEST(BlockBuilder, EveryCellComesBackWhateverTheForm) {
  for (const std::size_t count : {1U, 2U, 3U, 4U, 15U, 16U, 254U, 255U, 256U, 257U, 4000U, 21'845U, 65'535U, 65'536U}) {
    for (const bool isNumeric : {true, false}) {
      Texts cells = Different(count, std::max<std::size_t>(1, std::min<std::size_t>(5, 65'535 / count)));
      EXPECT_EQ(CellsOf(Built(isNumeric, cells)), cells) << count;
      cells[cells.size() / 2] = "";
      EXPECT_EQ(CellsOf(Built(isNumeric, cells)), cells) << count;
    }
  }
}

TEST(BlockBuilder, NumbersAreTheSameByTheirValue) {
  const Texts cells = {"1", "1.0", "10e-1", "100E-2", "0", "-0", "-0.0", "1e2", "100", "9007199254740993", "1e-310"};
  const BlockHead head = DecodeHead(Built(true, cells).head);
  EXPECT_EQ(head.numbers, std::vector<double>({0, 1e-310, 1, 100, 9007199254740992.0}));
  EXPECT_EQ(head.counts, std::vector<std::size_t>({3, 1, 4, 2, 1}));
}

TEST(BlockBuilder, ANumberNearerToZeroThanAnyDoubleIsZero) {
  EXPECT_EQ(CellsOf(Built(true, {"0." + std::string(400, '0') + "1"})), Texts({"0"}));
}

TEST(BlockBuilder, TextsAreKeptWithTheirBlanks) {
  const Texts cells = {"a", "a ", " a", " ", "", "A", "a", "1", "1.0", "12345678", "123456789", "12345678"};
  EXPECT_EQ(CellsOf(Built(false, cells)), cells);
}

TEST(BlockBuilder, BeginsAnewAfterABlock) {
  BlockBuilder builder(true);
  for (const std::string& cell : Different(100, 1)) {
    builder.Add(cell);
  }
  EXPECT_EQ(builder.Cases(), 100U);
  EXPECT_GT(builder.Memory(), 64U);
  builder.Finish();
  EXPECT_EQ(builder.Cases(), 0U);
  EXPECT_LT(builder.Memory(), 64U);
  builder.Add("8");
  EXPECT_EQ(CellsOf(builder.Finish()), Texts({"8"}));
}

TEST(BlockBuilder, FewCellsTakeLittleMemory) {
  BlockBuilder builder(true);
  for (int count = 0; count < 1000; ++count) {
    builder.Add("10");
  }
  EXPECT_LT(builder.Memory(), 2048U);
}

TEST(BlockBuilder, MemoryFollowsTheTexts) {
  BlockBuilder builder(false);
  builder.Add(std::string(1'000'000, 'x'));
  EXPECT_GE(builder.Memory(), 1'000'000U);
  EXPECT_LT(builder.Memory(), 3'000'000U);
}

RC_GTEST_PROP(BlockBuilder, AnyTextsComeBackWithTheirCounts, ()) {
  const auto word = rc::gen::container<std::string>(rc::gen::element('a', 'b', ' ', '1'));
  const auto cells = *rc::gen::nonEmpty(rc::gen::container<Texts>(word));
  const EncodedBlock encoded = Built(false, cells);
  RC_ASSERT(CellsOf(encoded) == cells);
  const BlockHead head = DecodeHead(encoded.head);
  for (std::size_t index = 0; index < head.texts.size(); ++index) {
    RC_ASSERT(std::count(cells.begin(), cells.end(), head.texts[index]) ==
              static_cast<std::ptrdiff_t>(head.counts[index]));
  }
}

RC_GTEST_PROP(BlockBuilder, AnyNumbersComeBack, (const std::vector<double>& numbers, bool fewValues)) {
  RC_PRE(!numbers.empty());
  Texts cells;
  for (const double number : numbers) {
    cells.push_back(ShortestNumber(fewValues ? std::floor(number / 16) : number));
  }
  RC_ASSERT(CellsOf(Built(true, cells)) == cells);
}

}  // namespace
}  // namespace standalone
