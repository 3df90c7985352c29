#include "standalone/output/plain/column_widths.h"

#include <gtest/gtest.h>

#include <vector>

namespace standalone {
namespace {

using Widths = std::vector<std::size_t>;

TEST(ColumnWidths, ShareTheRoomFairly) {
  struct Row {
    const char* what;
    std::vector<ColumnNeeds> columns;  // heading, its widest word, content, its widest word
    std::size_t room;
    Widths widths;
  };
  const std::vector<Row> rows = {
      {"no columns", {}, 10, {}},
      {"everything fits", {{4, 4, 6, 6}, {5, 5, 2, 2}}, 11, {6, 5}},
      {"headings are wrapped first", {{13, 7, 1, 1}, {5, 5, 12, 8}}, 24, {7, 12}},
      {"the widest column is narrowed", {{4, 4, 6, 6}, {5, 5, 90, 8}}, 30, {6, 24}},
      {"two wide columns come to one width", {{4, 4, 6, 6}, {5, 5, 90, 8}, {5, 5, 40, 8}}, 30, {6, 12, 12}},
      {"what is left over goes to the first", {{4, 4, 6, 6}, {5, 5, 90, 8}, {5, 5, 40, 8}}, 31, {6, 13, 12}},
      {"words stay whole while they can", {{4, 4, 20, 15}, {4, 4, 60, 5}}, 26, {15, 11}},
      {"words are broken when they must be", {{4, 4, 20, 15}, {4, 4, 60, 15}}, 26, {13, 13}},
      {"no column is narrower than its heading's words", {{10, 7, 20, 15}, {4, 4, 60, 15}}, 5, {7, 4}},
      {"nothing is narrower than a wide character", {{0, 0, 9, 9}, {1, 1, 9, 9}}, 0, {2, 2}},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(ColumnWidths(row.columns, row.room), row.widths) << row.what;
  }
}

}  // namespace
}  // namespace standalone
