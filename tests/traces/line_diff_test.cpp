#include "tests/traces/line_diff.h"

#include <gtest/gtest.h>

namespace traces {
namespace {

TEST(Difference, IsEmptyOfEqualTexts) {
  EXPECT_EQ(Difference({}, {}), "");
  EXPECT_EQ(Difference({"a", "b"}, {"a", "b"}), "");
}

TEST(Difference, ShowsWhatDiffersWithThreeLinesAround) {
  EXPECT_EQ(Difference({"1", "2", "3", "4", "old", "5", "6", "7", "8"},
                       {"1", "2", "3", "4", "new", "er", "5", "6", "7", "8"}),
            "at line 5\n  2\n  3\n  4\n- old\n+ new\n+ er\n  5\n  6\n  7\n");
}

TEST(Difference, ShowsAMissingAndAnExtraLine) {
  EXPECT_EQ(Difference({"a", "b", "c"}, {"a", "c"}), "at line 2\n  a\n- b\n  c\n");
  EXPECT_EQ(Difference({"a"}, {"a", "a"}), "at line 2\n  a\n+ a\n");
  EXPECT_EQ(Difference({"a"}, {}), "at line 1\n- a\n");
}

TEST(Difference, CutsLongRuns) {
  const std::string text = Difference(Lines(20, "old"), Lines{"new"});
  EXPECT_NE(text.find("- ... and 8 more lines\n+ new\n"), std::string::npos) << text;
}

}  // namespace
}  // namespace traces
