#include "standalone/language/place.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

namespace standalone {
namespace {

using LineColumnLength = std::tuple<int, std::size_t, std::size_t>;

LineColumnLength Numbers(const Place& place) {
  return {place.line, place.column, place.length};
}

TEST(PlaceFinder, CountsLinesAndCharactersFromOne) {
  struct Row {
    std::string text;
    std::string before;
    std::size_t offset;
    std::size_t size;
    LineColumnLength numbers;
  };
  const std::vector<Row> rows = {
      {"", "", 0, 0, {7, 1, 0}},
      {"MRSET", "", 0, 5, {7, 1, 5}},
      {"MRSET", "", 5, 0, {7, 6, 0}},
      {"MRSET", "/* é */ ", 0, 5, {7, 9, 5}},
      {"A\n B", "   ", 3, 1, {8, 2, 1}},
      {"A\r\n\tB", "", 4, 1, {8, 2, 1}},
      {"é日e\u0301\U0001F600=", "", 12, 1, {7, 6, 1}},
      {"= é日e\u0301\U0001F600", "", 2, 12, {7, 3, 5}},
      {"\xFF\xC3=\xE2\x82", "", 2, 3, {7, 3, 3}},
  };
  for (const Row& row : rows) {
    const Place place = PlaceFinder(row.text, 7, row.before).At(row.offset, row.size);
    EXPECT_EQ(Numbers(place), row.numbers) << testing::PrintToString(row.text) << " " << row.offset;
    EXPECT_EQ(place.offset, row.offset);
    EXPECT_EQ(place.size, row.size);
  }
}

TEST(PlaceFinder, PlacesDoNotDependOnTheOrderOfAsking) {
  std::string text;
  for (int i = 0; i < 5000; ++i) {
    text += i % 7 == 0 ? "é日\n" : "ab\U0001F600 ";
  }
  const PlaceFinder finder(text, 1, "");
  int line = 1;
  std::size_t column = 1;
  std::vector<std::pair<std::size_t, LineColumnLength>> expected;
  for (std::size_t offset = 0; offset < text.size(); ++offset) {
    if ((static_cast<unsigned char>(text[offset]) & 0xC0) == 0x80) {
      continue;
    }
    expected.emplace_back(offset, LineColumnLength(line, column, 0));
    column = text[offset] == '\n' ? 1 : column + 1;
    line += text[offset] == '\n' ? 1 : 0;
  }
  for (auto row = expected.rbegin(); row != expected.rend(); ++row) {
    ASSERT_EQ(Numbers(finder.At(row->first, 0)), row->second) << row->first;
  }
}

}  // namespace
}  // namespace standalone
