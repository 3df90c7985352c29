#include "standalone/check/case_check.h"

#include <gtest/gtest.h>

namespace standalone {
namespace {

TEST(CaseCheck, TellsWhatIsWrongWithCells) {
  const std::vector<bool> isNumeric = {true, false};
  const std::vector<std::pair<std::string, std::string>> rows = {
      {R"([1,"a"])", ""},
      {R"([null,""])", ""},
      {R"([-1.5e300,"a"])", ""},
      {R"([18446744073709551616,"a"])", ""},
      {"", "it is not a JSON array"},
      {"[", "it is not a JSON array"},
      {R"([1,"a"]])", "it is not a JSON array"},
      {"1", "it is not a JSON array"},
      {R"({"a":1})", "it is not a JSON array"},
      {"[]", "it has 0 cells and the dictionary 2 variables"},
      {"[1]", "it has 1 cells and the dictionary 2 variables"},
      {R"([1,"a",2])", "it has more cells than the dictionary variables (2)"},
      {R"(["1","a"])", "cell 1 is a string, its variable a numeric one"},
      {"[1,2]", "cell 2 is a number, its variable a string"},
      {"[1,null]", "cell 2 is null, its variable a string"},
      {R"([false,"a"])", "cell 1 is true or false, its variable a numeric one"},
      {R"([{},"a"])", "cell 1 is an object, its variable a numeric one"},
      {"[1,[]]", "cell 2 is an array, its variable a string"}};
  for (const auto& [cells, wrong] : rows) {
    EXPECT_EQ(WhatIsWrongWithCells(cells, isNumeric).value_or(""), wrong) << cells;
  }
}

}  // namespace
}  // namespace standalone
