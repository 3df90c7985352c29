#include <algorithm>
#include <cmath>
#include <limits>
#include <tuple>
#include <utility>

#include "tests/module/parsing.h"

namespace module_test {
namespace {

using scripted::Number;
using scripted::Quoted;
using scripted::Symbol;
using scripted::Word;

/// A record with something in every field that the five fill.
MRSetSubcommand RecordBefore() {
  MRSetSubcommand record;
  record.fName = "old";
  record.fLabel = "old";
  record.fValue = "old";
  record.fValueIsNumber = true;
  record.fLabelSourceVarLabel = true;
  record.fCategoryLabelsCountedValues = true;
  return record;
}

/// Runs one of them on tokens of which the first is its keyword.
ParseOutcome RunParser(const Parser& parser, const Tokens& tokens, const MRSetSubcommand& record = {}) {
  Parsing parsing(tokens);
  parsing.record = record;
  return parsing.At(0).Run(parser);
}

struct AttributeRow {
  const char* name;
  Tokens tokens;
  ParseOutcome expected;
};

void ExpectAttribute(const Parser& parser, const std::vector<AttributeRow>& rows) {
  for (const AttributeRow& row : rows) {
    EXPECT_EQ(RunParser(parser, row.tokens), row.expected) << row.name;
  }
}

struct TextRow {
  const char* command;
  ParseOutcome expected;
};

void ExpectText(const Parser& parser, const std::vector<TextRow>& rows) {
  for (const TextRow& row : rows) {
    EXPECT_EQ(RunParser(parser, scripted::Tokenize(row.command)), row.expected) << row.command;
  }
}

/// Tokens of a keyword and the value behind "=", and what follows.
Tokens Assign(const char* keyword, const scripted::Token& value, const Tokens& followers = {}) {
  return Tokens{Word(keyword), Symbol("="), value} + followers;
}

// What the five have in common.

struct Attribute {
  const char* keyword;
  Parser parser;
  const char* messageTemplate;
  std::string valid;  ///< a value, as written
};

std::vector<Attribute> Attributes() {
  const char* semicolon = "MRSET ^1 was expecting \"=\". Found ^2...;";
  const char* none = "MRSET ^1 was expecting \"=\". Found ^2...";
  return {{"NAME", kParseMRName, semicolon, "$a"},
          {"LABEL", kParseLabel, semicolon, "'text'"},
          {"LABELSOURCE", kParseLabelSource, semicolon, "VARLABEL"},
          {"CATEGORYLABELS", kParseCategoryLabels, semicolon, "COUNTEDVALUES"},
          {"VALUE", kParseValue, none, "1"}};
}

std::string MissingEquals(const Attribute& attribute, const std::string& found) {
  return "error: " + scripted::RenderTemplate(attribute.messageTemplate,
                                              {scripted::Text(attribute.keyword), scripted::Text(found)});
}

TEST(AttributeParsers, ReportAMissingEqualsSignWithTheKeywordInUpperCaseAndTheTokenAsWritten) {
  for (const Attribute& attribute : Attributes()) {
    std::string typed = attribute.keyword;
    std::transform(typed.begin(), typed.end(), typed.begin(), [](char c) { return static_cast<char>(c | 0x20); });
    for (const char* found : {"$Ab", "/", "1.0", "[", "All", "name"}) {
      const std::string command = typed + " " + found;
      const ParseOutcome outcome = RunParser(attribute.parser, scripted::Tokenize(command));
      EXPECT_EQ(outcome, (ParseOutcome{false, "", "1 " + std::string(found), {MissingEquals(attribute, found)}}))
          << command;
    }
  }
}

TEST(AttributeParsers, SpellTheMissingEqualsSignInTwoWays) {
  const Lines expected = {"error: MRSET NAME was expecting \"=\". Found x...;",
                          "error: MRSET LABEL was expecting \"=\". Found x...;",
                          "error: MRSET LABELSOURCE was expecting \"=\". Found x...;",
                          "error: MRSET CATEGORYLABELS was expecting \"=\". Found x...;",
                          "error: MRSET VALUE was expecting \"=\". Found x..."};
  Lines messages;
  for (const Attribute& attribute : Attributes()) {
    const Lines lines = RunParser(attribute.parser, {Word(attribute.keyword), Word("x")}).messages;
    messages.insert(messages.end(), lines.begin(), lines.end());
  }
  EXPECT_EQ(messages, expected);
}

TEST(AttributeParsers, PassTheKeywordAndTheFoundTokenAsTwoArguments) {
  for (const Attribute& attribute : Attributes()) {
    Parsing parsing(Tokens{Word(attribute.keyword), Word("x")});
    EXPECT_FALSE(parsing.At(0).Run(attribute.parser).result);
    ASSERT_EQ(parsing.host.Messages().size(), 1U);
    const scripted::Message& message = parsing.host.Messages().front();
    EXPECT_EQ(message.pattern, attribute.messageTemplate);
    EXPECT_EQ(message.arguments,
              (std::vector<scripted::Argument>{scripted::Text(attribute.keyword), scripted::Text("x")}));
  }
}

TEST(AttributeParsers, ReportTheEndOfTheCommandInPlaceOfTheEqualsSign) {
  for (const Attribute& attribute : Attributes()) {
    EXPECT_EQ(RunParser(attribute.parser, {Word(attribute.keyword)}),
              (ParseOutcome{false, "", "1 end of command", {MissingEquals(attribute, "end of command")}}));
  }
}

TEST(AttributeParsers, TakeAQuotedEqualsSignForAnEqualsSign) {
  for (const Attribute& attribute : Attributes()) {
    const Tokens tokens = Tokens{Word(attribute.keyword), Quoted("=")} + scripted::Tokenize(attribute.valid);
    EXPECT_TRUE(RunParser(attribute.parser, tokens).result) << attribute.keyword;
  }
}

TEST(AttributeParsers, TakeNoOtherTokenWithTheCodeOfAnEqualsSignForOne) {
  for (const Attribute& attribute : Attributes()) {
    const Tokens tokens = Tokens{Word(attribute.keyword), Odd(TokenSequenceBase::kSymbol, "==", scripted::kEquals)} +
                          scripted::Tokenize(attribute.valid);
    EXPECT_EQ(RunParser(attribute.parser, tokens).messages, (Lines{MissingEquals(attribute, "==")}));
  }
}

TEST(AttributeParsers, LeaveTheValueCurrentBeforeASlashOrAKeyword) {
  for (const Attribute& attribute : Attributes()) {
    for (const char* follower : {" /DISPLAY", " NAME=$b", " NAME", " FROB 1"}) {
      const std::string command = attribute.keyword + std::string("=") + attribute.valid + follower;
      const Tokens tokens = scripted::Tokenize(command);
      const ParseOutcome outcome = RunParser(attribute.parser, tokens);
      EXPECT_TRUE(outcome.result) << command;
      EXPECT_EQ(outcome.cursor, "2 " + tokens[2].text) << command;
      EXPECT_EQ(outcome.messages, Lines{}) << command;
    }
  }
}

TEST(AttributeParsers, LeaveTheEndCurrentBehindTheLastValue) {
  for (const Attribute& attribute : Attributes()) {
    const std::string command = attribute.keyword + std::string("=") + attribute.valid;
    const ParseOutcome outcome = RunParser(attribute.parser, scripted::Tokenize(command));
    EXPECT_TRUE(outcome.result) << command;
    EXPECT_EQ(outcome.cursor, "3 end of command") << command;
  }
}

TEST(AttributeParsers, FailWhereTheTokenBehindTheValueIsNotLegal) {
  for (const Attribute& attribute : Attributes()) {
    for (const auto& [follower, cursor, text] : std::vector<std::tuple<std::string, std::string, std::string>>{
             {"'Quoted'", "3 Quoted", "Quoted"}, {"7", "3 7", "7"}, {",", "3 ,", ","}, {"LABEL /", "4 /", "/"}}) {
      const std::string command = attribute.keyword + std::string("=") + attribute.valid + " " + follower;
      const ParseOutcome outcome = RunParser(attribute.parser, scripted::Tokenize(command));
      EXPECT_FALSE(outcome.result) << command;
      EXPECT_EQ(outcome.cursor, cursor) << command;
      EXPECT_EQ(outcome.messages, (Lines{"error: Unexpected token " + text + " in this context"})) << command;
    }
  }
}

TEST(AttributeParsers, TakeAQuotedKeywordForTheKeyword) {
  for (const Attribute& attribute : Attributes()) {
    const Tokens tokens = Tokens{Quoted(attribute.keyword), Symbol("=")} + scripted::Tokenize(attribute.valid);
    EXPECT_TRUE(RunParser(attribute.parser, tokens).result) << attribute.keyword;
  }
}

// ParseMRName

TEST(ParseMRName, StoresTheNameAsWritten) {
  ExpectText(kParseMRName, {{"NAME=$likes", {true, "name <$likes>", "3 end of command"}},
                            {"name = $LiKes /", {true, "name <$LiKes>", "2 $LiKes"}},
                            {"NAM=$LIKES", {true, "name <$LIKES>", "3 end of command"}}});
}

TEST(ParseMRName, ReplacesAnEarlierName) {
  EXPECT_EQ(RunParser(kParseMRName, Assign("NAME", Word("$new")), RecordBefore()).record,
            "name <$new> label <old> value <old> number labelsource countedvalues");
}

TEST(ParseMRName, ReportsAValueThatIsNoWord) {
  const auto report = [](const std::string& text) {
    return Lines{"error: Unexpected MRSET name value " + text + " was found."};
  };
  ExpectText(kParseMRName, {{"NAME=", {false, "", "2 end of command", report("end of command")}},
                            {"NAME='$a'", {false, "", "2 $a", report("$a")}},
                            {"NAME=1", {false, "", "2 1", report("1")}},
                            {"NAME=/", {false, "", "2 /", report("/")}},
                            {"NAME=All", {false, "", "2 All", report("All")}},
                            {"NAME=[$a]", {false, "", "2 [", report("[")}}});
}

TEST(ParseMRName, KeepsTheOldNameWhereTheValueIsNoWord) {
  EXPECT_EQ(RunParser(kParseMRName, Assign("NAME", Quoted("$a")), RecordBefore()).record, ToText(RecordBefore()));
  EXPECT_EQ(RunParser(kParseMRName, {Word("NAME"), Word("$a")}, RecordBefore()).record, ToText(RecordBefore()));
}

TEST(ParseMRName, StoresANameWithoutDollarAndReportsIt) {
  ExpectText(kParseMRName,
             {{"NAME=Likes", {false, "name <Likes>", "2 Likes", {"error: The MRSET name Likes must start with $."}}},
              {"NAME=a$", {false, "name <a$>", "2 a$", {"error: The MRSET name a$ must start with $."}}}});
}

TEST(ParseMRName, ReportsAnEmptyWordAsANameWithoutDollar) {
  ExpectAttribute(
      kParseMRName,
      {{"an empty word", Assign("NAME", Word("")), {false, "", "2 ", {"error: The MRSET name  must start with $."}}}});
}

TEST(ParseMRName, AcceptsAnyNameOfSixtyFourBytes) {
  const std::string name = "$" + std::string(63, 'a');
  EXPECT_EQ(RunParser(kParseMRName, Assign("NAME", Word(name))),
            (ParseOutcome{true, "name <" + name + ">", "3 end of command"}));
}

TEST(ParseMRName, StoresANameOfSixtyFiveBytesAndReportsIt) {
  const std::string name = "$" + std::string(64, 'a');
  EXPECT_EQ(RunParser(kParseMRName, Assign("NAME", Word(name))),
            (ParseOutcome{false,
                          "name <" + name + ">",
                          "2 " + name,
                          {"error: The MRSET name " + name + " has more than 8 chars length"}}));
}

TEST(ParseMRName, CountsTheBytesOfTheNameAndNotItsCharacters) {
  std::string name = "$";
  for (int count = 0; count < 31; ++count) {
    name += "\xC3\xA9";
  }
  const auto accepts = [](const std::string& candidate) {
    Parsing parsing(Assign("NAME", Word(candidate)));
    parsing.host.HostHooks().validateName = [](const std::string&) { return 2; };
    return parsing.At(0).Run(kParseMRName).result;
  };
  EXPECT_TRUE(accepts(name + "x"));
  EXPECT_FALSE(accepts(name + "\xC3\xA9"));
}

TEST(ParseMRName, TakesOnlyTwoFromTheHostForAValidName) {
  for (const int answer : {-2, -1, 0, 1, 3, 258}) {
    Parsing parsing(Assign("NAME", Word("$Fine")));
    parsing.host.HostHooks().validateName = [=](const std::string&) { return answer; };
    EXPECT_EQ(parsing.At(0).Run(kParseMRName),
              (ParseOutcome{false, "name <$Fine>", "2 $Fine", {"error: The MRSET name $Fine is invalid"}}))
        << answer;
  }
  Parsing parsing(Assign("NAME", Word("$%!")));
  parsing.host.HostHooks().validateName = [](const std::string&) { return 2; };
  EXPECT_TRUE(parsing.At(0).Run(kParseMRName).result);
}

TEST(ParseMRName, GivesTheHostTheNameAsWritten) {
  Parsing parsing(Assign("NAME", Word("$LiKes")));
  parsing.At(0).Run(kParseMRName);
  EXPECT_EQ(parsing.Calls("ValidateZEVAName"), (Lines{R"(ValidateZEVAName("$LiKes") -> 2)"}));
}

TEST(ParseMRName, ChecksTheDollarThenTheLengthThenTheHostsRules) {
  const std::string longName(70, 'x');
  const auto refused = [](const std::string& name) {
    Parsing parsing(Assign("NAME", Word(name)));
    parsing.host.HostHooks().validateName = [](const std::string&) { return 0; };
    const Lines messages = parsing.At(0).Run(kParseMRName).messages;
    return std::make_pair(messages, parsing.Calls("ValidateZEVAName").size());
  };
  EXPECT_EQ(refused(longName),
            std::make_pair(Lines{"error: The MRSET name " + longName + " must start with $."}, std::size_t{0}));
  EXPECT_EQ(refused("x"), std::make_pair(Lines{"error: The MRSET name x must start with $."}, std::size_t{0}));
  EXPECT_EQ(
      refused("$" + longName),
      std::make_pair(Lines{"error: The MRSET name $" + longName + " has more than 8 chars length"}, std::size_t{0}));
  EXPECT_EQ(refused("$x"), std::make_pair(Lines{"error: The MRSET name $x is invalid"}, std::size_t{1}));
}

TEST(ParseMRName, ChecksTheNameBeforeTheTokenBehindIt) {
  ExpectText(kParseMRName,
             {{"NAME=x 'y'", {false, "name <x>", "2 x", {"error: The MRSET name x must start with $."}}},
              {"NAME=$1 'y'", {false, "name <$1>", "2 $1", {"error: The MRSET name $1 is invalid"}}},
              {"NAME=$x 'y'", {false, "name <$x>", "3 y", {"error: Unexpected token y in this context"}}}});
}

// ParseLabel

TEST(ParseLabel, StoresTheTextOfAQuotedString) {
  ExpectText(kParseLabel, {{"LABEL='What do you like?'", {true, "label <What do you like?>", "3 end of command"}},
                           {"label=\"It's\" /", {true, "label <It's>", "2 It's"}},
                           {"LAB='x'", {true, "label <x>", "3 end of command"}},
                           {"LABEL=''", {true, "", "3 end of command"}}});
}

TEST(ParseLabel, ReplacesAnEarlierLabelAlsoByAnEmptyOne) {
  EXPECT_EQ(RunParser(kParseLabel, Assign("LABEL", Quoted("new")), RecordBefore()).record,
            "name <old> label <new> value <old> number labelsource countedvalues");
  EXPECT_EQ(RunParser(kParseLabel, Assign("LABEL", Quoted("")), RecordBefore()).record,
            "name <old> value <old> number labelsource countedvalues");
}

TEST(ParseLabel, ReportsAValueThatIsNotQuotedAndKeepsTheOldLabel) {
  const auto report = [](const std::string& text) {
    return Lines{"error: A quoted label string was expected. Found " + text + " .."};
  };
  const std::string before = ToText(RecordBefore());
  for (const char* value : {"Word", "1", "/", "All", "$a"}) {
    EXPECT_EQ(RunParser(kParseLabel, scripted::Tokenize(std::string("LABEL=") + value), RecordBefore()),
              (ParseOutcome{false, before, "2 " + std::string(value), report(value)}));
  }
  EXPECT_EQ(RunParser(kParseLabel, scripted::Tokenize("LABEL="), RecordBefore()),
            (ParseOutcome{false, before, "2 end of command", report("end of command")}));
}

TEST(ParseLabel, KeepsALabelOf255BytesWithoutWarning) {
  const std::string label(255, 'x');
  Parsing parsing(Assign("LABEL", Quoted(label)));
  EXPECT_EQ(parsing.At(0).Run(kParseLabel), (ParseOutcome{true, "label <" + label + ">", "3 end of command"}));
  EXPECT_EQ(parsing.Calls("zstncpy"), Lines{});
}

TEST(ParseLabel, CutsALabelOf256BytesWithAWarningThatHasAllOfIt) {
  const std::string label(256, 'x');
  Parsing parsing(Assign("LABEL", Quoted(label)));
  EXPECT_EQ(parsing.At(0).Run(kParseLabel),
            (ParseOutcome{true,
                          "label <" + label.substr(0, 255) + ">",
                          "3 end of command",
                          {"warning: The MRSET label " + label + " will be truncated to a length of 255 chars."}}));
  ASSERT_EQ(parsing.host.Messages().size(), 1U);
  EXPECT_EQ(parsing.host.Messages().front().arguments, std::vector<scripted::Argument>{scripted::Text(label)});
}

TEST(ParseLabel, CutsALongLabelBetweenCharacters) {
  const std::string whole(254, 'x');
  for (const std::string& last :
       {std::string("\xC3\xA9"), std::string("\xE2\x82\xAC"), std::string("\xF0\x9F\x98\x80")}) {
    EXPECT_EQ(RunParser(kParseLabel, Assign("LABEL", Quoted(whole + last))).record, "label <" + whole + ">") << last;
  }
  EXPECT_EQ(RunParser(kParseLabel, Assign("LABEL", Quoted(whole.substr(1) + "\xC3\xA9y"))).record,
            "label <" + whole.substr(1) + "\xC3\xA9>");
}

TEST(ParseLabel, LeavesTheCutToTheHost) {
  const std::string label(300, 'x');
  Parsing parsing(Assign("LABEL", Quoted(label)));
  parsing.At(0).Run(kParseLabel);
  EXPECT_EQ(parsing.Calls("zstncpy"),
            (Lines{"ZEVAMBzstncpy_A(target, \"" + label + "\", 256, 0) -> \"" + label.substr(0, 255) + "\""}));
}

TEST(ParseLabel, WarnsBeforeItChecksTheTokenBehindTheLabel) {
  const std::string label(256, 'x');
  EXPECT_EQ(RunParser(kParseLabel, Assign("LABEL", Quoted(label), {Number("1")})),
            (ParseOutcome{false,
                          "label <" + label.substr(0, 255) + ">",
                          "3 1",
                          {"warning: The MRSET label " + label + " will be truncated to a length of 255 chars.",
                           "error: Unexpected token 1 in this context"}}));
}

TEST(ParseLabel, StoresTheLabelAlsoWhereTheTokenBehindItIsNotLegal) {
  ExpectText(kParseLabel,
             {{"LABEL='x' 'y'", {false, "label <x>", "3 y", {"error: Unexpected token y in this context"}}}});
}

// ParseLabelSource

TEST(ParseLabelSource, SetsTheFlagForVarlabel) {
  ExpectText(kParseLabelSource, {{"LABELSOURCE=VARLABEL", {true, "labelsource", "3 end of command"}},
                                 {"labelsource=VarLabel /", {true, "labelsource", "2 VarLabel"}},
                                 {"LABELSOURCE=VAR", {true, "labelsource", "3 end of command"}}});
}

TEST(ParseLabelSource, AcceptsTheKeywordByItsFirstSixCharacters) {
  ExpectText(kParseLabelSource, {{"LABELS=VARLABEL", {true, "labelsource", "3 end of command"}},
                                 {"LABELSO=VARLABEL", {true, "labelsource", "3 end of command"}},
                                 {"LABELSX=VARLABEL", {true, "labelsource", "3 end of command"}},
                                 {"labels=VARLABEL", {true, "labelsource", "3 end of command"}}});
}

TEST(ParseLabelSource, NamesTheWholeKeywordWhereTheEqualsSignIsMissing) {
  ExpectText(kParseLabelSource,
             {{"labels VARLABEL",
               {false, "", "1 VARLABEL", {"error: MRSET LABELSOURCE was expecting \"=\". Found VARLABEL...;"}}}});
}

TEST(ParseLabelSource, ReportsAnyOtherValue) {
  const auto report = [](const std::string& text) {
    return Lines{"error: The keyword VARLABEL was expected.  Found " + text + "..."};
  };
  ExpectText(kParseLabelSource, {{"LABELSOURCE=VARLABELS", {false, "", "2 VARLABELS", report("VARLABELS")}},
                                 {"LABELSOURCE=Counted", {false, "", "2 Counted", report("Counted")}},
                                 {"LABELSOURCE='VARLABEL'", {false, "", "2 VARLABEL", report("VARLABEL")}},
                                 {"LABELSOURCE=1", {false, "", "2 1", report("1")}},
                                 {"LABELSOURCE=/", {false, "", "2 /", report("/")}},
                                 {"LABELSOURCE=", {false, "", "2 end of command", report("end of command")}}});
}

TEST(ParseLabelSource, ClearsTheFlagAtEntry) {
  for (const char* command : {"LABELSOURCE VARLABEL", "LABELSOURCE=FROB", "LABELSOURCE='VARLABEL'"}) {
    const ParseOutcome outcome = RunParser(kParseLabelSource, scripted::Tokenize(command), RecordBefore());
    EXPECT_FALSE(outcome.result) << command;
    EXPECT_EQ(outcome.record, "name <old> label <old> value <old> number countedvalues") << command;
  }
}

TEST(ParseLabelSource, SetsTheFlagAlsoWhereTheTokenBehindTheValueIsNotLegal) {
  ExpectText(kParseLabelSource, {{"LABELSOURCE=VARLABEL 1",
                                  {false, "labelsource", "3 1", {"error: Unexpected token 1 in this context"}}}});
}

// ParseCategoryLabels

TEST(ParseCategoryLabels, SetsTheFlagForCountedValues) {
  ExpectText(kParseCategoryLabels, {{"CATEGORYLABELS=COUNTEDVALUES", {true, "countedvalues", "3 end of command"}},
                                    {"categorylabels=CountedValues /", {true, "countedvalues", "2 CountedValues"}},
                                    {"CAT=COU", {true, "countedvalues", "3 end of command"}}});
}

TEST(ParseCategoryLabels, ClearsTheFlagForVarlabels) {
  for (const char* command : {"CATEGORYLABELS=VARLABELS", "categorylabels=varlabels", "CAT=VAR"}) {
    EXPECT_EQ(RunParser(kParseCategoryLabels, scripted::Tokenize(command), RecordBefore()),
              (ParseOutcome{true, "name <old> label <old> value <old> number labelsource", "3 end of command"}))
        << command;
  }
}

TEST(ParseCategoryLabels, TriesVarlabelsFirst) {
  Parsing parsing("CATEGORYLABELS=X");
  parsing.host.HostHooks().keywordMatch = Naming({"X"}, {"VARLABELS", "COUNTEDVALUES"});
  EXPECT_EQ(parsing.At(0).Run(kParseCategoryLabels), (ParseOutcome{true, "", "3 end of command"}));
}

TEST(ParseCategoryLabels, ReportsAnyOtherValue) {
  const auto report = [](const std::string& text) {
    return Lines{"error: Expected VARLABELS or COUNTEDVALUES.  Found " + text + "..."};
  };
  ExpectText(kParseCategoryLabels,
             {{"CATEGORYLABELS=Frob", {false, "", "2 Frob", report("Frob")}},
              {"CATEGORYLABELS=COUNTEDVALUESX", {false, "", "2 COUNTEDVALUESX", report("COUNTEDVALUESX")}},
              {"CATEGORYLABELS='VARLABELS'", {false, "", "2 VARLABELS", report("VARLABELS")}},
              {"CATEGORYLABELS='COUNTEDVALUES'", {false, "", "2 COUNTEDVALUES", report("COUNTEDVALUES")}},
              {"CATEGORYLABELS=1", {false, "", "2 1", report("1")}},
              {"CATEGORYLABELS=/", {false, "", "2 /", report("/")}},
              {"CATEGORYLABELS=", {false, "", "2 end of command", report("end of command")}}});
}

TEST(ParseCategoryLabels, ClearsTheFlagAtEntry) {
  for (const char* command :
       {"CATEGORYLABELS COUNTEDVALUES", "CATEGORYLABELS=FROB", "CATEGORYLABELS='COUNTEDVALUES'"}) {
    const ParseOutcome outcome = RunParser(kParseCategoryLabels, scripted::Tokenize(command), RecordBefore());
    EXPECT_FALSE(outcome.result) << command;
    EXPECT_EQ(outcome.record, "name <old> label <old> value <old> number labelsource") << command;
  }
}

TEST(ParseCategoryLabels, SetsTheFlagAlsoWhereTheTokenBehindTheValueIsNotLegal) {
  ExpectText(kParseCategoryLabels, {{"CATEGORYLABELS=COUNTEDVALUES 1",
                                     {false, "countedvalues", "3 1", {"error: Unexpected token 1 in this context"}}}});
}

TEST(ParseCategoryLabels, ChecksTheTokenBehindVarlabels) {
  ExpectText(kParseCategoryLabels,
             {{"CATEGORYLABELS=VARLABELS 1", {false, "", "3 1", {"error: Unexpected token 1 in this context"}}}});
}

// ParseValue

TEST(ParseValue, StoresANumberAsItWasWritten) {
  ExpectText(kParseValue, {{"VALUE=1", {true, "value <1> number", "3 end of command"}},
                           {"value=1.0 /", {true, "value <1.0> number", "2 1.0"}},
                           {"VAL=-7", {true, "value <-7> number", "3 end of command"}},
                           {"VALUE=1e3", {true, "value <1e3> number", "3 end of command"}},
                           {"VALUE=007", {true, "value <007> number", "3 end of command"}}});
}

TEST(ParseValue, StoresTheTextOfAQuotedString) {
  ExpectText(kParseValue, {{"VALUE='yes'", {true, "value <yes>", "3 end of command"}},
                           {"VALUE=' Yes ' /", {true, "value < Yes >", "2  Yes "}},
                           {"VALUE='2.5'", {true, "value <2.5>", "3 end of command"}},
                           {"VALUE=''", {true, "", "3 end of command"}}});
}

TEST(ParseValue, ReplacesAnEarlierValueAndItsKind) {
  EXPECT_EQ(RunParser(kParseValue, Assign("VALUE", Quoted("x")), RecordBefore()).record,
            "name <old> label <old> value <x> labelsource countedvalues");
  MRSetSubcommand record = RecordBefore();
  record.fValueIsNumber = false;
  EXPECT_EQ(RunParser(kParseValue, Assign("VALUE", Number("3")), record).record,
            "name <old> label <old> value <3> number labelsource countedvalues");
}

TEST(ParseValue, ReportsAWordOrSymbolAndKeepsTheOldValueAndItsKind) {
  const std::string before = ToText(RecordBefore());
  for (const char* value : {"Word", "$a", "/", "All", "["}) {
    EXPECT_EQ(RunParser(kParseValue, scripted::Tokenize(std::string("VALUE=") + value), RecordBefore()),
              (ParseOutcome{false,
                            before,
                            "2 " + std::string(value),
                            {"error: The MRSET value was expected. Found " + std::string(value) + "..."}}));
  }
  EXPECT_EQ(RunParser(kParseValue, scripted::Tokenize("VALUE="), RecordBefore()),
            (ParseOutcome{
                false, before, "2 end of command", {"error: The MRSET value was expected. Found end of command..."}}));
  EXPECT_EQ(RunParser(kParseValue, scripted::Tokenize("VALUE 1"), RecordBefore()),
            (ParseOutcome{false, before, "1 1", {"error: MRSET VALUE was expecting \"=\". Found 1..."}}));
}

TEST(ParseValue, ReportsANumberThatIsNoIntegerAndGoesOn) {
  ExpectText(
      kParseValue,
      {{"VALUE=2.5",
        {true, "value <2.5> number", "3 end of command", {"error: The counted value 2.5 is not an integer."}}},
       {"VALUE=-0.5 /", {true, "value <-0.5> number", "2 -0.5", {"error: The counted value -0.5 is not an integer."}}},
       {"VALUE=1e-1 NAME=$a",
        {true, "value <1e-1> number", "2 1e-1", {"error: The counted value 1e-1 is not an integer."}}}});
}

TEST(ParseValue, LeavesTheResultForANonIntegerToTheTokenBehindIt) {
  ExpectText(kParseValue,
             {{"VALUE=2.5 'x'",
               {false,
                "value <2.5> number",
                "3 x",
                {"error: The counted value 2.5 is not an integer.", "error: Unexpected token x in this context"}}}});
}

TEST(ParseValue, ComparesTheNumbersValueWithItsFloor) {
  struct NumberRow {
    double number;
    bool isInteger;
  };
  const double infinity = std::numeric_limits<double>::infinity();
  for (const NumberRow& row : std::vector<NumberRow>{{0.0, true},
                                                     {-0.0, true},
                                                     {-3.0, true},
                                                     {1e300, true},
                                                     {9007199254740993.0, true},
                                                     {infinity, true},
                                                     {-infinity, true},
                                                     {std::nan(""), false},
                                                     {0.5, false},
                                                     {-0.5, false},
                                                     {2.999999, false},
                                                     {3.000001, false},
                                                     {std::numeric_limits<double>::denorm_min(), false}}) {
    const Tokens tokens = Assign("VALUE", Odd(TokenSequenceBase::kNumber, "text", 0, row.number));
    const Lines messages = row.isInteger ? Lines{} : Lines{"error: The counted value text is not an integer."};
    EXPECT_EQ(RunParser(kParseValue, tokens), (ParseOutcome{true, "value <text> number", "3 end of command", messages}))
        << row.number;
  }
}

TEST(ParseValue, AsksOnlyANumberForItsValue) {
  Parsing parsing(Assign("VALUE", Quoted("2.5")));
  EXPECT_TRUE(parsing.At(0).Run(kParseValue).result);
  EXPECT_EQ(parsing.Calls("NumberValue("), Lines{});
}

TEST(ParseValue, IssuesTheIntegerErrorWithTheStoredText) {
  Parsing parsing(Assign("VALUE", Odd(TokenSequenceBase::kNumber, "2,5", 0, 2.5)));
  parsing.At(0).Run(kParseValue);
  ASSERT_EQ(parsing.host.Messages().size(), 1U);
  EXPECT_EQ(parsing.host.Messages().front().level, 4);
  EXPECT_EQ(parsing.host.Messages().front().arguments, std::vector<scripted::Argument>{scripted::Text("2,5")});
}

}  // namespace
}  // namespace module_test
