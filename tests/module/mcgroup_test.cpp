#include "tests/module/parsing.h"

namespace module_test {
namespace {

using scripted::Symbol;
using scripted::Word;

// ParseMCGroup

/// The parser alone, on a command whose token 2 is MCGROUP.
ParseOutcome ParseGroup(Parsing& parsing) {
  parsing.record.fType = MRSetSubcommand::kMCGROUP;
  return parsing.At(2).Run(ParseMCGroup);
}

ParseOutcome ParseGroup(const std::string& keywords) {
  Parsing parsing("MRSET /MCGROUP " + keywords);
  return ParseGroup(parsing);
}

struct GroupRow {
  const char* keywords;  ///< behind MCGROUP, which is token 2
  ParseOutcome expected;
};

void ExpectGroup(const std::vector<GroupRow>& rows) {
  for (const GroupRow& row : rows) {
    EXPECT_EQ(ParseGroup(row.keywords), row.expected) << "MRSET /MCGROUP " << row.keywords;
  }
}

ParseOutcome Unexpected(const std::string& text) {
  return {false, "MCGROUP", "2 MCGROUP", {"error: Unexpected " + text + " keyword in MCGROUP subcommand."}};
}

TEST(ParseMCGroup, ReportsThatNothingFollowsAtTheEndOfTheCommand) {
  ExpectGroup({{"", {false, "MCGROUP", "2 MCGROUP", {"error: Empty MCGroup found"}}}});
}

TEST(ParseMCGroup, FailsSilentlyWhereASlashFollows) {
  ExpectGroup({{"/DISPLAY NAME=ALL", {false, "MCGROUP", "2 MCGROUP"}}, {"/", {false, "MCGROUP", "2 MCGROUP"}}});
}

TEST(ParseMCGroup, TakesAQuotedSlashForTheEndOfTheSubcommand) {
  ExpectGroup({{"'/' NAME=$a", {false, "MCGROUP", "2 MCGROUP"}},
               {"VARIABLES=q1 q2 '/' NAME=$a", {true, "MCGROUP variables (q1 q2)", "6 q2"}}});
}

TEST(ParseMCGroup, KnowsTheEndByItsType) {
  Parsing parsing(
      Tokens{Word("MRSET"), Symbol("/"), Word("MCGROUP"), Odd(TokenSequenceBase::kEnd, "NAME"), Symbol("=")});
  EXPECT_EQ(ParseGroup(parsing), (ParseOutcome{false, "MCGROUP", "2 MCGROUP", {"error: Empty MCGroup found"}}));
}

TEST(ParseMCGroup, ReadsEachKeywordIntoItsField) {
  ExpectGroup({{"NAME=$a", {true, "MCGROUP name <$a>", "5 $a"}},
               {"LABEL='A'", {true, "MCGROUP label <A>", "5 A"}},
               {"VARIABLES=q1 q2", {true, "MCGROUP variables (q1 q2)", "6 q2"}}});
}

TEST(ParseMCGroup, ReadsTheKeywordsInAnyOrderAndAnyLetterCase) {
  const std::string whole = "MCGROUP name <$a> label <A> variables (q1 q2)";
  ExpectGroup({{"NAME=$a LABEL='A' VARIABLES=q1 q2", {true, whole, "12 q2"}},
               {"variables=q1 q2 label='A' name=$a /DELETE", {true, whole, "12 $a"}},
               {"Lab='A' Var=q1 q2 Nam=$a", {true, whole, "12 $a"}}});
}

TEST(ParseMCGroup, KeepsTheLastOfRepeatedKeywords) {
  ExpectGroup({{"NAME=$a NAME=$b", {true, "MCGROUP name <$b>", "8 $b"}},
               {"LABEL='A' LABEL='B'", {true, "MCGROUP label <B>", "8 B"}},
               {"VARIABLES=q1 q2 VARIABLES=q3 q4", {true, "MCGROUP variables (q3 q4)", "10 q4"}}});
}

TEST(ParseMCGroup, RefusesTheKeywordsOfADichotomySetAsWritten) {
  ExpectGroup({{"LABELSOURCE=VARLABEL", Unexpected("LABELSOURCE")},
               {"LabelSource=VARLABEL", Unexpected("LabelSource")},
               {"LABELS=VARLABEL", Unexpected("LABELS")},
               {"Value=1", Unexpected("Value")},
               {"CATEGORYLABELS=COUNTEDVALUES", Unexpected("CATEGORYLABELS")}});
}

TEST(ParseMCGroup, RefusesEveryOtherTokenInAKeywordsPlace) {
  ExpectGroup({{"Nmae=$a", Unexpected("Nmae")},
               {"LABELX='A'", Unexpected("LABELX")},
               {"NAMES=$a", Unexpected("NAMES")},
               {"DISPLAY", Unexpected("DISPLAY")},
               {"1.50", Unexpected("1.50")},
               {"'a B'", Unexpected("a B")},
               {"=", Unexpected("=")},
               {"All", Unexpected("All")}});
}

TEST(ParseMCGroup, ReportsAnUnknownKeywordBehindKnownOnes) {
  ExpectGroup(
      {{"NAME=$a LABEL='A' VALUE=1",
        {false, "MCGROUP name <$a> label <A>", "8 A", {"error: Unexpected VALUE keyword in MCGROUP subcommand."}}}});
}

TEST(ParseMCGroup, ReadsWhatTheHostTakesForALabelUnlessItBeginsWithLabels) {
  struct LabelRow {
    const char* token;
    bool isLabel;
  };
  for (const LabelRow& row : std::vector<LabelRow>{{"LABEL", true},
                                                   {"LAB", true},
                                                   {"LABELLED", true},
                                                   {"X", true},
                                                   {"SLABELS", true},
                                                   {"LABELS", false},
                                                   {"LABELSX", false},
                                                   {"LABELSOURCE", false},
                                                   {"labels", false},
                                                   {"LabelSet", false}}) {
    const std::string token = row.token;
    Parsing parsing("MRSET /MCGROUP " + token + "='A'");
    parsing.host.HostHooks().keywordMatch = [](const std::string& caps, const std::string& keyword) {
      return (keyword == "MCGROUP") == (caps == "MCGROUP") && keyword != "NAME" && keyword != "VARIABLES" ? 1 : 0;
    };
    EXPECT_EQ(ParseGroup(parsing), row.isLabel ? (ParseOutcome{true, "MCGROUP label <A>", "5 A"}) : Unexpected(token))
        << token;
  }
}

TEST(ParseMCGroup, ComparesSixBytesWithTheWholeKeywordLabelsource) {
  Parsing parsing("MRSET /MCGROUP LabelsX='A'");
  parsing.host.HostHooks().keywordMatch = Naming({"LABELSX"}, {"LABEL"});
  EXPECT_EQ(ParseGroup(parsing), Unexpected("LabelsX"));
  EXPECT_EQ(parsing.Calls("ZEVAMBqstricmp_A"), (Lines{R"(ZEVAMBqstricmp_A("LABELSX", 6, "LABELSOURCE", 6, 0) -> 1)"}));
}

TEST(ParseMCGroup, TriesTheKeywordsInTheirOrder) {
  struct OrderRow {
    std::vector<std::string> keywords;
    const char* message;
  };
  const std::vector<OrderRow> rows = {
      {{"NAME", "LABEL", "VARIABLES"}, "error: MRSET NAME was expecting \"=\". Found ,...;"},
      {{"LABEL", "VARIABLES"}, "error: MRSET LABEL was expecting \"=\". Found ,...;"},
      {{"VARIABLES"}, "error: MRSET VARIABLES was expecting \"=\". Found ,..."}};
  for (const OrderRow& row : rows) {
    Parsing parsing("MRSET /MCGROUP X ,");
    parsing.host.HostHooks().keywordMatch = Naming({"X"}, row.keywords);
    EXPECT_EQ(ParseGroup(parsing), (ParseOutcome{false, "MCGROUP", "3 X", {row.message}}))
        << ::testing::PrintToString(row.keywords);
  }
}

TEST(ParseMCGroup, TriesVariablesForATokenThatTheSixCharactersKeepFromLabel) {
  Parsing parsing("MRSET /MCGROUP LABELS ,");
  parsing.host.HostHooks().keywordMatch = Naming({"LABELS"}, {"LABEL", "VARIABLES"});
  EXPECT_EQ(ParseGroup(parsing).messages, (Lines{"error: MRSET VARIABLES was expecting \"=\". Found ,..."}));
}

TEST(ParseMCGroup, StepsBackOneTokenFromWhereAKeywordFailed) {
  ExpectGroup(
      {{"NAME=1 LABEL='A'", {false, "MCGROUP", "4 =", {"error: Unexpected MRSET name value 1 was found."}}},
       {"NAME=$a 'x'", {false, "MCGROUP name <$a>", "5 $a", {"error: Unexpected token x in this context"}}},
       {"LABEL", {false, "MCGROUP", "3 LABEL", {"error: MRSET LABEL was expecting \"=\". Found end of command...;"}}}});
}

TEST(ParseMCGroup, StopsAtTheFirstFailure) {
  ExpectGroup(
      {{"NAME=a LABEL=b FROB", {false, "MCGROUP name <a>", "4 =", {"error: The MRSET name a must start with $."}}}});
}

TEST(ParseMCGroup, ClearsTheAllFlagWithItsVariables) {
  Parsing parsing("MRSET /MCGROUP VARIABLES=q1 q2");
  parsing.record.fAll = true;
  EXPECT_EQ(ParseGroup(parsing).record, "MCGROUP variables (q1 q2)");
}

// ValidateMCGroup

/// A record that is valid.
MRSetSubcommand ValidGroup() {
  MRSetSubcommand record = RecordOf(MRSetSubcommand::kMCGROUP);
  record.fName = "$Set";
  record.fVariables = {"q1", "q2"};
  return record;
}

Verdict Validate(Parsing& parsing, const MRSetSubcommand& record) {
  parsing.record = record;
  const bool valid = ValidateMCGroup(parsing.record, parsing.Source());
  EXPECT_EQ(ToText(parsing.record), ToText(record)) << "the record was changed";
  return {valid, parsing.host.MessageLines()};
}

Verdict Validate(const MRSetSubcommand& record) {
  Parsing parsing("MRSET");
  return Validate(parsing, record);
}

TEST(ValidateMCGroup, AcceptsTwoVariablesOfOneKind) {
  EXPECT_EQ(Validate(ValidGroup()), (Verdict{true}));
  MRSetSubcommand record = ValidGroup();
  record.fVariables = {"s8", "s3"};
  EXPECT_EQ(Validate(record), (Verdict{true}));
}

TEST(ValidateMCGroup, ReportsAMissingNameAndAcceptsTheRecord) {
  MRSetSubcommand record = ValidGroup();
  record.fName.clear();
  EXPECT_EQ(Validate(record), (Verdict{true, {"error: MCGROUP has no name."}}));
}

TEST(ValidateMCGroup, GoesOnBehindAMissingName) {
  MRSetSubcommand record = RecordOf(MRSetSubcommand::kMCGROUP);
  EXPECT_EQ(Validate(record),
            (Verdict{false, {"error: MCGROUP has no name.", "error: MCGROUP  has no variable names."}}));
  record.fVariables = {"q1"};
  EXPECT_EQ(Validate(record),
            (Verdict{false, {"error: MCGROUP has no name.", "error: Only one variable q1 was found."}}));
  record.fVariables = {"q1", "q2"};
  record.fLabelSourceVarLabel = true;
  EXPECT_EQ(
      Validate(record),
      (Verdict{false, {"error: MCGROUP has no name.", "error: :LABELSOURCE=VARLABEL is invalid for an MCGROUP..."}}));
}

TEST(ValidateMCGroup, NamesTheSetThatHasNoVariables) {
  MRSetSubcommand record = ValidGroup();
  record.fVariables.clear();
  EXPECT_EQ(Validate(record), (Verdict{false, {"error: MCGROUP $Set has no variable names."}}));
  record.fLabelSourceVarLabel = true;
  EXPECT_EQ(Validate(record), (Verdict{false, {"error: MCGROUP $Set has no variable names."}}));
}

TEST(ValidateMCGroup, ReportsBadVariablesBeforeTheLabelSource) {
  MRSetSubcommand record = ValidGroup();
  record.fLabelSourceVarLabel = true;
  record.fVariables = {"q1"};
  EXPECT_EQ(Validate(record), (Verdict{false, {"error: Only one variable q1 was found."}}));
  record.fVariables = {"q1", "s8"};
  EXPECT_EQ(Validate(record), (Verdict{false, {"error: s8 variable has a different type."}}));
  record.fVariables = {"q1", "Nix"};
  EXPECT_EQ(Validate(record), (Verdict{false, {"error: Nix variable not in the dataset."}}));
}

TEST(ValidateMCGroup, RefusesALabelSourceOfARecordMadeOtherwise) {
  MRSetSubcommand record = ValidGroup();
  record.fLabelSourceVarLabel = true;
  EXPECT_EQ(Validate(record), (Verdict{false, {"error: $Set:LABELSOURCE=VARLABEL is invalid for an MCGROUP..."}}));
  record.fCategoryLabelsCountedValues = true;
  EXPECT_EQ(Validate(record), (Verdict{false, {"error: $Set:LABELSOURCE=VARLABEL is invalid for an MCGROUP..."}}));
}

TEST(ValidateMCGroup, DoesNotLookAtAllVariables) {
  for (const std::vector<std::string>& variables : {std::vector<std::string>{}, std::vector<std::string>{"nix"}}) {
    MRSetSubcommand record = ValidGroup();
    record.fAll = true;
    record.fVariables = variables;
    Parsing parsing("MRSET");
    EXPECT_EQ(Validate(parsing, record), (Verdict{true}));
    EXPECT_EQ(parsing.Calls("FindVarIndex("), Lines{});
    record.fLabelSourceVarLabel = true;
    EXPECT_EQ(Validate(parsing, record),
              (Verdict{false, {"error: $Set:LABELSOURCE=VARLABEL is invalid for an MCGROUP..."}}));
  }
}

TEST(ValidateMCGroup, AcceptsIdenticalVariableLabelsWithoutWarning) {
  Parsing parsing("MRSET");
  parsing.host.SetDictionary({scripted::Numeric("q1", "Same"), scripted::Numeric("q2", "Same")});
  EXPECT_EQ(Validate(parsing, ValidGroup()), (Verdict{true}));
  EXPECT_EQ(parsing.Calls("GetLabel("), Lines{});
  EXPECT_EQ(parsing.Calls("ZEVA_ValueLabelMap("), Lines{});
}

TEST(ValidateMCGroup, HandsOnAValueOfARecordMadeOtherwise) {
  MRSetSubcommand record = ValidGroup();
  record.fVariables = {"s8", "s3"};
  record.fValue = "abcd";
  EXPECT_EQ(Validate(record), (Verdict{false, {"error: CountVal abcd is wider than the narrowest variable."}}));
  record.fVariables = {"n1", "n2"};
  record.fCategoryLabelsCountedValues = true;  // not handed on
  EXPECT_EQ(Validate(record), (Verdict{true}));
}

TEST(ValidateMCGroup, IsReachedByWholeCommands) {
  struct CommandRow {
    const char* command;
    Lines messages;
  };
  const std::vector<CommandRow> rows = {
      {"MRSET /MCGROUP NAME=$Ab", {"error: MCGROUP $Ab has no variable names."}},
      {"MRSET /MCGROUP LABEL='x'", {"error: MCGROUP has no name.", "error: MCGROUP  has no variable names."}},
      {"MRSET /MCGROUP NAME=$Ab VARIABLES=q1", {"error: Only one variable q1 was found."}},
      {"MRSET /MCGROUP NAME=$Ab VARIABLES=q1 s8", {"error: s8 variable has a different type."}},
      {"MRSET /MCGROUP NAME=$Ab VARIABLES=s8 q1", {"error: q1 variable has a different type."}},
      {"MRSET /MCGROUP VARIABLES=q1", {"error: MCGROUP has no name.", "error: Only one variable q1 was found."}},
      {"MRSET /MCGROUP NAME=$Ab LABELSOURCE=VARLABEL VARIABLES=q1 q2",
       {"error: Unexpected LABELSOURCE keyword in MCGROUP subcommand."}},
      {"MRSET /MCGROUP NAME=$Ab VARIABLES=q1 q2 LABELSOURCE=VARLABEL",
       {"error: Unexpected LABELSOURCE keyword in MCGROUP subcommand."}},
      {"MRSET /MCGROUP NAME=$Ab VARIABLES=q1 q2 q3 q4", {}},
      {"MRSET /MCGROUP NAME=$Ab VARIABLES=s8 s3", {}},
  };
  for (const CommandRow& row : rows) {
    EXPECT_EQ(RunOnSurvey(row.command).messages, row.messages) << row.command;
  }
}

}  // namespace
}  // namespace module_test
