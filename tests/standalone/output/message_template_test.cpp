#include "standalone/output/message_template.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace standalone {
namespace {

using List = std::vector<std::string>;

const std::string kVariableLines = "[:^1\r:$1]1";

struct Row {
  std::string pattern;
  std::vector<Argument> arguments;
  std::string text;
};

void ExpectTexts(const std::vector<Row>& rows) {
  for (const Row& row : rows) {
    EXPECT_EQ(ExpandTemplate(row.pattern, row.arguments), row.text) << row.pattern;
  }
}

TEST(Composite, PlaceholdersAreReplaced) {
  ExpectTexts({
      {"No MRSET to display", {}, "No MRSET to display"},
      {"", {"x"}, ""},
      {"The MRSET ^1 is not in the dataset.", {"$x"}, "The MRSET $x is not in the dataset."},
      {"^1 and ^2", {"a", "b"}, "a and b"},
      {"^2 and ^1", {"a", "b"}, "b and a"},
      {"^1^1", {"a"}, "aa"},
      {"'^1'", {"caf\u00E9"}, "'caf\u00E9'"},
  });
}

TEST(Composite, ArgumentsAreNeverExpandedAgain) {
  ExpectTexts({
      {"^1 ^2", {"^2", "b"}, "^2 b"},
      {"^1", {"^1"}, "^1"},
      {"^1"
       "1",
       {"a"},
       ""},  // the eleventh argument
      {"^1 1", {"^"}, "^ 1"},
      {"^1 ^2", {List{"^2", "^1"}, "x"}, "^2, ^1 x"},
  });
}

TEST(Composite, APlaceholderWithoutAnArgumentBecomesNothing) {
  ExpectTexts({
      {"Found ^1 ...", {}, "Found  ..."},
      {"^1-^2-^3", {"a"}, "a--"},
      {"[^0]", {"a"}, "[]"},
      {"[^99999999999999999999999]", {"a"}, "[]"},
      {"[^1]", {List{}}, "[]"},
  });
}

TEST(Composite, AllDigitsAfterACaretAreTheNumber) {
  const std::vector<Argument> ten = {"a", "b", "c", "d", "e", "f", "g", "h", "i", "j"};
  ExpectTexts({{"^10", ten, "j"}, {"^1.0", ten, "a.0"}, {"^01", ten, "a"}});
}

TEST(Composite, ACaretWithoutDigitsStays) {
  ExpectTexts({
      {"^", {"a"}, "^"},
      {"2^x", {"a"}, "2^x"},
      {"^^1", {"a"}, "^a"},
      {"x^", {}, "x^"},
  });
}

TEST(Composite, TextsThatNoPlaceholderTakesAreDropped) {
  ExpectTexts({{"^1", {"a", "b"}, "a"}});
}

TEST(Composite, AListFillsAPlaceholder) {
  ExpectTexts({
      {"Sets ^1.", {List{"$a", "$b"}}, "Sets $a, $b."},
      {"Sets ^2 of ^1.", {"x", List{"$a"}}, "Sets $a of x."},
  });
}

TEST(Composite, AListThatNoPlaceholderTakesIsAppended) {
  const std::string warning = "One or more of the sets specified do not exist...";
  ExpectTexts({
      {warning, {List{"$x"}}, warning + " $x"},
      {warning, {List{"$x", "$Y", "^1"}}, warning + " $x, $Y, ^1"},
      {warning, {List{}}, warning},
      {"^1", {"a", List{"b", "c"}, List{"d"}}, "a b, c d"},
  });
}

TEST(Composite, AListPatternWritesItsEntriesOnePerLine) {
  ExpectTexts({
      {kVariableLines, {List{"Tea", "Coffee"}}, "Tea\nCoffee"},
      {kVariableLines, {List{"Tea"}}, "Tea"},
      {kVariableLines, {List{}}, ""},
      {kVariableLines, {}, ""},
      {kVariableLines, {List{"^1", "$1"}}, "^1\n$1"},
  });
}

TEST(Composite, AListPatternHasItsEntriesAsAList) {
  struct ListRow {
    std::string pattern;
    std::vector<Argument> arguments;
    List entries;
  };
  const std::vector<ListRow> rows = {
      {kVariableLines, {List{"Tea", "Coffee"}}, {"Tea", "Coffee"}},
      {kVariableLines, {"a", List{"b", ""}, "c"}, {"a", "b", "", "c"}},
      {kVariableLines, {List{"^1", "x\r"}}, {"^1", "x\r"}},
      {kVariableLines, {}, {}},
      {"[:- ^1;\r:$1]1", {List{"a", "b"}}, {"- a;", "- b;"}},
  };
  for (const ListRow& row : rows) {
    EXPECT_EQ(ExpandList(row.pattern, row.arguments), row.entries) << row.pattern;
  }
}

TEST(Composite, OnlyTheWholeFormIsAListPattern) {
  for (const std::string pattern : {"[:^1\r:$1]1", "[:^1:, ]1", "[::]12"}) {
    EXPECT_TRUE(IsListPattern(pattern)) << pattern;
  }
  for (const std::string pattern :
       {"", "[:", "123", "^1", "[:^1\r:$1]", "[^1\r:$1]1", "[:^1]1", "[:^1]:1", "x[:^1\r:$1]1", "[:^1\r:$1]1x"}) {
    EXPECT_FALSE(IsListPattern(pattern)) << pattern;
  }
}

}  // namespace
}  // namespace standalone
