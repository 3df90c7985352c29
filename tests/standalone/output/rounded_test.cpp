#include "standalone/output/rounded.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

namespace standalone {
namespace {

TEST(Rounded, RoundsTheShortestDecimalTextHalfAwayFromZero) {
  struct Row {
    double number;
    int decimals;
    std::string text;
  };
  const std::vector<Row> rows = {
      {0, 0, "0"},
      {0, 1, "0.0"},
      {-0.0, 1, "0.0"},
      {0.125, 2, "0.13"},
      {-0.125, 2, "-0.13"},
      {1.005, 2, "1.01"},  // the double is below 1.005
      {2.675, 2, "2.68"},
      {0.5, 0, "1"},
      {1.5, 0, "2"},
      {2.5, 0, "3"},
      {0.49999999999999994, 0, "0"},
      {9.95, 1, "10.0"},
      {99.95, 1, "100.0"},
      {999.5, 0, "1000"},
      {-0.04, 1, "0.0"},
      {-0.05, 1, "-0.1"},
      {100, 0, "100"},
      {33.333333333333336, 15, "33.333333333333336"},
      {1e-7, 1, "0.0"},
      {5e-324, 2, "0.00"},
      {1e21, 1, "1000000000000000000000.0"},
      {12, 3, "12.000"},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(Rounded(row.number, row.decimals), row.text) << row.number;
  }
}

TEST(Rounded, TakesTheLargestAndTheSmallestNumber) {
  EXPECT_EQ(Rounded(std::numeric_limits<double>::max(), 0).size(), 309U);
  EXPECT_EQ(Rounded(std::numeric_limits<double>::denorm_min(), 324).size(), 326U);
  EXPECT_EQ(Rounded(std::numeric_limits<double>::denorm_min(), 324).back(), '5');
}

}  // namespace
}  // namespace standalone
