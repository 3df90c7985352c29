#include "tests/module/parsing.h"

namespace module_test {
namespace {

using scripted::Quoted;
using scripted::Symbol;
using scripted::Word;

// ParseNames

/// Runs it on tokens of which the first is NAME, with a record that has something in both fields.
ParseOutcome ReadNames(const Tokens& tokens) {
  Parsing parsing(tokens);
  parsing.record.fNames = {"$old"};
  parsing.record.fAll = true;
  return parsing.At(0).Run(kParseNames);
}

struct TextRow {
  const char* command;
  ParseOutcome expected;
};

void ExpectNames(const std::vector<TextRow>& rows) {
  for (const TextRow& row : rows) {
    EXPECT_EQ(ReadNames(scripted::Tokenize(row.command)), row.expected) << row.command;
  }
}

struct TokensRow {
  const char* name;
  Tokens tokens;
  ParseOutcome expected;
};

void ExpectNames(const std::vector<TokensRow>& rows) {
  for (const TokensRow& row : rows) {
    EXPECT_EQ(ReadNames(row.tokens), row.expected) << row.name;
  }
}

TEST(ParseNames, KeepsTheNamesAsWrittenAndInTheirOrder) {
  ExpectNames(std::vector<TextRow>{{"NAME=[$b $A $b]", {true, "names ($b $A $b)", "6 ]"}},
                                   {"name = [$Likes]", {true, "names ($Likes)", "4 ]"}},
                                   {"NAM=[$a] /DISPLAY", {true, "names ($a)", "4 ]"}}});
}

TEST(ParseNames, AcceptsNamesWithoutDollar) {
  ExpectNames(std::vector<TextRow>{{"NAME=[likes NAME q1]", {true, "names (likes NAME q1)", "6 ]"}}});
}

TEST(ParseNames, AcceptsAnEmptyList) {
  ExpectNames(std::vector<TextRow>{{"NAME=[]", {true, "", "3 ]"}}});
}

TEST(ParseNames, SetsTheFlagForTheAllSetsSymbol) {
  ExpectNames(std::vector<TextRow>{{"NAME=ALL", {true, "all", "2 ALL"}}, {"NAME=all NAME", {true, "all", "2 all"}}});
}

TEST(ParseNames, ReportsAMissingEqualsSignWithTheTokenAsWritten) {
  const auto report = [](const std::string& text) {
    return ParseOutcome{false, "", "1 " + text, {"error: Names \"=\" was expected. Found " + text + "..."}};
  };
  ExpectNames(std::vector<TextRow>{{"NAME $Abc", report("$Abc")},
                                   {"NAME [$a]", report("[")},
                                   {"NAME All", report("All")},
                                   {"NAME /", report("/")},
                                   {"NAME 1.0", report("1.0")},
                                   {"NAME", report("end of command")}});
}

TEST(ParseNames, TakesAQuotedEqualsSignForAnEqualsSign) {
  ExpectNames(
      std::vector<TokensRow>{{"'='", {Word("NAME"), Quoted("="), Symbol("ALL")}, {true, "all", "2 ALL"}},
                             {"another text of its code",
                              {Word("NAME"), Odd(TokenSequenceBase::kSymbol, "==", scripted::kEquals), Symbol("ALL")},
                              {false, "", "1 ==", {"error: Names \"=\" was expected. Found ==..."}}}});
}

TEST(ParseNames, ReportsAValueThatIsNeitherSymbolNorBracketNorAll) {
  const Lines report = {"error: Square bracket expected."};
  ExpectNames(std::vector<TextRow>{{"NAME=$a", {false, "", "2 $a", report}},
                                   {"NAME='x'", {false, "", "2 x", report}},
                                   {"NAME=1", {false, "", "2 1", report}},
                                   {"NAME='['", {false, "", "2 [", report}},
                                   {"NAME='ALL'", {false, "", "2 ALL", report}},
                                   {"NAME=", {false, "", "2 end of command", report}}});
}

TEST(ParseNames, AcceptsEveryOtherSymbolAsNoNames) {
  ExpectNames(std::vector<TextRow>{{"NAME=]", {true, "", "2 ]"}},
                                   {"NAME=/", {true, "", "2 /"}},
                                   {"NAME==", {true, "", "2 ="}},
                                   {"NAME=( $a )", {true, "", "2 ("}},
                                   {"NAME=,", {true, "", "2 ,"}}});
}

TEST(ParseNames, LooksAtTheCodeOfATokenWhateverItsType) {
  const auto quoted = TokenSequenceBase::kQuotedString;
  const auto number = TokenSequenceBase::kNumber;
  const auto word = TokenSequenceBase::kString;
  const Tokens list = {Word("$a"), Symbol("]")};
  ExpectNames(
      std::vector<TokensRow>{{"a string with the code of [",
                              Tokens{Word("NAME"), Symbol("="), Odd(quoted, "x", scripted::kOpenBracket)} + list,
                              {true, "names ($a)", "4 ]"}},
                             {"a word with the code of [",
                              Tokens{Word("NAME"), Symbol("="), Odd(word, "x", scripted::kOpenBracket)} + list,
                              {true, "names ($a)", "4 ]"}},
                             {"a string with the code of ALL",
                              {Word("NAME"), Symbol("="), Odd(quoted, "x", scripted::kAllSets)},
                              {true, "all", "2 x"}},
                             {"a number with the code of ALL",
                              {Word("NAME"), Symbol("="), Odd(number, "1", scripted::kAllSets)},
                              {true, "all", "2 1"}},
                             {"an end with the code of ALL",
                              {Word("NAME"), Symbol("="), Odd(TokenSequenceBase::kEnd, "end", scripted::kAllSets)},
                              {true, "all", "2 end"}},
                             {"a string with the code of ]",
                              {Word("NAME"), Symbol("="), Odd(quoted, "x", scripted::kCloseBracket)},
                              {false, "", "2 x", {"error: Square bracket expected."}}},
                             {"a word named ALL",
                              {Word("NAME"), Symbol("="), Word("ALL")},
                              {false, "", "2 ALL", {"error: Square bracket expected."}}},
                             {"a symbol [ of another code",
                              {Word("NAME"), Symbol("="), Odd(TokenSequenceBase::kSymbol, "[", 5)},
                              {true, "", "2 ["}}});
}

TEST(ParseNames, EndsTheListAtASymbolWithTheCodeOfTheBracket) {
  const Tokens begin = {Word("NAME"), Symbol("="), Symbol("["), Word("$a")};
  ExpectNames(std::vector<TokensRow>{
      {"another text",
       begin + Tokens{Odd(TokenSequenceBase::kSymbol, "close", scripted::kCloseBracket)},
       {true, "names ($a)", "4 close"}},
      {"a string of that code",
       begin + Tokens{Odd(TokenSequenceBase::kQuotedString, "x", scripted::kCloseBracket)},
       {false, "names ($a)", "4 x", {"error: Name or right sq bracket expected. Found x..."}}},
      {"a word of that code",
       begin + Tokens{Odd(TokenSequenceBase::kString, "x", scripted::kCloseBracket), Symbol("]")},
       {true, "names ($a x)", "5 ]"}}});
}

TEST(ParseNames, ReportsAnyOtherTokenInTheListAsWritten) {
  const auto report = [](const std::string& text) {
    return Lines{"error: Name or right sq bracket expected. Found " + text + "..."};
  };
  ExpectNames(std::vector<TextRow>{{"NAME=[$a,$b]", {false, "names ($a)", "4 ,", report(",")}},
                                   {"NAME=[,", {false, "", "3 ,", report(",")}},
                                   {"NAME=[$a /DISPLAY", {false, "names ($a)", "4 /", report("/")}},
                                   {"NAME=[All]", {false, "", "3 All", report("All")}},
                                   {"NAME=[[$a]]", {false, "", "3 [", report("[")}},
                                   {"NAME=[$a 'x y']", {false, "names ($a)", "4 x y", report("x y")}},
                                   {"NAME=[$a $b 1.0]", {false, "names ($a $b)", "5 1.0", report("1.0")}}});
}

TEST(ParseNames, ReportsAListThatTheEndOfTheCommandCutsOff) {
  ExpectNames(std::vector<TextRow>{
      {"NAME=[", {false, "", "3 end of command", {"error: Square bracket expected."}}},
      {"NAME=[$a $b", {false, "names ($a $b)", "5 end of command", {"error: Square bracket expected."}}}});
}

TEST(ParseNames, ClearsBothFieldsAtEntry) {
  ExpectNames(std::vector<TextRow>{{"NAME $a", {false, "", "1 $a", {"error: Names \"=\" was expected. Found $a..."}}},
                                   {"NAME=$a", {false, "", "2 $a", {"error: Square bracket expected."}}},
                                   {"NAME=,", {true, "", "2 ,"}}});
}

TEST(ParseNames, TakesAQuotedKeywordForTheKeyword) {
  ExpectNames(std::vector<TextRow>{{"'name'=ALL", {true, "all", "2 ALL"}}});
}

/// A stream whose token of one index is a symbol until its code has been read, and the end from then on.
class TurningIntoTheEnd final : public ZEVA_TokenSequence {
 public:
  explicit TurningIntoTheEnd(int index) : ZEVA_TokenSequence(true), fIndex(index) {}

