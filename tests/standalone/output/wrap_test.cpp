#include "standalone/output/plain/wrap.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace standalone {
namespace {

using Lines = std::vector<std::string>;

TEST(Wrap, BreaksAtBlanksAndWithinWordsOnlyWhenNeeded) {
  struct Row {
    std::string text;
    std::size_t width;
    Lines lines;
  };
  const std::vector<Row> rows = {
      {"", 5, {""}},
      {"Tea", 5, {"Tea"}},
      {"Tea x", 5, {"Tea x"}},
      {"Tea and milk", 5, {"Tea", "and", "milk"}},
      {"Tea and milk", 7, {"Tea and", "milk"}},
      {"Tea and milk", 8, {"Tea and", "milk"}},
      {"Tea   and", 5, {"Tea", "and"}},
      {"  Tea", 9, {"  Tea"}},
      {"  Tea", 4, {"  Te", "a"}},
      {"Tea    ", 3, {"Tea"}},
      {"abcdefgh", 3, {"abc", "def", "gh"}},
      {"ab cdefgh", 4, {"ab", "cdef", "gh"}},
      {"caf\u00E9s", 4, {"caf\u00E9", "s"}},
      {"cafe\u0301s", 4, {"cafe\u0301", "s"}},
      {"\u6F22\u5B57\u6F22", 5, {"\u6F22\u5B57", "\u6F22"}},
      {"\u6F22\u5B57", 1, {"\u6F22", "\u5B57"}},
      {"ab", 0, {"a", "b"}},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(WrapText(row.text, row.width), row.lines) << row.text << " to " << row.width;
  }
}

TEST(Wrap, AHangingIndentSetsOffAllLinesButTheFirst) {
  struct Row {
    std::string text;
    std::size_t width;
    Lines lines;
  };
  const std::vector<Row> rows = {
      {"", 10, {""}},
      {"Tea and milk", 12, {"Tea and milk"}},
      {"Tea and milk", 9, {"Tea and", "  milk"}},
      {"Tea and milk and sugar", 10, {"Tea and", "  milk and", "  sugar"}},
      {"abcdefghijklmnopq", 8, {"abcdefgh", "  ijklmn", "  opq"}},
      {"Tea and", 5, {"Tea", "and"}},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(WrapTextHanging(row.text, row.width), row.lines) << row.text << " to " << row.width;
  }
  EXPECT_EQ(HangingWidth(""), 0U);
  EXPECT_EQ(HangingWidth("Elementary"), 10U);
  EXPECT_EQ(HangingWidth("Elementary Variables"), 11U);
  EXPECT_EQ(HangingWidth("Elementary and"), 10U);
}

TEST(Wrap, TheWidestWordIsMeasuredInColumns) {
  struct Row {
    std::string text;
    std::size_t width;
  };
  const std::vector<Row> rows = {
      {"", 0}, {"  ", 0}, {"Tea", 3}, {"Elementary Variables", 10}, {" a  bcd ", 3}, {"\u6F22\u5B57 abc", 4},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(WidestWord(row.text), row.width) << row.text;
  }
}

// Ends in time only when the work grows with the text and not with its square.
TEST(Wrap, LongTextsTakeTimeInProportion) {
  constexpr std::size_t kSize = 3'000'000;
  EXPECT_EQ(WrapText(std::string(kSize, 'x'), 10).size(), kSize / 10);
  EXPECT_EQ(WrapText("x" + std::string(kSize, ' ') + "y", 10), (Lines{"x", "y"}));
}

}  // namespace
}  // namespace standalone
