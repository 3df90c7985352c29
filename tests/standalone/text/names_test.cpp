#include "standalone/text/names.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace standalone {
namespace {

struct Row {
  std::string name;
  bool isValid;
};

/// 63 letters of one byte, to which a test adds what it is about.
const std::string k63Letters(63, 'x');

TEST(Names, VariableNamesFollowTheRule) {
  const std::vector<Row> rows = {
      {"q1", true},
      {"Q", true},
      {"@x", true},
      {"#x", true},
      {"_x", true},
      {"_", true},
      {"q_1.a$@#", true},
      {"\u00E9t\u00E9", true},
      {"\u6F22\u5B57", true},
      {"q..1", true},
      {"TOM", true},
      {"ALLX", true},
      {"TO.1", true},
      {k63Letters + "y", true},
      {k63Letters.substr(1) + "\u00E9", true},
      {"", false},
      {"1q", false},
      {"$q", false},
      {".q", false},
      {"q.", false},
      {"q-1", false},
      {"q 1", false},
      {" q", false},
      {"q\u0664", false},   // no ASCII digit
      {"qe\u0301", false},  // a combining character is no letter
      {"q\u00A0", false},
      {"ALL", false},
      {"all", false},
      {"aLl", false},
      {"TO", false},
      {"to", false},
      {"\u20AC", false},
      {"q\xFF", false},
      {"\xC3", false},
      {std::string("q\0", 2), false},
      {k63Letters + "yz", false},
      {k63Letters + "\u00E9", false},  // 64 characters, 65 bytes
  };
  for (const Row& row : rows) {
    EXPECT_EQ(IsValidVariableName(row.name), row.isValid) << testing::PrintToString(row.name);
  }
}

TEST(Names, SetNamesHaveADollarInFront) {
  const std::vector<Row> rows = {
      {"$likes", true}, {"$_", true},    {"$@x", true},    {"$\u00E9", true}, {"$" + k63Letters, true},
      {"", false},      {"$", false},    {"likes", false}, {"$$x", false},    {"$1", false},
      {"$x.", false},   {"$ALL", false}, {"$to", false},   {"$x y", false},   {"$" + k63Letters + "y", false},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(IsValidSetName(row.name), row.isValid) << testing::PrintToString(row.name);
  }
}

TEST(Names, ANameEndsBeforeTheFirstCharacterThatCannotBeInIt) {
  struct EndRow {
    std::string text;
    std::size_t offset;
    std::size_t end;
  };
  const std::vector<EndRow> rows = {
      {"q1=2", 0, 2}, {"q1=2", 2, 2}, {"q.$@#_9 ", 0, 7}, {"x \u00E9t\u00E9/", 2, 7}, {"q\xFF", 0, 1}, {"q1", 2, 2},
  };
  for (const EndRow& row : rows) {
    EXPECT_EQ(EndOfName(row.text, row.offset), row.end) << row.text << " from " << row.offset;
  }
}

TEST(Names, OnlySomeCharactersBeginAName) {
  for (const std::string text : {"a", "Z", "@", "#", "_", "\u00E9", "\u6F22"}) {
    EXPECT_TRUE(BeginsNameAt(text, 0)) << text;
  }
  for (const std::string text : {"0", "$", ".", "-", " ", "=", "\u20AC", "\xFF"}) {
    EXPECT_FALSE(BeginsNameAt(text, 0)) << text;
  }
}

}  // namespace
}  // namespace standalone
