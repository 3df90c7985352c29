#include "standalone/dataset/variable.h"

#include <gtest/gtest.h>

namespace standalone {
namespace {

std::string Label(const std::string* label) {
  return label == nullptr ? "none" : *label;
}

TEST(LabelOf, ANumberIsTheLabelOfItsValueHoweverThatIsWritten) {
  const Variable variable{"q1", 0, std::nullopt, {{"no number", "bad"}, {"0", "no"}, {"1", "yes"}, {"1", "again"}}};
  for (const char* value : {"1", "+1", "1.0", "01", "10e-1"}) {
    EXPECT_EQ(Label(LabelOf(variable, value)), "yes") << value;
  }
  for (const char* value : {"2", "1 ", "", "no number", "1e999"}) {
    EXPECT_EQ(Label(LabelOf(variable, value)), "none") << value;
  }
  EXPECT_EQ(Label(LabelOf(variable, "1e-999")), "no");
  EXPECT_EQ(Label(LabelOf(variable, 1.0)), "yes");
  EXPECT_EQ(Label(LabelOf(variable, -0.0)), "no");
  EXPECT_EQ(Label(LabelOf(variable, 2.0)), "none");
}

TEST(LabelOf, ATextIsTheLabelOfTheSameTextAlone) {
  const Variable variable{"q1", 4, std::nullopt, {{"1", "one"}, {"tea", "Tea"}}};
  EXPECT_EQ(Label(LabelOf(variable, "1")), "one");
  EXPECT_EQ(Label(LabelOf(variable, "tea")), "Tea");
  for (const char* value : {"1.0", "TEA", "tea ", ""}) {
    EXPECT_EQ(Label(LabelOf(variable, value)), "none") << value;
  }
}

}  // namespace
}  // namespace standalone
