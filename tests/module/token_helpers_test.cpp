#include "tests/module/parsing.h"

namespace module_test {
namespace {

using scripted::Number;
using scripted::Quoted;
using scripted::Symbol;
using scripted::Token;
using scripted::Word;

constexpr TokenSequenceBase::TokenType kAllTypes[] = {TokenSequenceBase::kEnd, TokenSequenceBase::kString,
                                                      TokenSequenceBase::kNumber, TokenSequenceBase::kQuotedString,
                                                      TokenSequenceBase::kSymbol};

// IsTokenEqualWith

bool MatchesKeyword(const Token& token, const std::string& keyword) {
  Parsing parsing(Tokens{token});
  parsing.At(0);
  return IsTokenEqualWith(parsing.Stream(), keyword);
}

bool IsExactly(const Token& token, const std::string& keyword) {
  Parsing parsing(Tokens{token});
  parsing.At(0);
  return IsTokenEqualWith(parsing.Stream(), keyword, false);
}

TEST(IsTokenEqualWith, MatchesKeywordsUnderTheHostsRuleByDefault) {
  EXPECT_TRUE(MatchesKeyword(Word("NAME"), "NAME"));
  EXPECT_TRUE(MatchesKeyword(Word("NAM"), "NAME"));
  EXPECT_TRUE(MatchesKeyword(Word("name"), "NAME"));
  EXPECT_TRUE(MatchesKeyword(Word("Nam"), "NAME"));
  EXPECT_FALSE(MatchesKeyword(Word("NA"), "NAME"));
  EXPECT_FALSE(MatchesKeyword(Word("NAMES"), "NAME"));
  EXPECT_FALSE(MatchesKeyword(Word(""), "NAME"));
}

TEST(IsTokenEqualWith, PassesTheTokenInUpperCaseFirstAndTheKeywordSecond) {
  Parsing parsing("mdg");
  parsing.At(0);
  EXPECT_TRUE(IsTokenEqualWith(parsing.Stream(), "MDGROUP", true));
  EXPECT_EQ(parsing.Calls("KeywordMatch"), (Lines{R"(KeywordMatch("MDG", "MDGROUP") -> 1)"}));
}

TEST(IsTokenEqualWith, TakesAnyAnswerButZeroForAMatch) {
  for (const int truth : {1, 2, 256, -1}) {
    SCOPED_TRACE(truth);
    Parsing parsing("NAME");
    parsing.At(0).host.HostHooks().truth = truth;
    EXPECT_TRUE(IsTokenEqualWith(parsing.Stream(), "NAME"));
    EXPECT_FALSE(IsTokenEqualWith(parsing.Stream(), "LABEL"));
  }
}

TEST(IsTokenEqualWith, LooksAtTheTextAndNotAtTheType) {
  for (const TokenSequenceBase::TokenType type : kAllTypes) {
    SCOPED_TRACE(type);
    EXPECT_TRUE(MatchesKeyword(Odd(type, "name"), "NAME"));
    EXPECT_TRUE(IsExactly(Odd(type, "/"), "/"));
    EXPECT_TRUE(IsExactly(Odd(type, "="), "="));
    EXPECT_FALSE(IsExactly(Odd(type, "slash", scripted::kSlash), "/"));
  }
}

TEST(IsTokenEqualWith, ComparesWholeTextsWithoutKeywordMatch) {
  EXPECT_TRUE(IsExactly(Symbol("/"), "/"));
  EXPECT_TRUE(IsExactly(Quoted("/"), "/"));
  EXPECT_TRUE(IsExactly(Quoted("="), "="));
  EXPECT_FALSE(IsExactly(Symbol("="), "/"));
  EXPECT_FALSE(IsExactly(Quoted("//"), "/"));
  EXPECT_FALSE(IsExactly(Quoted("/ "), "/"));
  EXPECT_FALSE(IsExactly(Quoted(" /"), "/"));
  EXPECT_FALSE(IsExactly(Quoted(""), "/"));
  EXPECT_FALSE(IsExactly(Word("NAM"), "NAME"));
  EXPECT_FALSE(IsExactly(Word("NAMES"), "NAME"));
}

TEST(IsTokenEqualWith, ComparesTheUpperCaseTextWithoutKeywordMatch) {
  EXPECT_TRUE(IsExactly(Word("name"), "NAME"));
  EXPECT_FALSE(IsExactly(Word("name"), "name"));
}

TEST(IsTokenEqualWith, DoesNotAskTheHostWithoutKeywordMatch) {
  Parsing parsing("/");
  parsing.At(0);
  EXPECT_TRUE(IsTokenEqualWith(parsing.Stream(), "/", false));
  EXPECT_EQ(parsing.Calls("KeywordMatch"), Lines{});
}

TEST(IsTokenEqualWith, NeverMovesTheCursor) {
  Parsing parsing("MRSET /NAME");
  parsing.At(1);
  IsTokenEqualWith(parsing.Stream(), "/", false);
  IsTokenEqualWith(parsing.Stream(), "=", false);
  IsTokenEqualWith(parsing.Stream(), "NAME");
  EXPECT_EQ(parsing.Cursor(), "1 /");
  EXPECT_EQ(parsing.Calls("Next("), Lines{});
  EXPECT_EQ(parsing.Calls("SetPosition("), Lines{});
}

// IsTruncatedTokenEqualWith

bool IsLabelSource(const Token& token) {
  Parsing parsing(Tokens{token});
  parsing.At(0);
  const bool result = IsTruncatedTokenEqualWith(parsing.Stream(), "LABELSOURCE", 6);
  EXPECT_EQ(parsing.host.Violations(), Lines{});
  return result;
}

TEST(IsTruncatedTokenEqualWith, LooksAtNothingBeyondTheSixthCharacter) {
  for (const char* text :
       {"LABELS", "LABELSO", "LABELSOURCE", "LABELSX", "LABELS1", "LABELSOURCES", "labels", "LabelsX"}) {
    EXPECT_TRUE(IsLabelSource(Word(text))) << text;
  }
}

TEST(IsTruncatedTokenEqualWith, RefusesATokenThatDiffersInTheFirstSixCharacters) {
  for (const char* text : {"LABELX", "LABELT", "LABEL ", "XLABELS", "LABLES", "KABELS"}) {
    EXPECT_FALSE(IsLabelSource(Quoted(text))) << text;
  }
}

TEST(IsTruncatedTokenEqualWith, RefusesAShorterTokenWithoutComparing) {
  for (const char* text : {"LABEL", "LAB", "L", ""}) {
    SCOPED_TRACE(text);
    Parsing parsing(Tokens{Quoted(text)});
    parsing.At(0);
    EXPECT_FALSE(IsTruncatedTokenEqualWith(parsing.Stream(), "LABELSOURCE", 6));
    EXPECT_EQ(parsing.Calls("stricmp"), Lines{});
  }
}

TEST(IsTruncatedTokenEqualWith, LimitsBothTextsToTheLength) {
  Parsing parsing("LabelsX");
  parsing.At(0);
  EXPECT_TRUE(IsTruncatedTokenEqualWith(parsing.Stream(), "LABELSOURCE", 6));
  EXPECT_EQ(parsing.Calls("stricmp"), (Lines{R"(ZEVAMBqstricmp_A("LABELSX", 6, "LABELSOURCE", 6, 0) -> 1)"}));
}

TEST(IsTruncatedTokenEqualWith, TakesTheLengthFromItsCaller) {
  Parsing parsing("NAMXX");
  parsing.At(0);
  EXPECT_TRUE(IsTruncatedTokenEqualWith(parsing.Stream(), "NAME", 3));
  EXPECT_FALSE(IsTruncatedTokenEqualWith(parsing.Stream(), "NAME", 4));
  EXPECT_TRUE(IsTruncatedTokenEqualWith(parsing.Stream(), "NAMXXYY", 5));
  EXPECT_FALSE(IsTruncatedTokenEqualWith(parsing.Stream(), "NAMXXYY", 6));
}

TEST(IsTruncatedTokenEqualWith, CountsBytes) {
  Parsing parsing(Tokens{Word("LAB\xC3\xA9x")});  // five characters
  parsing.At(0);
  EXPECT_FALSE(IsTruncatedTokenEqualWith(parsing.Stream(), "LABELSOURCE", 6));
  EXPECT_EQ(parsing.Calls("stricmp").size(), 1U);
}

TEST(IsTruncatedTokenEqualWith, TakesAnyAnswerButZeroForYes) {
  for (const int truth : {1, 2, 256, -1}) {
    SCOPED_TRACE(truth);
    Parsing parsing("LABELS LABELX");
    parsing.At(0).host.HostHooks().truth = truth;
    EXPECT_TRUE(IsTruncatedTokenEqualWith(parsing.Stream(), "LABELSOURCE", 6));
    parsing.At(1);
    EXPECT_FALSE(IsTruncatedTokenEqualWith(parsing.Stream(), "LABELSOURCE", 6));
  }
}

TEST(IsTruncatedTokenEqualWith, LooksAtTheTextAndNotAtTheType) {
  for (const TokenSequenceBase::TokenType type : kAllTypes) {
    EXPECT_TRUE(IsLabelSource(Odd(type, "labels"))) << type;
  }
}

TEST(IsTruncatedTokenEqualWith, NeverMovesTheCursor) {
  Parsing parsing("MRSET LABELS LABEL");
  parsing.At(1);
  IsTruncatedTokenEqualWith(parsing.Stream(), "LABELSOURCE", 6);
  EXPECT_EQ(parsing.Cursor(), "1 LABELS");
  parsing.At(2);
  IsTruncatedTokenEqualWith(parsing.Stream(), "LABELSOURCE", 6);
  EXPECT_EQ(parsing.Cursor(), "2 LABEL");
  EXPECT_EQ(parsing.Calls("Next("), Lines{});
}

// MovePrevious

TEST(MovePrevious, MakesTheTokenBeforeTheCurrentOneCurrent) {
  Parsing parsing("MRSET /DISPLAY NAME");
  parsing.At("NAME");
  MovePrevious(parsing.Stream());
  EXPECT_EQ(parsing.Cursor(), "2 DISPLAY");
  EXPECT_TRUE(parsing.Stream().Next());
  EXPECT_EQ(parsing.Cursor(), "3 NAME");
}

TEST(MovePrevious, StepsBackFromTheSecondTokenToTheFirst) {
  Parsing parsing("MRSET DISPLAY");
  parsing.At(1);
  MovePrevious(parsing.Stream());
  EXPECT_EQ(parsing.Cursor(), "0 MRSET");
}

TEST(MovePrevious, StepsBackFromTheEndToTheLastToken) {
  Parsing parsing("MRSET /DISPLAY");
  parsing.At(3);
  MovePrevious(parsing.Stream());
  EXPECT_EQ(parsing.Cursor(), "2 DISPLAY");
  EXPECT_FALSE(parsing.Stream().Next());
}

TEST(MovePrevious, RepositionsAndAdvances) {
  Parsing parsing("MRSET /DISPLAY NAME");
  parsing.At(3);
  MovePrevious(parsing.Stream());
  EXPECT_EQ(parsing.host.Trace(),
            (Lines{"tokens#1.Position() -> 3", "tokens#1.SetPosition(2)", "tokens#1.Next() -> true"}));
}

// CheckNextToken

struct FollowerRow {
  const char* name;
  Tokens followers;  ///< of the value, which is token 1
  bool result;
  std::string cursor;
  Lines messages;
};

ParseOutcome CheckFollowers(const Tokens& followers) {
  Parsing parsing(Tokens{Word("NAME"), Word("$value")} + followers);
  return parsing.At(1).Run(
      [](ZEVA_TokenSequence& stream, const ZEVA_DataSource&, MRSetSubcommand&) { return CheckNextToken(stream); });
}

void ExpectFollowers(const std::vector<FollowerRow>& rows) {
  for (const FollowerRow& row : rows) {
    EXPECT_EQ(CheckFollowers(row.followers), (ParseOutcome{row.result, "", row.cursor, row.messages})) << row.name;
  }
}

TEST(CheckNextToken, LeavesTheEndOfTheCommandCurrent) {
  ExpectFollowers({{"the end", {}, true, "2 end of command", {}}});
}

TEST(CheckNextToken, AcceptsASlashAndReturnsToTheValue) {
  ExpectFollowers({{"/", {Symbol("/")}, true, "1 $value", {}},
                   {"/ and a word", {Symbol("/"), Word("DISPLAY")}, true, "1 $value", {}}});
}

TEST(CheckNextToken, ReportsAnyOtherSymbol) {
  ExpectFollowers({{",", {Symbol(",")}, false, "2 ,", {"error: Unexpected token , in this context"}},
                   {"=", {Symbol("=")}, false, "2 =", {"error: Unexpected token = in this context"}},
                   {"[", {Symbol("[")}, false, "2 [", {"error: Unexpected token [ in this context"}},
                   {"all", {Symbol("all")}, false, "2 all", {"error: Unexpected token all in this context"}}});
}

TEST(CheckNextToken, AcceptsAWordWithAnEqualsSignAndReturnsToTheValue) {
  ExpectFollowers({{"LABEL =", {Word("LABEL"), Symbol("=")}, true, "1 $value", {}},
                   {"frob =", {Word("frob"), Symbol("="), Symbol("/")}, true, "1 $value", {}}});
}

TEST(CheckNextToken, AcceptsAWordThatNoSymbolFollows) {
  ExpectFollowers({{"LABEL and the end", {Word("LABEL")}, true, "1 $value", {}},
                   {"LABEL and a word", {Word("LABEL"), Word("x"), Symbol("/")}, true, "1 $value", {}},
                   {"LABEL and a number", {Word("LABEL"), Number("1")}, true, "1 $value", {}},
                   {"LABEL and a string", {Word("LABEL"), Quoted("x")}, true, "1 $value", {}}});
}

TEST(CheckNextToken, ReportsTheSymbolOtherThanEqualsBehindAWord) {
  ExpectFollowers(
      {{"LABEL /", {Word("LABEL"), Symbol("/")}, false, "3 /", {"error: Unexpected token / in this context"}},
       {"LABEL ,", {Word("LABEL"), Symbol(",")}, false, "3 ,", {"error: Unexpected token , in this context"}},
       {"LABEL All",
        {Word("LABEL"), Symbol("All"), Symbol("=")},
        false,
        "3 All",
        {"error: Unexpected token All in this context"}}});
}

TEST(CheckNextToken, ReportsANumberOrAQuotedStringBehindTheValue) {
  ExpectFollowers({{"1.50", {Number("1.50")}, false, "2 1.50", {"error: Unexpected token 1.50 in this context"}},
                   {"1 =", {Number("1"), Symbol("=")}, false, "2 1", {"error: Unexpected token 1 in this context"}},
                   {"'a B'", {Quoted("a B")}, false, "2 a B", {"error: Unexpected token a B in this context"}},
                   {"'x' =", {Quoted("x"), Symbol("=")}, false, "2 x", {"error: Unexpected token x in this context"}}});
}

TEST(CheckNextToken, LooksAtTypeAndCodeAndNotAtTheText) {
  const auto symbol = TokenSequenceBase::kSymbol;
  ExpectFollowers(
      {{"'/'", {Quoted("/")}, false, "2 /", {"error: Unexpected token / in this context"}},
       {"slash", {Odd(symbol, "slash", scripted::kSlash)}, true, "1 $value", {}},
       {"/ of another code", {Odd(symbol, "/", 12)}, false, "2 /", {"error: Unexpected token / in this context"}},
       {"LABEL equals", {Word("LABEL"), Odd(symbol, "equals", scripted::kEquals)}, true, "1 $value", {}},
       {"LABEL = of another code",
        {Word("LABEL"), Odd(symbol, "=", 4)},
        false,
        "3 =",
        {"error: Unexpected token = in this context"}}});
}

TEST(CheckNextToken, LooksAtTheCodesOfSymbolsOnly) {
  const auto quoted = TokenSequenceBase::kQuotedString;
  ExpectFollowers({{"a string with the code of /",
                    {Odd(quoted, "x", scripted::kSlash)},
                    false,
                    "2 x",
                    {"error: Unexpected token x in this context"}},
                   {"a word with the code of /",
                    {Odd(TokenSequenceBase::kString, "LABEL", scripted::kSlash)},
                    true,
                    "1 $value",
                    {}},
                   {"a string with the code of / behind a word",
                    {Word("LABEL"), Odd(quoted, "x", scripted::kSlash)},
                    true,
                    "1 $value",
                    {}}});
}

TEST(CheckNextToken, IssuesItsErrorWithOneArgument) {
  Parsing parsing(Tokens{Word("NAME"), Word("$value"), Symbol(",")});
  parsing.At(1);
  EXPECT_FALSE(CheckNextToken(parsing.Stream()));
  ASSERT_EQ(parsing.host.Messages().size(), 1U);
  const scripted::Message& message = parsing.host.Messages().front();
  EXPECT_EQ(message.level, 4);
  EXPECT_EQ(message.pattern, "Unexpected token ^1 in this context");
  EXPECT_EQ(message.arguments, (std::vector<scripted::Argument>{scripted::Text(",")}));
}

}  // namespace
}  // namespace module_test
