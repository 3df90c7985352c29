#include "standalone/language/tokenizer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <ostream>
#include <string>
#include <vector>

namespace standalone {

bool operator==(const Token& first, const Token& second) {
  return first.type == second.type && first.text == second.text && first.symbol == second.symbol &&
         first.number == second.number && first.offset == second.offset && first.length == second.length;
}

void PrintTo(const Token& token, std::ostream* stream) {
  *stream << "type " << token.type << " " << testing::PrintToString(token.text) << " symbol " << token.symbol
          << " number " << token.number << " at " << token.offset << " of " << token.length;
}

namespace {

Token Made(TokenSequenceBase::TokenType type, const std::string& text, std::size_t offset, int symbol = kNoSymbol) {
  Token token;
  token.type = type;
  token.text = text;
  token.symbol = symbol;
  token.offset = offset;
  token.length = text.size();
  return token;
}

Token Word(const std::string& text, std::size_t offset) {
  return Made(TokenSequenceBase::kString, text, offset);
}

Token Symbol(const std::string& text, std::size_t offset, int code) {
  return Made(TokenSequenceBase::kSymbol, text, offset, code);
}

Token Number(const std::string& text, std::size_t offset, double value) {
  Token token = Made(TokenSequenceBase::kNumber, text, offset);
  token.number = value;
  return token;
}

Token Quoted(const std::string& text, std::size_t offset, std::size_t length) {
  Token token = Made(TokenSequenceBase::kQuotedString, text, offset);
  token.length = length;
  return token;
}

Token End(std::size_t offset) {
  Token token = Made(TokenSequenceBase::kEnd, "end of command", offset);
  token.length = 0;
  return token;
}

struct Row {
  std::string command;
  std::vector<Token> tokens;
};

void ExpectTokens(const std::vector<Row>& rows) {
  for (const Row& row : rows) {
    EXPECT_EQ(Tokenize(row.command), row.tokens) << testing::PrintToString(row.command);
  }
}

TEST(Tokenizer, ReadsAWholeCommand) {
  ExpectTokens(
      {{"MRSET\n  /MDGROUP NAME=$likes LABEL='What you like' VARIABLES=q1 TO q3 VALUE=1\n  /DISPLAY NAME=[$likes]",
        {Word("MRSET", 0),
         Symbol("/", 8, 11),
         Word("MDGROUP", 9),
         Word("NAME", 17),
         Symbol("=", 21, 3),
         Word("$likes", 22),
         Word("LABEL", 29),
         Symbol("=", 34, 3),
         Quoted("What you like", 35, 15),
         Word("VARIABLES", 51),
         Symbol("=", 60, 3),
         Word("q1", 61),
         Word("TO", 64),
         Word("q3", 67),
         Word("VALUE", 70),
         Symbol("=", 75, 3),
         Number("1", 76, 1),
         Symbol("/", 80, 11),
         Word("DISPLAY", 81),
         Word("NAME", 89),
         Symbol("=", 93, 3),
         Symbol("[", 94, 36),
         Word("$likes", 95),
         Symbol("]", 101, 37),
         End(102)}}});
}

TEST(Tokenizer, AnEmptyCommandHasOnlyItsEnd) {
  ExpectTokens({
      {"", {End(0)}},
      {" \t\r\n\f\v", {End(6)}},
      {"/* nothing */", {End(13)}},
      {"/* nothing", {End(10)}},
  });
}

TEST(Tokenizer, WordsBeginAndGoOnWithCertainCharacters) {
  ExpectTokens({
      {"q1", {Word("q1", 0), End(2)}},
      {"$x @x #x _x", {Word("$x", 0), Word("@x", 3), Word("#x", 6), Word("_x", 9), End(11)}},
      {"a1_.$@#b", {Word("a1_.$@#b", 0), End(8)}},
      {"$", {Word("$", 0), End(1)}},
      {"$1", {Word("$1", 0), End(2)}},
      {"q1. q2", {Word("q1.", 0), Word("q2", 4), End(6)}},
      {"\u00E9t\u00E9=\u6F22", {Word("\u00E9t\u00E9", 0), Symbol("=", 5, 3), Word("\u6F22", 6), End(9)}},
      {"a\u0664", {Word("a", 0), Symbol("\u0664", 1, kOtherSymbols + 0x664), End(3)}},
      {".q", {Symbol(".", 0, kOtherSymbols + '.'), Word("q", 1), End(2)}},
  });
}

TEST(Tokenizer, NumbersAreKeptAsWritten) {
  ExpectTokens({
      {"1", {Number("1", 0, 1), End(1)}},
      {"007", {Number("007", 0, 7), End(3)}},
      {"1.50", {Number("1.50", 0, 1.5), End(4)}},
      {".5", {Number(".5", 0, 0.5), End(2)}},
      {"-.5", {Number("-.5", 0, -0.5), End(3)}},
      {"+3 -4", {Number("+3", 0, 3), Number("-4", 3, -4), End(5)}},
      {"1e3 1E+3 1.5e-3", {Number("1e3", 0, 1000), Number("1E+3", 4, 1000), Number("1.5e-3", 9, 0.0015), End(15)}},
      {"0.1", {Number("0.1", 0, 0.1), End(3)}},
      {"9007199254740993", {Number("9007199254740993", 0, 9007199254740992.0), End(16)}},
      {"1e999 -1e999",
       {Number("1e999", 0, std::numeric_limits<double>::infinity()),
        Number("-1e999", 6, -std::numeric_limits<double>::infinity()), End(12)}},
      {"1e-999", {Number("1e-999", 0, 0), End(6)}},
      {"1e99999999999999999999",
       {Number("1e99999999999999999999", 0, std::numeric_limits<double>::infinity()), End(22)}},
  });
}

TEST(Tokenizer, ANumberEndsWhereItsRuleEnds) {
  const int period = kOtherSymbols + '.';
  ExpectTokens({
      {"1.", {Number("1", 0, 1), Symbol(".", 1, period), End(2)}},
      {"1..5", {Number("1", 0, 1), Symbol(".", 1, period), Number(".5", 2, 0.5), End(4)}},
      {"1.5.2", {Number("1.5", 0, 1.5), Number(".2", 3, 0.2), End(5)}},
      {"1e", {Number("1", 0, 1), Word("e", 1), End(2)}},
      {"1e+", {Number("1", 0, 1), Word("e", 1), Symbol("+", 2, kOtherSymbols + '+'), End(3)}},
      {"1.e5", {Number("1", 0, 1), Symbol(".", 1, period), Word("e5", 2), End(4)}},
      {"1abc", {Number("1", 0, 1), Word("abc", 1), End(4)}},
      {"1-2", {Number("1", 0, 1), Number("-2", 1, -2), End(3)}},
      {"q-2", {Word("q", 0), Number("-2", 1, -2), End(3)}},
      {"- 2", {Symbol("-", 0, kOtherSymbols + '-'), Number("2", 2, 2), End(3)}},
      {"+-2", {Symbol("+", 0, kOtherSymbols + '+'), Number("-2", 1, -2), End(3)}},
      {"-", {Symbol("-", 0, kOtherSymbols + '-'), End(1)}},
      {"-.", {Symbol("-", 0, kOtherSymbols + '-'), Symbol(".", 1, period), End(2)}},
      {"-e5", {Symbol("-", 0, kOtherSymbols + '-'), Word("e5", 1), End(3)}},
      {"1,5", {Number("1", 0, 1), Symbol(",", 1, kOtherSymbols + ','), Number("5", 2, 5), End(3)}},
      {"0x10", {Number("0", 0, 0), Word("x10", 1), End(4)}},
  });
}

TEST(Tokenizer, ADoubledQuoteStandsForOne) {
  ExpectTokens({
      {"'a'", {Quoted("a", 0, 3), End(3)}},
      {"\"a\"", {Quoted("a", 0, 3), End(3)}},
      {"''", {Quoted("", 0, 2), End(2)}},
      {"''''", {Quoted("'", 0, 4), End(4)}},
      {"'it''s'", {Quoted("it's", 0, 7), End(7)}},
      {"\"say \"\"x\"\"\"", {Quoted("say \"x\"", 0, 11), End(11)}},
      {"\"it's\" 'a \"b\"'", {Quoted("it's", 0, 6), Quoted("a \"b\"", 7, 7), End(14)}},
      {"'a' 'b'", {Quoted("a", 0, 3), Quoted("b", 4, 3), End(7)}},
      {"'a'\"b\"", {Quoted("a", 0, 3), Quoted("b", 3, 3), End(6)}},
      {"'/* no comment */'", {Quoted("/* no comment */", 0, 18), End(18)}},
      {"'ALL'", {Quoted("ALL", 0, 5), End(5)}},
      {"' \u00E9. '", {Quoted(" \u00E9. ", 0, 7), End(7)}},
  });
}

TEST(Tokenizer, AnythingElseIsASymbolOfOneCharacter) {
  ExpectTokens({
      {"=/[]", {Symbol("=", 0, 3), Symbol("/", 1, 11), Symbol("[", 2, 36), Symbol("]", 3, 37), End(4)}},
      {"//", {Symbol("/", 0, 11), Symbol("/", 1, 11), End(2)}},
      {"*", {Symbol("*", 0, kOtherSymbols + '*'), End(1)}},
      {"()", {Symbol("(", 0, kOtherSymbols + '('), Symbol(")", 1, kOtherSymbols + ')'), End(2)}},
      {"\u20AC\U0001F600",
       {Symbol("\u20AC", 0, kOtherSymbols + 0x20AC), Symbol("\U0001F600", 3, kOtherSymbols + 0x1F600), End(7)}},
      {"\u00A0", {Symbol("\u00A0", 0, kOtherSymbols + 0xA0), End(2)}},
      {"\u2212"
       "1",
       {Symbol("\u2212", 0, kOtherSymbols + 0x2212), Number("1", 3, 1), End(4)}},
      {"\x1b", {Symbol("\x1b", 0, kOtherSymbols + 0x1B), End(1)}},
  });
}

TEST(Tokenizer, TheReservedWordAllIsTheAllSetsSymbol) {
  ExpectTokens({
      {"ALL all aLL", {Symbol("ALL", 0, 35), Symbol("all", 4, 35), Symbol("aLL", 8, 35), End(11)}},
      {"[ALL]", {Symbol("[", 0, 36), Symbol("ALL", 1, 35), Symbol("]", 4, 37), End(5)}},
      {"ALLX $ALL AL ALL.", {Word("ALLX", 0), Word("$ALL", 5), Word("AL", 10), Word("ALL.", 13), End(17)}},
  });
}

TEST(Tokenizer, BlanksAndCommentsOnlySeparate) {
  ExpectTokens({
      {" a\tb\r\nc\fd\ve ", {Word("a", 1), Word("b", 3), Word("c", 6), Word("d", 8), Word("e", 10), End(12)}},
      {"a/* x */b", {Word("a", 0), Word("b", 8), End(9)}},
      {"a /* x\nb", {Word("a", 0), Word("b", 7), End(8)}},
      {"a /* x\r\nb */",
       {Word("a", 0), Word("b", 8), Symbol("*", 10, kOtherSymbols + '*'), Symbol("/", 11, 11), End(12)}},
      {"a /*/ b\nc", {Word("a", 0), Word("c", 8), End(9)}},
      {"a /* 'x */ b", {Word("a", 0), Word("b", 11), End(12)}},
      {"a/**/", {Word("a", 0), End(5)}},
  });
}

TEST(Tokenizer, WhatCannotBeReadIsRefusedWithItsPlace) {
  struct ErrorRow {
    std::string command;
    std::string sentence;
    std::size_t offset;
  };
  const std::string notClosed = "A string is not closed on its line.";
  const std::string notUtf8 = "The command is not valid UTF-8.";
  const std::string nul = "The command holds a NUL character.";
  const std::vector<ErrorRow> rows = {
      {"a '", notClosed, 2},
      {"a 'b", notClosed, 2},
      {"a \"b'", notClosed, 2},
      {"a 'b''", notClosed, 2},
      {"a 'b\n'", notClosed, 2},
      {"a 'b\r\nc'", notClosed, 2},
      {"'a' '", notClosed, 4},
      {"a\nb 'c", notClosed, 4},
      {"a \xFF", notUtf8, 2},
      {"a '\xC3'", notUtf8, 3},
      {"/* \x80 */ a", notUtf8, 3},
      {"\xED\xA0\x80", notUtf8, 0},
      {std::string("ab\0c", 4), nul, 2},
      {std::string("'\0'", 3), nul, 1},
      {std::string("'ab\0", 4), nul, 3},
  };
  for (const ErrorRow& row : rows) {
    SCOPED_TRACE(testing::PrintToString(row.command));
    try {
      Tokenize(row.command);
      ADD_FAILURE() << "was accepted";
    } catch (const TokenizerError& error) {
      EXPECT_EQ(error.what(), row.sentence);
      EXPECT_EQ(error.Offset(), row.offset);
    }
  }
}

TEST(Tokenizer, AnErrorTellsHowFarItReaches) {
  struct SizeRow {
    std::string command;
    std::string culprit;
  };
  const std::vector<SizeRow> rows = {
      {"A 'bc", "'bc"}, {"A 'b''c", "'b''c"},   {"A \"b \t\r\nC", "\"b"},
      {"A '", "'"},     {"A \xFF\xFF", "\xFF"}, {std::string("A\0B", 3), std::string(1, '\0')},
  };
  for (const SizeRow& row : rows) {
    try {
      Tokenize(row.command);
      ADD_FAILURE() << "was accepted";
    } catch (const TokenizerError& error) {
      EXPECT_EQ(row.command.substr(error.Offset(), error.Size()), row.culprit);
    }
  }
}

// These end in time only when the work grows with the command and not with its square.
TEST(Tokenizer, LongCommandsTakeTimeInProportion) {
  constexpr std::size_t kTimes = 500'000;
  struct LengthRow {
    std::string part;
    std::size_t tokens;
  };
  const std::vector<LengthRow> rows = {{"/**/", 0}, {"q1 ", 1},  {"1e+ ", 3},  {"''\n", 1},
                                       {"-", 1},    {"/*\n", 0}, {"\u20AC", 1}};
  for (const LengthRow& row : rows) {
    std::string command;
    for (std::size_t i = 0; i < kTimes; ++i) {
      command += row.part;
    }
    EXPECT_EQ(Tokenize(command).size(), row.tokens * kTimes + 1) << row.part;
  }
}

}  // namespace
}  // namespace standalone
