#include "standalone/text/visible.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace standalone {
namespace {

TEST(Visible, CharactersThatActOnATerminalAreWrittenOut) {
  struct Row {
    std::string text;
    std::string visible;
  };
  const std::vector<Row> rows = {
      {"", ""},
      {"caf\u00E9 \u6F22 \U0001F600 e\u0301", "caf\u00E9 \u6F22 \U0001F600 e\u0301"},
      {"back\\slash", "back\\slash"},
      {"\x1b[31mred", "\\x1b[31mred"},
      {std::string("a\0b", 3), "a\\x00b"},
      {"\a\b\x7f", "\\x07\\x08\\x7f"},
      {"a\tb\r\nc", "a\\tb\\r\\nc"},
      {"\u0080\u009B\u009F\u00A0", "\\x80\\x9b\\x9f\u00A0"},
      {"\u061C\u200E\u200F", "\\u061c\\u200e\\u200f"},
      {"\u2028\u2029\u202A\u202B\u202C\u202D\u202E", "\\u2028\\u2029\\u202a\\u202b\\u202c\\u202d\\u202e"},
      {"\u2066\u2067\u2068\u2069", "\\u2066\\u2067\\u2068\\u2069"},
      {"\u200D\u2027\u202F\u2065\u206A", "\u200D\u2027\u202F\u2065\u206A"},
      {"a\x9B\xFFz", "a\uFFFD\uFFFDz"},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(Visible(row.text), row.visible) << testing::PrintToString(row.text);
  }
}

TEST(Visible, JsonEscapesWhatActsOnATerminal) {
  struct Row {
    std::string json;
    std::string visible;
  };
  const std::vector<Row> rows = {
      {"", ""},
      {"{\"a\":\"\\u001b caf\u00E9\"}", "{\"a\":\"\\u001b caf\u00E9\"}"},
      {"\x7f", "\\u007f"},
      {"\"a\u009Bb\u00A0\u0085\"", "\"a\\u009bb\u00A0\\u0085\""},
      {"\u061C\u0627\u202Ex\u2028\u2069", "\\u061c\u0627\\u202ex\\u2028\\u2069"},
      {"\u2014\u200D\u20AC", "\u2014\u200D\u20AC"},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(VisibleJson(row.json), row.visible) << testing::PrintToString(row.json);
  }
}

TEST(Visible, LinesEndAtEveryKindOfLineEnd) {
  struct Row {
    std::string text;
    std::vector<std::string> lines;
  };
  const std::vector<Row> rows = {
      {"", {""}},
      {"one", {"one"}},
      {"one\ntwo", {"one", "two"}},
      {"one\r\ntwo\rthree\n", {"one", "two", "three", ""}},
      {"\n\n", {"", "", ""}},
      {"a\x1b\n\tb", {"a\\x1b", "\\tb"}},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(VisibleLines(row.text), row.lines) << testing::PrintToString(row.text);
  }
}

TEST(Visible, OnOneLineABlankStandsForALineEnd) {
  EXPECT_EQ(VisibleOnOneLine(" a \r\n\n  b\x1b c  d\re\n"), "a b\\x1b c  d e");
  EXPECT_EQ(VisibleOnOneLine("\n"), "");
}

}  // namespace
}  // namespace standalone
