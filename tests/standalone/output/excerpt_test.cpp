#include "standalone/output/plain/excerpt.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "standalone/text/unicode.h"

namespace standalone {
namespace {

/// A command in which the place stands between "<" and ">", at its end where they are empty.
struct Marked {
  CommandResult command;
  Place place;
};

Marked FromMarked(const std::string& text, const std::string& before = "", const std::string& after = "") {
  Marked marked;
  const std::size_t begin = text.find('<');
  const std::size_t end = text.find('>');
  marked.command.text = text.substr(0, begin) + text.substr(begin + 1, end - begin - 1) + text.substr(end + 1);
  marked.command.before = before;
  marked.command.after = after;
  marked.place.offset = begin;
  marked.place.size = end - begin - 1;
  return marked;
}

/// The line, and the carets under it.
std::string Shown(const Marked& marked, std::size_t width = 76) {
  const Excerpt excerpt = ExcerptAt(marked.command, marked.place, width);
  return excerpt.line + "\n" + std::string(excerpt.caretColumn, ' ') + std::string(excerpt.caretWidth, '^');
}

TEST(Excerpt, CaretsStandUnderThePlaceByDisplayWidth) {
  struct Row {
    std::string text;
    std::string shown;
  };
  const std::vector<Row> rows = {
      {"MRSET /<DISPLY> NAME=ALL", "MRSET /DISPLY NAME=ALL\n       ^^^^^^"},
      {"<X>", "X\n^"},
      {"MRSET<>", "MRSET\n     ^"},
      {"<>", "\n^"},
      // tabs reach to the next multiple of eight columns
      {"\t<X>", "        X\n        ^"},
      {"AB\t<X>\tY", "AB      X       Y\n        ^"},
      {"12345678\t<X>", "12345678        X\n                ^"},
      {"<A\tB>", "A       B\n^^^^^^^^^"},
      // wide and combining characters, characters without a width
      {"LABEL='日本' <X>", "LABEL='日本' X\n             ^"},
      {"<日本>=", "日本=\n^^^^"},
      {"e\u0301e\u0301 <X>", "e\u0301e\u0301 X\n   ^"},
      {"<e\u0301>=", "e\u0301=\n^"},
      {"a<\u0301> b", "a\u0301 b\n^"},
      {"<\u0301> b", "\u0301 b\n^"},
      {"'\U0001F600\u200D\U0001F525' <X>", "'\U0001F600\u200D\U0001F525' X\n       ^"},
      {"'שלום' <X>", "'שלום' X\n       ^"},
      {"<שלום> X", "שלום X\n^^^^"},
      // what would act on a terminal is shown, and takes the columns of what is shown
      {"'\x1b[1m' <X>", "'\\x1b[1m' X\n          ^"},
      {"<'\u202e'>", "'\\u202e'\n^^^^^^^^"},
      {std::string("<$a") + '\0' + ">", "$a\\x00\n^^^^^^"},
      {"\xFF<X>", "\uFFFDX\n ^"},
      {"[$a<\xC3>]", "[$a\uFFFD]\n   ^"},
      // the line alone of a command of several lines
      {"MRSET\n  /<DISPLY>\n  NAME=ALL", "  /DISPLY\n   ^^^^^^"},
      {"MRSET\r\n  /<DISPLY>\r\n  NAME=ALL", "  /DISPLY\n   ^^^^^^"},
      {"A /* b\n c */ <X> /* d\n", " c */ X /* d\n      ^"},
      {"A\n<>", "\n^"},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(Shown(FromMarked(row.text)), row.shown) << testing::PrintToString(row.text);
  }
}

TEST(Excerpt, TheWholeLineOfTheScriptIsShown) {
  EXPECT_EQ(Shown(FromMarked("<M>\nX", "/* a */ ", ".")), "/* a */ M\n        ^");
  EXPECT_EQ(Shown(FromMarked("M\n<X>", "  ", ".  /* end")), "X.  /* end\n^");
  EXPECT_EQ(Shown(FromMarked("M<>", "\t", ".\r")), "        M.\n         ^");
}

TEST(Excerpt, BytesTellWhereTheLineShowsThePlace) {
  struct Row {
    std::string text;
    std::size_t width;
    std::string token;
  };
  const std::vector<Row> rows = {
      {"日\t<a\x1b> b", 76, "a\\x1b"}, {std::string(100, 'x') + "<abc>", 20, "abc"}, {"a<> b", 76, ""}};
  for (const Row& row : rows) {
    const Marked marked = FromMarked(row.text);
    const Excerpt excerpt = ExcerptAt(marked.command, marked.place, row.width);
    EXPECT_EQ(excerpt.line.substr(excerpt.tokenBegin, excerpt.tokenEnd - excerpt.tokenBegin), row.token) << row.text;
  }
}

TEST(Excerpt, ALongLineIsCutAroundThePlace) {
  struct Row {
    std::string text;
    std::string shown;
  };
  const std::string x40(40, 'x');
  const std::string x39(39, 'x');
  const std::vector<Row> rows = {
      {"<a>" + x39, "a" + x39 + "\n^"},
      {"<a>" + x40, "a" + std::string(33, 'x') + "...\n^"},
      {x39 + "<a>", x39 + "a\n" + std::string(39, ' ') + "^"},
      {x40 + "<a>", "..." + std::string(33, 'x') + "a\n" + std::string(36, ' ') + "^"},
      {x40 + "<a>" + x40,
       "..." + std::string(16, 'x') + "a" + std::string(17, 'x') + "...\n" + std::string(19, ' ') + "^"},
      {"b<" + x40 + ">c", "..." + std::string(34, 'x') + "...\n   " + std::string(34, '^')},
      {"<" + x40 + ">", x40 + "\n" + std::string(40, '^')},
      {x39 + "<>", x39 + "\n" + std::string(39, ' ') + "^"},
      {x40 + "<>", "..." + std::string(33, 'x') + "\n" + std::string(36, ' ') + "^"},
      {"<" + x40 + "x>", std::string(34, 'x') + "...\n" + std::string(34, '^')},
      // no character is cut, nor what combines with it
      {"日日日日日日日日日日日日日日日日日日日日<a>",
       "...日日日日日日日日日日日日日日日日a\n                                   ^"},
      {x40 + "e\u0301" + std::string(32, 'y') + "<a>",
       "...e\u0301" + std::string(32, 'y') + "a\n" + std::string(36, ' ') + "^"},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(Shown(FromMarked(row.text), 40), row.shown) << row.text;
  }
}

TEST(Excerpt, NoLineIsTooLongAndNoWidthTooSmall) {
  const std::string longText(10000000, 'x');
  for (const std::string& text :
       {"<a>" + longText, longText + "<a>" + longText, longText + "<>", "<" + longText + ">"}) {
    for (const std::size_t width : {0U, 1U, 20U, 76U}) {
      const Marked marked = FromMarked(text, longText, longText);
      const Excerpt excerpt = ExcerptAt(marked.command, marked.place, width);
      const std::size_t room = width < 20 ? 20 : width;
      EXPECT_LE(DisplayWidth(excerpt.line), room);
      EXPECT_LE(excerpt.caretColumn + excerpt.caretWidth, room);
    }
  }
}

TEST(Excerpt, ACharacterThatCombinesWithoutEndIsCut) {
  std::string marks;
  for (int i = 0; i < 100000; ++i) {
    marks += "\u0301";
  }
  EXPECT_LT(Shown(FromMarked("a" + marks + "<x>" + marks)).size(), 5000U);
}

TEST(Excerpt, PlacesAreNamedInWords) {
  CommandResult command;
  Place place;
  place.line = 3;
  place.column = 14;
  EXPECT_EQ(PlaceInWords(command, place), "line 3, column 14");
  command.source = "all\x1b.script";
  EXPECT_EQ(PlaceInWords(command, place), "all\\x1b.script, line 3, column 14");
}

}  // namespace
}  // namespace standalone
