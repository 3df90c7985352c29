#include "tests/module/parsing.h"

namespace module_test {
namespace {

using scripted::Number;
using scripted::Quoted;
using scripted::Symbol;
using scripted::Word;

// MRSetParse

struct DriverOutcome {
  bool result = false;
  Lines records;
  Lines messages = {};
};

bool operator==(const DriverOutcome& first, const DriverOutcome& second) {
  return first.result == second.result && first.records == second.records && first.messages == second.messages;
}

std::ostream& operator<<(std::ostream& stream, const DriverOutcome& outcome) {
  stream << "\n  " << (outcome.result ? "true" : "false") << "\n  records:\n";
  for (const std::string& record : outcome.records) {
    stream << "    " << record << '\n';
  }
  stream << "  messages:\n";
  for (const std::string& message : outcome.messages) {
    stream << "    " << message << '\n';
  }
  return stream;
}

DriverOutcome ParseAll(Parsing& parsing, MRSETSUBCOMMANDS records = {}) {
  const bool result = MRSetParse(parsing.Stream(), parsing.Source(), records);
  EXPECT_EQ(parsing.host.Violations(), Lines{});
  return {result, ToText(records), parsing.host.MessageLines()};
}

DriverOutcome ParseAll(std::string_view command) {
  Parsing parsing(command);
  return ParseAll(parsing);
}

DriverOutcome ParseAll(const Tokens& tokens) {
  Parsing parsing(tokens);
  return ParseAll(parsing);
}

struct DriverRow {
  const char* command;
  DriverOutcome expected;
};

void ExpectDriver(const std::vector<DriverRow>& rows) {
  for (const DriverRow& row : rows) {
    EXPECT_EQ(ParseAll(row.command), row.expected) << row.command;
  }
}

constexpr const char* kTwo = "MRSET /MDGROUP NAME=$a VARIABLES=n1 n2 VALUE=1 /DISPLAY NAME=[$a]";

TEST(MRSetParse, ReportsThatTheCommandNameAloneHasNoSubcommand) {
  ExpectDriver({{"MRSET", {false, {}, {"error: No subcommand in MRSET command."}}},
                {"mrset.", {false, {}, {"error: No subcommand in MRSET command."}}}});
}

TEST(MRSetParse, MakesARecordOfEachSubcommandInCommandOrder) {
  ExpectDriver(
      {{kTwo, {true, {"MDGROUP name <$a> variables (n1 n2) value <1> number", "DISPLAY names ($a)"}}},
       {"MRSET /DELETE NAME=[$b] /DISPLAY NAME=ALL /MCGROUP NAME=$c VARIABLES=s3 s8 /DELETE NAME=[$c]",
        {true, {"DELETE names ($b)", "DISPLAY all", "MCGROUP name <$c> variables (s3 s8)", "DELETE names ($c)"}}}});
}

TEST(MRSetParse, MakesARecordOfEveryOccurrenceOfASubcommand) {
  ExpectDriver({{"MRSET /DISPLAY NAME=[$a] /DISPLAY NAME=[$a] /DISPLAY NAME=ALL",
                 {true, {"DISPLAY names ($a)", "DISPLAY names ($a)", "DISPLAY all"}}}});
}

TEST(MRSetParse, BeginsEachSubcommandWithAFreshRecord) {
  ExpectDriver(
      {{"MRSET /MDGROUP NAME=$a LABEL='A' LABELSOURCE=VARLABEL CATEGORYLABELS=COUNTEDVALUES VARIABLES=q1 q2 VALUE=1"
        " /MDGROUP NAME=$b VARIABLES=s8 s3 VALUE='x' /DELETE NAME=ALL /DELETE NAME=[]",
        {true,
         {"MDGROUP name <$a> label <A> variables (q1 q2) value <1> number labelsource countedvalues",
          "MDGROUP name <$b> variables (s8 s3) value <x>", "DELETE all", "DELETE"}}}});
}

TEST(MRSetParse, ParsesAFirstSubcommandWithoutSlashAsIfItWereThere) {
  for (const char* subcommands : {"DISPLAY NAME=ALL", "MCGROUP NAME=$a VARIABLES=q1 q2 /DELETE NAME=[$a]", "FROB",
                                  "MDGROUP", "MDGROUP /DISPLAY NAME=ALL"}) {
    EXPECT_EQ(ParseAll("MRSET " + std::string(subcommands)), ParseAll("MRSET /" + std::string(subcommands)))
        << subcommands;
  }
  EXPECT_EQ(ParseAll("MRSET DISPLAY NAME=ALL"), (DriverOutcome{true, {"DISPLAY all"}}));
}

TEST(MRSetParse, AcceptsKeywordsInAnyLetterCase) {
  ExpectDriver(
      {{"mrset /mdgroup name=$a labelsource=varlabel label='A' categorylabels=countedvalues variables=q1 q2 value=1"
        " /mcgroup name=$b variables=q1 q2 /display name=all /delete name=[$a]",
        {true,
         {"MDGROUP name <$a> label <A> variables (q1 q2) value <1> number labelsource countedvalues",
          "MCGROUP name <$b> variables (q1 q2)", "DISPLAY all", "DELETE names ($a)"}}},
       {"MrSet /dIsPlAy nAmE=aLl", {true, {"DISPLAY all"}}},
       {"Mrs /Disp Nam=All", {true, {"DISPLAY all"}}}});
}

TEST(MRSetParse, ReportsATokenOtherThanSlashBehindAnAcceptedSubcommand) {
  // An end of the command that is not the last token: only then does a subcommand parser stop before something else.
  const auto withFollower = [](const scripted::Token& follower) {
    return Tokens{Word("MRSET"), Symbol("/"),   Word("DISPLAY"), Word("NAME"),
                  Symbol("="),   Symbol("ALL"), follower,        Word("DELETE")};
  };
  EXPECT_EQ(ParseAll(withFollower(Odd(TokenSequenceBase::kEnd, "Stray"))),
            (DriverOutcome{false, {"DISPLAY all"}, {"error: Begin subcommand symbol expected. Found Stray ..."}}));
  EXPECT_EQ(ParseAll(withFollower(Odd(TokenSequenceBase::kEnd, "//"))),
            (DriverOutcome{false, {"DISPLAY all"}, {"error: Begin subcommand symbol expected. Found // ..."}}));
}

TEST(MRSetParse, NeedsTheSlashAsSoonAsTheListHoldsARecord) {
  Parsing parsing("MRSET Display NAME=ALL");
  EXPECT_EQ(ParseAll(parsing, {RecordOf(MRSetSubcommand::kDELETE)}),
            (DriverOutcome{false, {"DELETE"}, {"error: Begin subcommand symbol expected. Found Display ..."}}));
  EXPECT_EQ(parsing.Cursor(), "1 Display");
}

TEST(MRSetParse, IsContentWithTheRecordsThatTheListHoldsAtTheEnd) {
  Parsing parsing("MRSET");
  EXPECT_EQ(ParseAll(parsing, {RecordOf(MRSetSubcommand::kDELETE)}), (DriverOutcome{true, {"DELETE"}}));
}

TEST(MRSetParse, KeepsTheRecordsBeforeTheFailureAndReturnsFalse) {
  ExpectDriver(
      {{"MRSET /MDGROUP NAME=$a VARIABLES=n1 n2 VALUE=1 /DISPLAY NAME=$a",
        {false, {"MDGROUP name <$a> variables (n1 n2) value <1> number"}, {"error: Square bracket expected."}}},
       {"MRSET /DISPLAY NAME=ALL /DELETE NAME=[$a] /FROB",
        {false, {"DISPLAY all", "DELETE names ($a)"}, {"error: Invalid MRSET subcommand. Found FROB .."}}},
       {"MRSET /DISPLAY NAME=ALL /MCGROUP NAME=$c VARIABLES=q1",
        {false, {"DISPLAY all"}, {"error: Only one variable q1 was found."}}}});
}

TEST(MRSetParse, StopsAtTheFirstFailure) {
  ExpectDriver({{"MRSET /FROB /DISPLAY /NIX", {false, {}, {"error: Invalid MRSET subcommand. Found FROB .."}}},
                {"MRSET /DISPLAY NAME=ALL /DISPLAY FROB /NIX",
                 {false, {"DISPLAY all"}, {"error: Unexpected FROB keyword in DISPLAY subcommand."}}}});
}

TEST(MRSetParse, FailsSilentlyWhereASubcommandKeywordIsFollowedByASlash) {
  for (const char* keyword : {"MDGROUP", "MCGROUP", "DISPLAY", "DELETE"}) {
    const std::string silent = "/" + std::string(keyword) + " /DISPLAY NAME=ALL";
    EXPECT_EQ(ParseAll("MRSET " + silent), (DriverOutcome{false, {}, {}})) << keyword;
    EXPECT_EQ(ParseAll("MRSET /DELETE NAME=ALL " + silent), (DriverOutcome{false, {"DELETE all"}, {}})) << keyword;
  }
}

TEST(MRSetParse, TakesAQuotedSlashForASlash) {
  EXPECT_EQ(ParseAll(Tokens{Word("MRSET"), Quoted("/"), Word("DELETE"), Word("NAME"), Symbol("="), Symbol("ALL"),
                            Quoted("/"), Word("DISPLAY"), Word("NAME"), Symbol("="), Symbol("ALL")}),
            (DriverOutcome{true, {"DELETE all", "DISPLAY all"}}));
}

TEST(MRSetParse, TakesNoOtherTokenWithTheCodeOfASlashForASlash) {
  EXPECT_EQ(ParseAll(Tokens{Word("MRSET"), Odd(TokenSequenceBase::kSymbol, "slash", scripted::kSlash), Word("DISPLAY"),
                            Word("NAME"), Symbol("="), Symbol("ALL")}),
            (DriverOutcome{false, {}, {"error: Invalid MRSET subcommand. Found slash .."}}));
}

TEST(MRSetParse, NeverAsksTheHostWhetherATokenNamesAnEqualsSignOrASlash) {
  Parsing parsing(
      "MRSET /MDGROUP NAME=$a LABEL='A' LABELSOURCE=VARLABEL CATEGORYLABELS=COUNTEDVALUES VARIABLES=q1 q2 VALUE=1"
      " /MCGROUP NAME=$b VARIABLES=q1 q2 LABEL='B' /DISPLAY NAME=[$a] /DELETE NAME=ALL");
  EXPECT_TRUE(ParseAll(parsing).result);
  EXPECT_EQ(parsing.Calls(R"(, "=") -> )"), Lines{});
  EXPECT_EQ(parsing.Calls(R"(, "/") -> )"), Lines{});
}

TEST(MRSetParse, RefusesASecondSlash) {
  ExpectDriver({{"MRSET //DISPLAY NAME=ALL", {false, {}, {"error: Invalid MRSET subcommand. Found / .."}}},
                {"MRSET /DELETE NAME=ALL //DISPLAY NAME=ALL",
                 {false, {"DELETE all"}, {"error: Invalid MRSET subcommand. Found / .."}}}});
}

TEST(MRSetParse, RefusesASlashBehindTheLastSubcommand) {
  ExpectDriver({{"MRSET /DISPLAY NAME=ALL /",
                 {false, {"DISPLAY all"}, {"error: Invalid MRSET subcommand. Found end of command .."}}}});
}

TEST(MRSetParse, BeginsWithAStreamThatStandsBeforeTheCommandName) {
  Parsing parsing("MRSET");
  ParseAll(parsing);
  EXPECT_EQ(parsing.Calls("Next("), (Lines{"tokens#1.Next() -> true", "tokens#1.Next() -> false"}));
}

TEST(MRSetParse, AppendsTheRecordOfAnUnnamedCategoryGroup) {
  ExpectDriver(
      {{"MRSET /MCGROUP VARIABLES=q1 q2", {true, {"MCGROUP variables (q1 q2)"}, {"error: MCGROUP has no name."}}}});
}

TEST(MRSetParse, GoesOnBehindACountedValueThatIsNoInteger) {
  ExpectDriver({{"MRSET /MDGROUP VALUE=2.5 NAME=$a VARIABLES=q1 q2 /DISPLAY NAME=ALL",
                 {true,
                  {"MDGROUP name <$a> variables (q1 q2) value <2.5> number", "DISPLAY all"},
                  {"error: The counted value 2.5 is not an integer."}}}});
}

// ParseSubcommand

ParseOutcome ParseOne(Parsing& parsing, int at) {
  return parsing.At(at).Run(ParseSubcommand);
}

ParseOutcome ParseOne(std::string_view command) {
  Parsing parsing(command);
  return ParseOne(parsing, 1);
}

struct SubcommandRow {
  const char* command;  ///< read from token 1
  ParseOutcome expected;
};

void ExpectSubcommand(const std::vector<SubcommandRow>& rows) {
  for (const SubcommandRow& row : rows) {
    EXPECT_EQ(ParseOne(row.command), row.expected) << row.command;
  }
}

TEST(ParseSubcommand, ReadsTheSubcommandThatTheKeywordNames) {
  ExpectSubcommand({{"MRSET /MDGROUP NAME=$a VARIABLES=n1 n2 VALUE=1",
                     {true, "MDGROUP name <$a> variables (n1 n2) value <1> number", "12 1"}},
                    {"MRSET /MCGROUP NAME=$a VARIABLES=q1 q2", {true, "MCGROUP name <$a> variables (q1 q2)", "9 q2"}},
                    {"MRSET /DISPLAY NAME=[$a]", {true, "DISPLAY names ($a)", "7 ]"}},
                    {"MRSET /DELETE NAME=ALL", {true, "DELETE all", "5 ALL"}}});
}

TEST(ParseSubcommand, LeavesTheTokenBeforeTheNextSlashCurrent) {
  ExpectSubcommand(
      {{"MRSET /MDGROUP VARIABLES=n1 n2 VALUE=1 NAME=$a /DISPLAY",
        {true, "MDGROUP name <$a> variables (n1 n2) value <1> number", "12 $a"}},
       {"MRSET /MCGROUP VARIABLES=q1 q2 NAME=$a /DISPLAY", {true, "MCGROUP name <$a> variables (q1 q2)", "9 $a"}},
       {"MRSET /DISPLAY NAME=[$a] /DISPLAY", {true, "DISPLAY names ($a)", "7 ]"}},
       {"MRSET /DELETE NAME=ALL /DISPLAY", {true, "DELETE all", "5 ALL"}}});
}

TEST(ParseSubcommand, ReportsAnUnknownKeywordAsWritten) {
  ExpectSubcommand(
      {{"MRSET /Frob", {false, "", "2 Frob", {"error: Invalid MRSET subcommand. Found Frob .."}}},
       {"MRSET /NAME=$a", {false, "", "2 NAME", {"error: Invalid MRSET subcommand. Found NAME .."}}},
       {"MRSET /MDGROUPS", {false, "", "2 MDGROUPS", {"error: Invalid MRSET subcommand. Found MDGROUPS .."}}},
       {"MRSET /'x y'", {false, "", "2 x y", {"error: Invalid MRSET subcommand. Found x y .."}}},
       {"MRSET /1.0", {false, "", "2 1.0", {"error: Invalid MRSET subcommand. Found 1.0 .."}}},
       {"MRSET //", {false, "", "2 /", {"error: Invalid MRSET subcommand. Found / .."}}}});
}

TEST(ParseSubcommand, ReportsTheEndBehindASlashWithTheEndsText) {
  ExpectSubcommand(
      {{"MRSET /", {false, "", "2 end of command", {"error: Invalid MRSET subcommand. Found end of command .."}}}});
  Parsing parsing("MRSET /");
  parsing.host.SetEnd("<END>", 0);
  EXPECT_EQ(ParseOne(parsing, 1).messages, (Lines{"error: Invalid MRSET subcommand. Found <END> .."}));
}

TEST(ParseSubcommand, ClearsTheTypeOfAnUnknownSubcommand) {
  Parsing parsing("MRSET /FROB");
  parsing.record.fType = MRSetSubcommand::kDELETE;
  ParseOne(parsing, 1);
  EXPECT_EQ(parsing.record.fType, MRSetSubcommand::kNONE);
}

TEST(ParseSubcommand, SetsTheTypeBeforeTheSubcommandIsRead) {
  ExpectSubcommand({{"MRSET /MDGROUP /", {false, "MDGROUP", "2 MDGROUP"}},
                    {"MRSET /MCGROUP /", {false, "MCGROUP", "2 MCGROUP"}},
                    {"MRSET /DISPLAY /", {false, "DISPLAY", "2 DISPLAY"}},
                    {"MRSET /DELETE /", {false, "DELETE", "2 DELETE"}}});
}

TEST(ParseSubcommand, TriesTheKeywordsInTheirOrder) {
  const std::vector<std::string> keywords = {"MDGROUP", "MCGROUP", "DISPLAY", "DELETE"};
  for (std::size_t first = 0; first < keywords.size(); ++first) {
    Parsing parsing("MRSET /X /");
    parsing.host.HostHooks().keywordMatch =
        Naming({"X"}, std::vector<std::string>(keywords.begin() + static_cast<std::ptrdiff_t>(first), keywords.end()));
    EXPECT_EQ(ParseOne(parsing, 1), (ParseOutcome{false, keywords[first], "2 X"})) << "from " << keywords[first];
  }
}

TEST(ParseSubcommand, TakesAQuotedKeywordForTheKeyword) {
  ExpectSubcommand({{"MRSET /'display' NAME=ALL", {true, "DISPLAY all", "5 ALL"}}});
}

TEST(ParseSubcommand, ReturnsTheValidatorsAnswer) {
  ExpectSubcommand(
      {{"MRSET /MDGROUP VARIABLES=q1 q2",
        {false, "MDGROUP variables (q1 q2)", "6 q2", {"error: MDGROUP has no name."}}},
       {"MRSET /MCGROUP NAME=$a", {false, "MCGROUP name <$a>", "5 $a", {"error: MCGROUP $a has no variable names."}}},
       {"MRSET /MCGROUP VARIABLES=q1 q2",
        {true, "MCGROUP variables (q1 q2)", "6 q2", {"error: MCGROUP has no name."}}}});
}

TEST(ParseSubcommand, DoesNotValidateWhatCouldNotBeRead) {
  // Each lacks a name, or has only one variable, which its validator would report too.
  ExpectSubcommand({{"MRSET /MDGROUP VARIABLES=q1",  // the counterpart, which is read
                     {false, "MDGROUP variables (q1)", "5 q1", {"error: MDGROUP has no name."}}},
                    {"MRSET /MDGROUP FROB",
                     {false, "MDGROUP", "2 MDGROUP", {"error: Unexpected FROB keyword in MDGROUP subcommand."}}},
                    {"MRSET /MCGROUP FROB",
                     {false, "MCGROUP", "2 MCGROUP", {"error: Unexpected FROB keyword in MCGROUP subcommand."}}},
                    {"MRSET /MCGROUP", {false, "MCGROUP", "2 MCGROUP", {"error: Empty MCGroup found"}}}});
}

TEST(ParseSubcommand, FetchesTheSetsOnlyForNamesThatCouldBeRead) {
  for (const std::string keyword : {"DISPLAY", "DELETE"}) {
    Parsing accepted("MRSET /" + keyword + " NAME=[$a $b]");
    EXPECT_TRUE(ParseOne(accepted, 1).result);
    EXPECT_EQ(accepted.Calls("VariableSets(").size(), 2U) << keyword;
  }
  for (const std::string keyword : {"DISPLAY", "DELETE"}) {
    Parsing refused("MRSET /" + keyword + " NAME=[$a $b] FROB");
    EXPECT_FALSE(ParseOne(refused, 1).result);
    EXPECT_EQ(refused.Calls("VariableSets("), Lines{}) << keyword;
  }
}

// Whole commands: one that fails to parse shows its messages and saves nothing.

struct CommandRow {
  const char* command;
  Lines messages;
};

TEST(ParsePhase, ChangesNothingWithACommandThatFails) {
  const std::vector<CommandRow> rows = {
      {"MRSET", {"error: No subcommand in MRSET command."}},
      {"MRSET /FROB", {"error: Invalid MRSET subcommand. Found FROB .."}},
      {"MRSET /DELETE NAME=ALL /FROB", {"error: Invalid MRSET subcommand. Found FROB .."}},
      {"MRSET /DELETE NAME=[$old] /MDGROUP", {"error: Empty MDGroup found"}},
      {"MRSET /DELETE NAME=[$old] /MDGROUP /DISPLAY NAME=ALL", {}},
      {"MRSET /DELETE NAME=[$old] /DISPLAY", {"error: Empty Display found"}},
      {"MRSET /DELETE NAME=[$old] /MCGROUP NAME=$new VARIABLES=q1 s8", {"error: s8 variable has a different type."}},
      {"MRSET /MDGROUP NAME=$new VALUE=1 LABEL /DELETE NAME=ALL", {"error: Unexpected token / in this context"}},
      {"MRSET /MCGROUP NAME=$new 'Label' VARIABLES=q1 q2", {"error: Unexpected token Label in this context"}},
      {"MRSET /MDGROUP NAME=$new VARIABLES=q1 nix VALUE=1", {"host error: Variable nix is not in the dictionary."}},
  };
  for (const CommandRow& row : rows) {
    EXPECT_EQ(RunOnSurvey(row.command, {scripted::Dichotomies("$old", "1", {"q1", "q2"})}),
              (Outcome{row.messages, {}, std::nullopt}))
        << row.command;
  }
}

TEST(ParsePhase, AppliesACommandWithErrorsThatDoNotStop) {
  EXPECT_EQ(RunOnSurvey("MRSET MDGROUP NAME=$a VARIABLES=n1 n2 VALUE=2.5"),
            (Outcome{{"error: The counted value 2.5 is not an integer."}, {}, Lines{R"($a MD value "2.5" (n1 n2))"}}));
}

}  // namespace
}  // namespace module_test