  TokenType Type() const override { return fCodeRead ? kEnd : ZEVA_TokenSequence::Type(); }

  int Symbol() const override {
    fCodeRead = fCodeRead || Position() == fIndex;
    return ZEVA_TokenSequence::Symbol();
  }

 private:
  int fIndex;
  mutable bool fCodeRead = false;
};

TEST(ParseNames, ReportsTheEndOfTheCommandInPlaceOfASymbol) {
  Parsing parsing("NAME=[$a ,");
  TurningIntoTheEnd stream(4);
  stream.Next();
  std::vector<std::string> names;
  bool all = true;
  EXPECT_FALSE(ParseNames(stream, names, all));
  EXPECT_EQ(parsing.host.MessageLines(), (Lines{"error: Right square bracket expected. EoC found."}));
  EXPECT_EQ(names, (Lines{"$a"}));
  EXPECT_FALSE(all);
  EXPECT_EQ(stream.Position(), 4);
}

TEST(ParseNames, TakesTheBracketAlsoWhereItTurnsIntoTheEnd) {
  const Parsing parsing("NAME=[$a ]");
  TurningIntoTheEnd stream(4);
  stream.Next();
  std::vector<std::string> names;
  bool all = true;
  EXPECT_TRUE(ParseNames(stream, names, all));
}

TEST(ParseNames, IssuesItsErrorsWithTheArgumentsTheyHave) {
  struct ArgumentRow {
    const char* command;
    const char* pattern;
    std::vector<scripted::Argument> arguments;
  };
  const std::vector<ArgumentRow> rows = {
      {"NAME $a", "Names \"=\" was expected. Found ^1...", {scripted::Text("$a")}},
      {"NAME=$a", "Square bracket expected.", {}},
      {"NAME=[", "Square bracket expected.", {}},
      {"NAME=[,", "Name or right sq bracket expected. Found ^1...", {scripted::Text(",")}},
      {"NAME=['x'", "Name or right sq bracket expected. Found ^1...", {scripted::Text("x")}}};
  for (const ArgumentRow& row : rows) {
    Parsing parsing(row.command);
    parsing.At(0).Run(kParseNames);
    ASSERT_EQ(parsing.host.Messages().size(), 1U) << row.command;
    const scripted::Message& message = parsing.host.Messages().front();
    EXPECT_EQ(message.level, 4) << row.command;
    EXPECT_EQ(message.pattern, row.pattern) << row.command;
    EXPECT_EQ(message.arguments, row.arguments) << row.command;
  }
}

// ParseDisplay and ParseDelete

struct NameSubcommand {
  const char* keyword;
  MRSetSubcommand::Type type;
  Parser parser;
  const char* emptyMessage;
};

std::vector<NameSubcommand> NameSubcommands() {
  const auto parseDisplay = [](ZEVA_TokenSequence& stream, const ZEVA_DataSource&, MRSetSubcommand& record) {
    return ParseDisplay(stream, record);
  };
  const auto parseDelete = [](ZEVA_TokenSequence& stream, const ZEVA_DataSource&, MRSetSubcommand& record) {
    return ParseDelete(stream, record);
  };
  return {{"DISPLAY", MRSetSubcommand::kDISPLAY, parseDisplay, "error: Empty Display found"},
          {"DELETE", MRSetSubcommand::kDELETE, parseDelete, "error: Empty Delete found"}};
}

ParseOutcome ParseNameSubcommand(const NameSubcommand& subcommand, Parsing& parsing) {
  parsing.record.fType = subcommand.type;
  return parsing.At(2).Run(subcommand.parser);
}

/// A row for both: in the expected outcome, X stands for the keyword.
struct SubcommandRow {
  const char* keywords;  ///< behind the subcommand's keyword, which is token 2
  ParseOutcome expected;
};

std::string WithKeyword(std::string text, const std::string& keyword) {
  const std::size_t at = text.find('X');
  return at == std::string::npos ? text : text.replace(at, 1, keyword);
}

void ExpectBoth(const std::vector<SubcommandRow>& rows) {
  for (const NameSubcommand& subcommand : NameSubcommands()) {
    for (const SubcommandRow& row : rows) {
      const std::string command = "MRSET /" + std::string(subcommand.keyword) + " " + row.keywords;
      Parsing parsing(command);
      ParseOutcome expected = row.expected;
      expected.record = WithKeyword(expected.record, subcommand.keyword);
      expected.cursor = WithKeyword(expected.cursor, subcommand.keyword);
      for (std::string& message : expected.messages) {
        message = WithKeyword(message, subcommand.keyword);
      }
      EXPECT_EQ(ParseNameSubcommand(subcommand, parsing), expected) << command;
    }
  }
}

TEST(ParseDisplayAndParseDelete, ReportThatNothingFollowsAtTheEndOfTheCommand) {
  for (const NameSubcommand& subcommand : NameSubcommands()) {
    const std::string keyword = subcommand.keyword;
    Parsing parsing("MRSET /" + keyword);
    EXPECT_EQ(ParseNameSubcommand(subcommand, parsing),
              (ParseOutcome{false, keyword, "2 " + keyword, {subcommand.emptyMessage}}));
  }
}

TEST(ParseDisplayAndParseDelete, FailSilentlyWhereASlashFollows) {
  ExpectBoth(
      {{"/", {false, "X", "2 X"}}, {"/DISPLAY NAME=ALL", {false, "X", "2 X"}}, {"'/' NAME=ALL", {false, "X", "2 X"}}});
}

TEST(ParseDisplayAndParseDelete, KnowTheEndByItsType) {
  for (const NameSubcommand& subcommand : NameSubcommands()) {
    const std::string keyword = subcommand.keyword;
    Parsing parsing(
        Tokens{Word("MRSET"), Symbol("/"), Word(keyword), Odd(TokenSequenceBase::kEnd, "NAME"), Symbol("=")});
    EXPECT_EQ(ParseNameSubcommand(subcommand, parsing),
              (ParseOutcome{false, keyword, "2 " + keyword, {subcommand.emptyMessage}}));
  }
}

TEST(ParseDisplayAndParseDelete, ReadNames) {
  ExpectBoth({{"NAME=[$a $B]", {true, "X names ($a $B)", "8 ]"}},
              {"name = all /", {true, "X all", "5 all"}},
              {"NAME=[] /DELETE", {true, "X", "6 ]"}},
              {"'name'=ALL", {true, "X all", "5 ALL"}}});
}

TEST(ParseDisplayAndParseDelete, KeepTheLastOfRepeatedNames) {
  ExpectBoth({{"NAME=[$a $b] NAME=[$c]", {true, "X names ($c)", "13 ]"}},
              {"NAME=ALL NAME=[$c]", {true, "X names ($c)", "10 ]"}},
              {"NAME=[$a] NAME=ALL", {true, "X all", "10 ALL"}},
              {"NAME=[$a] NAME=[]", {true, "X", "11 ]"}}});
}

TEST(ParseDisplayAndParseDelete, StepOverASymbolThatStandsForNoNames) {
  ExpectBoth({{"NAME=,", {true, "X", "5 ,"}},
              {"NAME=] NAME=[$a]", {true, "X names ($a)", "10 ]"}},
              {"NAME=/ /DISPLAY", {true, "X", "5 /"}},
              {"NAME=( $a )", {false, "X", "5 (", {"error: Unexpected $a keyword in X subcommand."}}}});
}

TEST(ParseDisplayAndParseDelete, ReportATokenThatIsNoKeywordOfTheirsAsWritten) {
  ExpectBoth({{"Frob", {false, "X", "2 X", {"error: Unexpected Frob keyword in X subcommand."}}},
              {"NAMES=ALL", {false, "X", "2 X", {"error: Unexpected NAMES keyword in X subcommand."}}},
              {"LABEL='x'", {false, "X", "2 X", {"error: Unexpected LABEL keyword in X subcommand."}}},
              {"[$a]", {false, "X", "2 X", {"error: Unexpected [ keyword in X subcommand."}}},
              {"All", {false, "X", "2 X", {"error: Unexpected All keyword in X subcommand."}}},
              {"$a", {false, "X", "2 X", {"error: Unexpected $a keyword in X subcommand."}}},
              {"1", {false, "X", "2 X", {"error: Unexpected 1 keyword in X subcommand."}}},
              {"'text'", {false, "X", "2 X", {"error: Unexpected text keyword in X subcommand."}}}});
}

TEST(ParseDisplayAndParseDelete, ReportWhatIsNoKeywordBehindTheNames) {
  ExpectBoth({{"NAME=[$a] $b", {false, "X names ($a)", "7 ]", {"error: Unexpected $b keyword in X subcommand."}}},
              {"NAME=ALL ALL", {false, "X all", "5 ALL", {"error: Unexpected ALL keyword in X subcommand."}}}});
}

TEST(ParseDisplayAndParseDelete, StepBackOneTokenFromWhereTheNamesFailed) {
  ExpectBoth(
      {{"NAME $a", {false, "X", "3 NAME", {"error: Names \"=\" was expected. Found $a..."}}},
       {"NAME=$a", {false, "X", "4 =", {"error: Square bracket expected."}}},
       {"NAME=[$a,$b]", {false, "X names ($a)", "6 $a", {"error: Name or right sq bracket expected. Found ,..."}}},
       {"NAME=[$a", {false, "X names ($a)", "6 $a", {"error: Square bracket expected."}}}});
}

TEST(ParseDisplayAndParseDelete, StopAtTheFirstFailure) {
  ExpectBoth({{"NAME=$a NAME FROB", {false, "X", "4 =", {"error: Square bracket expected."}}}});
}

// ValidateMRSetName and FindMRSetName

TEST(ValidateMRSetName, NeverReportsASetThatDoesNotExist) {
  for (const MRSetSubcommand::Type type : {MRSetSubcommand::kDISPLAY, MRSetSubcommand::kDELETE}) {
    for (const auto& stored : {std::vector<scripted::SetData>{}, {scripted::Categories("$a", {"q1", "q2"})}}) {
      Parsing parsing("MRSET");
      parsing.host.SetStoredSets(stored);
      MRSetSubcommand record = RecordOf(type);
      record.fNames = {"$a", "$none", "x"};
      EXPECT_TRUE(ValidateMRSetName(record, parsing.Source()));
      EXPECT_EQ(parsing.host.MessageLines(), Lines{});
      EXPECT_EQ(record.fNames, (Lines{"$a", "$none", "x"}));
    }
  }
}

TEST(ValidateMRSetName, FetchesTheSetsOnceForEveryName) {
  for (const std::size_t count : {0U, 1U, 3U}) {
    Parsing parsing("MRSET");
    MRSetSubcommand record = RecordOf(MRSetSubcommand::kDELETE);
    record.fNames.assign(count, "$same");
    EXPECT_TRUE(ValidateMRSetName(record, parsing.Source()));
    EXPECT_EQ(parsing.host.CallCount(), count);
    EXPECT_EQ(parsing.Calls("VariableSets(").size(), count);
  }
}

TEST(ValidateMRSetName, DoesNotLookAtTheAllFlag) {
  Parsing parsing("MRSET");
  MRSetSubcommand record = RecordOf(MRSetSubcommand::kDISPLAY);
  record.fAll = true;
  record.fNames = {"$a"};
  EXPECT_TRUE(ValidateMRSetName(record, parsing.Source()));
  EXPECT_EQ(parsing.Calls("VariableSets(").size(), 1U);
  EXPECT_TRUE(record.fAll);
}

TEST(FindMRSetName, FetchesTheSetsOfTheSourceAndComparesNone) {
  Parsing parsing("MRSET");
  parsing.host.SetStoredSets({scripted::Categories("$a", {"q1", "q2"})});
  for (const char* name : {"$a", "$A", "$none"}) {
    EXPECT_FALSE(FindMRSetName(name, parsing.Source())) << name;
  }
  EXPECT_EQ(parsing.host.Trace(), Lines(3, "VariableSets(source#1, kMRSets) -> [$a]"));
}

TEST(DisplayAndDelete, ParseAsWholeCommands) {
  struct CommandRow {
    const char* command;
    ParseOutcome expected;
  };
  const std::vector<CommandRow> rows = {
      {"MRSET /DISPLAY NAME=[$a $b]", {true, "DISPLAY names ($a $b)", "8 ]"}},
      {"MRSET /DELETE NAME=[$A]", {true, "DELETE names ($A)", "7 ]"}},
      {"MRSET /DELETE NAME=[noDollar]", {true, "DELETE names (noDollar)", "7 ]"}},
      {"MRSET /DISPLAY NAME=[$none]", {true, "DISPLAY names ($none)", "7 ]"}},
      {"MRSET /DELETE NAME=[]", {true, "DELETE", "6 ]"}},
      {"MRSET /DISPLAY", {false, "DISPLAY", "2 DISPLAY", {"error: Empty Display found"}}},
      {"MRSET /DELETE /DISPLAY", {false, "DELETE", "2 DELETE"}}};
  for (const CommandRow& row : rows) {
    Parsing parsing(row.command);
    parsing.host.SetStoredSets({scripted::Categories("$a", {"q1", "q2"})});
    EXPECT_EQ(parsing.At(1).Run(ParseSubcommand), row.expected) << row.command;
  }
}

TEST(DisplayAndDelete, FailAsWholeCommandsWithoutASave) {
  struct CommandRow {
    const char* command;
    Lines messages;
  };
  const std::vector<CommandRow> rows = {
      {"MRSET /DISPLAY", {"error: Empty Display found"}},
      {"MRSET /DELETE", {"error: Empty Delete found"}},
      {"MRSET /DELETE /DISPLAY NAME=ALL", {}},
      {"MRSET /DISPLAY /DELETE NAME=ALL", {}},
      {"MRSET /DELETE NAME=[$old,$new]", {"error: Name or right sq bracket expected. Found ,..."}},
      {"MRSET /DELETE NAME=[$old", {"error: Square bracket expected."}},
      {"MRSET /DELETE NAME=$old", {"error: Square bracket expected."}},
      {"MRSET /DELETE NAME $old", {"error: Names \"=\" was expected. Found $old..."}},
      {"MRSET /DELETE ALL", {"error: Unexpected ALL keyword in DELETE subcommand."}}};
  for (const CommandRow& row : rows) {
    EXPECT_EQ(RunOnSurvey(row.command, {scripted::Categories("$old", {"q1", "q2"})}),
              (Outcome{row.messages, {}, std::nullopt}))
        << row.command;
  }
}

}  // namespace
}  // namespace module_test
