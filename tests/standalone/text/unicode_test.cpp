#include "standalone/text/unicode.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace standalone {
namespace {

/// The UTF-8 form of a code point, written down here apart from the code under test.
std::string Encoded(char32_t code) {
  const auto tail = [code](unsigned shift) { return static_cast<char>(0x80 | ((code >> shift) & 0x3F)); };
  if (code < 0x80) {
    return {static_cast<char>(code)};
  }
  if (code < 0x800) {
    return {static_cast<char>(0xC0 | (code >> 6)), tail(0)};
  }
  if (code < 0x10000) {
    return {static_cast<char>(0xE0 | (code >> 12)), tail(6), tail(0)};
  }
  return {static_cast<char>(0xF0 | (code >> 18)), tail(12), tail(6), tail(0)};
}

bool IsSurrogate(char32_t code) {
  return code >= 0xD800 && code <= 0xDFFF;
}

TEST(Unicode, EveryCodePointIsOneValidCharacter) {
  for (char32_t code = 0; code <= 0x10FFFF; ++code) {
    const std::string text = Encoded(code);
    ASSERT_EQ(IsValidUtf8(text), !IsSurrogate(code)) << std::hex << static_cast<unsigned>(code);
    if (IsSurrogate(code)) {
      continue;
    }
    ASSERT_EQ(CharacterLength(text, 0), text.size()) << std::hex << static_cast<unsigned>(code);
    ASSERT_EQ(CodePointAt(text, 0), code) << std::hex << static_cast<unsigned>(code);
  }
}

TEST(Unicode, UpperCaseNeverGrowsAndIsItsOwnUpperCase) {
  for (char32_t code = 0; code <= 0x10FFFF; ++code) {
    const std::string text = Encoded(code);
    const std::string upper = ToUpper(text);
    ASSERT_LE(upper.size(), text.size()) << text;
    ASSERT_EQ(ToUpper(upper), upper) << text;
  }
}

TEST(Unicode, InvalidBytesAreFoundAndReplacedOneByOne) {
  struct Row {
    std::string text;
    std::size_t validLength;
    std::string replaced;
  };
  const std::vector<Row> rows = {
      {"", 0, ""},
      {"plain", 5, "plain"},
      {"12345678901234567", 17, "12345678901234567"},
      {"na\u00EFve", 6, "na\u00EFve"},
      {"\x80", 0, "\uFFFD"},
      {"12345678\x80", 8, "12345678\uFFFD"},
      {"a\xFFz", 1, "a\uFFFDz"},
      {"\xC3", 0, "\uFFFD"},
      {"\xC3(", 0, "\uFFFD("},
      {"\xC0\xAF", 0, "\uFFFD\uFFFD"},
      {"\xE0\x80\xAF", 0, "\uFFFD\uFFFD\uFFFD"},
      {"\xE2\x82", 0, "\uFFFD\uFFFD"},
      {"\xE2\x82z", 0, "\uFFFD\uFFFDz"},
      {"\xED\xA0\x80", 0, "\uFFFD\uFFFD\uFFFD"},
      {"\xF0\x9F\x98", 0, "\uFFFD\uFFFD\uFFFD"},
      {"\xF0\x8F\xBF\xBF", 0, "\uFFFD\uFFFD\uFFFD\uFFFD"},
      {"\xF4\x90\x80\x80", 0, "\uFFFD\uFFFD\uFFFD\uFFFD"},
      {"\xF8\x88\x80\x80\x80", 0, "\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD"},
      {"\u20AC\xE2\x82\u20AC", 3, "\u20AC\uFFFD\uFFFD\u20AC"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(testing::PrintToString(row.text));
    EXPECT_EQ(ValidUtf8Length(row.text), row.validLength);
    EXPECT_EQ(IsValidUtf8(row.text), row.validLength == row.text.size());
    EXPECT_EQ(ReplaceInvalidUtf8(row.text), row.replaced);
  }
}

TEST(Unicode, UpperCaseMapsEachCharacterByItsSimpleMapping) {
  struct Row {
    std::string text;
    std::string upper;
  };
  const std::vector<Row> rows = {
      {"", ""},
      {"azAZ09_$@#", "AZAZ09_$@#"},
      {"`{[", "`{["},
      {"\u00E9t\u00E9", "\u00C9T\u00C9"},
      {"\u0436\u0443\u043A", "\u0416\u0423\u041A"},
      {"stra\u00DFe", "STRA\u00DFE"},  // no simple mapping
      {"\u0131", "I"},                 // becomes shorter
      {"\u017F", "S"},
      {"\u0250", "\u0250"},  // the mapped form takes three bytes instead of two
      {"\u01C6", "\u01C4"},
      {"\U00010428", "\U00010400"},
      {"a\xFF"
       "b\xC3",
       "A\xFF"
       "B\xC3"},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(ToUpper(row.text), row.upper) << row.text;
  }
}

int Sign(int value) {
  return (value > 0 ? 1 : 0) - (value < 0 ? 1 : 0);
}

TEST(Unicode, TextsAreOrderedByTheirUpperCaseForms) {
  struct Row {
    std::string first;
    std::string second;
    int order;
  };
  const std::vector<Row> rows = {
      {"", "", 0},
      {"", "a", -1},
      {"likes", "LIKES", 0},
      {"a", "B", -1},
      {"B", "a", 1},
      {"_", "a", 1},  // "_" comes after "A"
      {"ab", "A", 1},
      {"a", "AB", -1},
      {"\u00E9", "\u00C9", 0},
      {"x\u0436y", "X\u0416Y", 0},
      {"z", "\u00E9", -1},
      {"\u00E9", "z", 1},
      {"\u0131", "i", 0},  // a character of two bytes and one of one
      {"a\u0131b", "AIB", 0},
      {"i\u0131", "I", 1},
      {"\xFF", "\xFE", 1},
      {"\xFF", "\xFF", 0},
      {std::string("a\0b", 3), std::string("A\0C", 3), -1},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.first + " and " + row.second);
    EXPECT_EQ(Sign(CompareNoCase(row.first, row.second)), row.order);
    EXPECT_EQ(Sign(CompareNoCase(row.second, row.first)), -row.order);
    EXPECT_EQ(Sign(ToUpper(row.first).compare(ToUpper(row.second))), row.order);
  }
}

TEST(Unicode, APrefixNeverEndsWithinACharacter) {
  struct Row {
    std::string text;
    std::size_t bytes;
    std::string prefix;
  };
  const std::vector<Row> rows = {
      {"", 0, ""},
      {"", 5, ""},
      {"abc", 0, ""},
      {"abc", 2, "ab"},
      {"abc", 3, "abc"},
      {"abc", 9, "abc"},
      {"\u00E9x", 0, ""},
      {"\u00E9x", 1, ""},
      {"\u00E9x", 2, "\u00E9"},
      {"a\u20ACb", 1, "a"},
      {"a\u20ACb", 2, "a"},
      {"a\u20ACb", 3, "a"},
      {"a\u20ACb", 4, "a\u20AC"},
      {"\U0001F600\U0001F600", 3, ""},
      {"\U0001F600\U0001F600", 4, "\U0001F600"},
      {"\U0001F600\U0001F600", 7, "\U0001F600"},
      {"\xE2\x82z", 1, "\xE2"},  // bytes of no character stand alone
      {"\x80\x80\x80", 2, "\x80\x80"},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(PrefixOfWholeCharacters(row.text, row.bytes), row.prefix) << row.text << " to " << row.bytes;
  }
}

TEST(Unicode, LettersAreThoseOfEveryScript) {
  struct Row {
    std::string text;
    bool isLetter;
  };
  const std::vector<Row> rows = {
      {"a", true},       {"Z", true},       {"0", false},         {"_", false},     {"$", false},
      {"\u00E9", true},  {"\u0416", true},  {"\u6F22", true},     {"\u05D0", true}, {"\u0301", false},
      {"\u0664", false}, {"\u20AC", false}, {"\U00010428", true}, {"\x80", false},  {"\xC3", false},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(IsLetterAt(row.text, 0), row.isLetter) << testing::PrintToString(row.text);
  }
}

TEST(Unicode, AByteOfNoCharacterIsOneByteLongAndShownAsTheReplacement) {
  const std::string text = "a\xE2\x82z";
  EXPECT_EQ(CharacterLength(text, 1), 1U);
  EXPECT_EQ(CharacterLength(text, 2), 1U);
  EXPECT_EQ(CodePointAt(text, 1), U'\uFFFD');
  EXPECT_EQ(CodePointAt(text, 3), U'z');
}

TEST(Unicode, DisplayWidthCountsTerminalColumns) {
  struct Row {
    std::string text;
    std::size_t width;
  };
  const std::vector<Row> rows = {
      {"", 0},
      {"Tea", 3},
      {"caf\u00E9", 4},
      {"cafe\u0301", 4},             // combining
      {"\u6F22\u5B57", 4},           // wide
      {"\uFF21", 2},                 // full width
      {"\uFF71", 1},                 // half width
      {"\U0001F600", 2},             // emoji
      {"\u1112\u1161\u11AB", 2},     // one syllable of three parts
      {"\u05E9\u05B8", 1},           // a letter with a vowel point
      {"a\u200Bb\u200Dc\uFEFF", 3},  // zero width
      {"\u202Eabc\u202C", 3},        // format characters
      {"co\u00ADop", 5},             // a terminal shows a soft hyphen
      {"\x1b\x7f\n", 0},             // control characters
      {"\xFF\xE2\x82", 3},           // bytes of no character
  };
  for (const Row& row : rows) {
    EXPECT_EQ(DisplayWidth(row.text), row.width) << testing::PrintToString(row.text);
  }
}

}  // namespace
}  // namespace standalone
