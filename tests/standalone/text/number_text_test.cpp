#include "standalone/text/number_text.h"

#include <gtest/gtest.h>

namespace standalone {
namespace {

struct Row {
  const char* text;
  const char* json;  // "" where the text is no number
};

TEST(NumberText, IsGivenAsJsonWritesIt) {
  const Row rows[] = {
      {"0", "0"},          {"7", "7"},         {"-1", "-1"},    {"10.50", "10.50"},
      {"1e5", "1e5"},      {"1E+05", "1E+05"}, {"+1", "1"},     {"007", "7"},
      {"-00", "-0"},       {".5", "0.5"},      {"-.5", "-0.5"}, {"5.", "5"},
      {"5.e2", "5e2"},     {"00.1", "0.1"},    {"", ""},        {"-", ""},
      {".", ""},           {"e5", ""},         {"1e", ""},      {"1e+", ""},
      {"1 ", ""},          {" 1", ""},         {"1,5", ""},     {"0x10", ""},
      {"nan", ""},         {"inf", ""},        {"1e999", ""},   {"1.2.3", ""},
      {"--1", ""},         {"1a", ""},         {"a", ""},       {"12345678901234567890", "12345678901234567890"},
      {"1e-400", "1e-400"}};
  for (const Row& row : rows) {
    std::string scratch;
    EXPECT_EQ(JsonNumber(row.text, scratch).value_or(""), row.json) << row.text;
    EXPECT_EQ(IsJsonNumber(row.text), *row.json != '\0' && std::string(row.text) == row.json) << row.text;
    EXPECT_EQ(NumberValue(row.text).has_value(), *row.json != '\0') << row.text;
  }
}

TEST(NumberText, OfManyDigitsIsANumberUpToTheRangeOfADouble) {
  EXPECT_TRUE(NumberValue(std::string(308, '9')).has_value());
  EXPECT_FALSE(NumberValue(std::string(400, '9')).has_value());
}

TEST(NumberText, HasTheValueOfTheNearestDoubleWhichMayBeZero) {
  EXPECT_EQ(NumberValue("1e-320"), 1e-320);
  EXPECT_EQ(NumberValue("5e-324"), 5e-324);
  EXPECT_EQ(NumberValue("2e-324"), 0);
  EXPECT_EQ(NumberValue("+1e-400"), 0);
  EXPECT_EQ(NumberValue("-1e-99999999999999999999"), 0);
  EXPECT_EQ(NumberValue("0." + std::string(400, '0') + "1"), 0);
  EXPECT_EQ(NumberValue("-1e400"), std::nullopt);
}

TEST(NumberText, OfOptionsIsNineDigitsAtMostAndNothingElse) {
  struct {
    const char* text;
    std::optional<std::int64_t> number;
    bool isDigits;
  } const rows[] = {{"0", 0, true},           {"007", 7, true},         {"999999999", 999'999'999, true},
                    {"1000000000", {}, true}, {"0000000001", {}, true}, {"", {}, false},
                    {"-1", {}, false},        {"+1", {}, false},        {"1.5", {}, false},
                    {"1e3", {}, false},       {" 1", {}, false},        {"1x", {}, false}};
  for (const auto& row : rows) {
    EXPECT_EQ(WholeNumber(row.text), row.number) << row.text;
    EXPECT_EQ(IsDigits(row.text), row.isDigits) << row.text;
  }
}

TEST(NumberText, IsTheShortestThatGivesTheNumberAgain) {
  EXPECT_EQ(ShortestNumber(1), "1");
  EXPECT_EQ(ShortestNumber(-0.0), "0");
  EXPECT_EQ(ShortestNumber(0.1), "0.1");
  EXPECT_EQ(ShortestNumber(-2.5), "-2.5");
  EXPECT_EQ(ShortestNumber(100000), "100000");
  EXPECT_EQ(NumberValue(ShortestNumber(1e300)), 1e300);
}

}  // namespace
}  // namespace standalone
