#include "tests/module/parsing.h"

namespace module_test {
namespace {

using scripted::Quoted;
using scripted::Symbol;
using scripted::Word;

// ParseMDGroup

/// The parser alone, on a command whose token 2 is MDGROUP.
ParseOutcome ParseGroup(Parsing& parsing) {
  parsing.record.fType = MRSetSubcommand::kMDGROUP;
  return parsing.At(2).Run(ParseMDGroup);
}

ParseOutcome ParseGroup(const std::string& keywords) {
  Parsing parsing("MRSET /MDGROUP " + keywords);
  return ParseGroup(parsing);
}

struct GroupRow {
  const char* keywords;  ///< behind MDGROUP, which is token 2
  ParseOutcome expected;
};

void ExpectGroup(const std::vector<GroupRow>& rows) {
  for (const GroupRow& row : rows) {
    EXPECT_EQ(ParseGroup(row.keywords), row.expected) << "MRSET /MDGROUP " << row.keywords;
  }
}

TEST(ParseMDGroup, ReportsThatNothingFollowsAtTheEndOfTheCommand) {
  ExpectGroup({{"", {false, "MDGROUP", "2 MDGROUP", {"error: Empty MDGroup found"}}}});
}

TEST(ParseMDGroup, FailsSilentlyWhereASlashFollows) {
  ExpectGroup({{"/DISPLAY NAME=ALL", {false, "MDGROUP", "2 MDGROUP"}}, {"/", {false, "MDGROUP", "2 MDGROUP"}}});
}

TEST(ParseMDGroup, TakesAQuotedSlashForTheEndOfTheSubcommand) {
  ExpectGroup({{"'/' NAME=$a", {false, "MDGROUP", "2 MDGROUP"}},
               {"VARIABLES=q1 q2 '/' NAME=$a", {true, "MDGROUP variables (q1 q2)", "6 q2"}}});
}

TEST(ParseMDGroup, KnowsTheEndByItsType) {
  Parsing parsing(
      Tokens{Word("MRSET"), Symbol("/"), Word("MDGROUP"), Odd(TokenSequenceBase::kEnd, "NAME"), Symbol("=")});
  EXPECT_EQ(ParseGroup(parsing), (ParseOutcome{false, "MDGROUP", "2 MDGROUP", {"error: Empty MDGroup found"}}));
}

TEST(ParseMDGroup, ReadsEachKeywordIntoItsField) {
  ExpectGroup({{"NAME=$a", {true, "MDGROUP name <$a>", "5 $a"}},
               {"LABELSOURCE=VARLABEL", {true, "MDGROUP labelsource", "5 VARLABEL"}},
               {"LABEL='A'", {true, "MDGROUP label <A>", "5 A"}},
               {"CATEGORYLABELS=COUNTEDVALUES", {true, "MDGROUP countedvalues", "5 COUNTEDVALUES"}},
               {"CATEGORYLABELS=VARLABELS", {true, "MDGROUP", "5 VARLABELS"}},
               {"VARIABLES=q1 q2", {true, "MDGROUP variables (q1 q2)", "6 q2"}},
               {"VALUE=1", {true, "MDGROUP value <1> number", "5 1"}},
               {"VALUE='1'", {true, "MDGROUP value <1>", "5 1"}}});
}

TEST(ParseMDGroup, ReadsTheKeywordsInAnyOrder) {
  const std::string whole = "MDGROUP name <$a> label <A> variables (q1 q2) value <1> number labelsource countedvalues";
  ExpectGroup({{"NAME=$a LABELSOURCE=VARLABEL LABEL='A' CATEGORYLABELS=COUNTEDVALUES VARIABLES=q1 q2 VALUE=1",
                {true, whole, "21 1"}},
               {"VALUE=1 VARIABLES=q1 q2 CATEGORYLABELS=COUNTEDVALUES LABEL='A' LABELSOURCE=VARLABEL NAME=$a /DELETE",
                {true, whole, "21 $a"}},
               {"LABEL='A' NAME=$a VALUE=1 LABELSOURCE=VARLABEL CATEGORYLABELS=COUNTEDVALUES VARIABLES=q1 q2 /",
                {true, whole, "21 q2"}}});
}

TEST(ParseMDGroup, ReadsALabelSourceOfSixCharactersAndNeverALabel) {
  for (const char* keyword : {"LABELS", "LABELSO", "LABELSOURCE", "LABELSX", "labels", "LabelSource"}) {
    const std::string text = keyword;
    EXPECT_EQ(ParseGroup(text + "=VARLABEL"), (ParseOutcome{true, "MDGROUP labelsource", "5 VARLABEL"})) << text;
    EXPECT_EQ(ParseGroup(text + "='A'"),
              (ParseOutcome{false, "MDGROUP", "4 =", {"error: The keyword VARLABEL was expected.  Found A..."}}))
        << text;
  }
  for (const char* keyword : {"LABEL", "Label", "LABE", "lab"}) {
    EXPECT_EQ(ParseGroup(std::string(keyword) + "='A'"), (ParseOutcome{true, "MDGROUP label <A>", "5 A"})) << keyword;
  }
}

TEST(ParseMDGroup, ReadsALabelSourceAlsoWhereTheHostTakesItForALabel) {
  Parsing parsing("MRSET /MDGROUP LABELSX=VARLABEL");
  parsing.host.HostHooks().keywordMatch = Naming({"LABELSX"}, {"LABEL"});
  EXPECT_EQ(ParseGroup(parsing), (ParseOutcome{true, "MDGROUP labelsource", "5 VARLABEL"}));
}

TEST(ParseMDGroup, ComparesSixBytesWithTheWholeKeywordLabelsource) {
  Parsing parsing("MRSET /MDGROUP LabelsX=VARLABEL");
  ParseGroup(parsing);
  EXPECT_EQ(parsing.Calls("ZEVAMBqstricmp_A"),  // for the choice of the parser, and by that parser
            Lines(2, R"(ZEVAMBqstricmp_A("LABELSX", 6, "LABELSOURCE", 6, 0) -> 1)"));
}

TEST(ParseMDGroup, TriesTheKeywordsInTheirOrder) {
  // The token names the keyword and all that are tried after it; the missing "=" tells which parser it went to.
  struct OrderRow {
    const char* token;
    std::vector<std::string> keywords;
    const char* message;
  };
  const std::vector<OrderRow> rows = {
      {"LABELS",
       {"NAME", "LABEL", "CATEGORYLABELS", "VARIABLES", "VALUE"},
       "error: MRSET NAME was expecting \"=\". Found ,...;"},
      {"LABELS",
       {"LABEL", "CATEGORYLABELS", "VARIABLES", "VALUE"},
       "error: MRSET LABELSOURCE was expecting \"=\". Found ,...;"},
      {"X", {"LABEL", "CATEGORYLABELS", "VARIABLES", "VALUE"}, "error: MRSET LABEL was expecting \"=\". Found ,...;"},
      {"X", {"CATEGORYLABELS", "VARIABLES", "VALUE"}, "error: MRSET CATEGORYLABELS was expecting \"=\". Found ,...;"},
      {"X", {"VARIABLES", "VALUE"}, "error: MRSET VARIABLES was expecting \"=\". Found ,..."},
      {"X", {"VALUE"}, "error: MRSET VALUE was expecting \"=\". Found ,..."}};
  for (const OrderRow& row : rows) {
    Parsing parsing("MRSET /MDGROUP " + std::string(row.token) + " ,");
    parsing.host.HostHooks().keywordMatch = Naming({row.token}, row.keywords);
    EXPECT_EQ(ParseGroup(parsing), (ParseOutcome{false, "MDGROUP", "3 " + std::string(row.token), {row.message}}))
        << row.token << " names " << ::testing::PrintToString(row.keywords);
  }
}

TEST(ParseMDGroup, KeepsTheLastOfRepeatedKeywords) {
  ExpectGroup(
      {{"NAME=$a NAME=$b", {true, "MDGROUP name <$b>", "8 $b"}},
       {"LABEL='A' LABEL='B'", {true, "MDGROUP label <B>", "8 B"}},
       {"LABEL='A' LABEL=''", {true, "MDGROUP", "8 "}},
       {"VALUE=1 VALUE='x'", {true, "MDGROUP value <x>", "8 x"}},
       {"VALUE='x' VALUE=1", {true, "MDGROUP value <1> number", "8 1"}},
       {"VARIABLES=q1 q2 VARIABLES=q3 q4", {true, "MDGROUP variables (q3 q4)", "10 q4"}},
       {"LABELSOURCE=VARLABEL LABELSOURCE=VARLABEL", {true, "MDGROUP labelsource", "8 VARLABEL"}},
       {"CATEGORYLABELS=COUNTEDVALUES CATEGORYLABELS=VARLABELS", {true, "MDGROUP", "8 VARLABELS"}},
       {"CATEGORYLABELS=VARLABELS CATEGORYLABELS=COUNTEDVALUES", {true, "MDGROUP countedvalues", "8 COUNTEDVALUES"}}});
}

TEST(ParseMDGroup, ResetsAFlagAtItsKeywordAlsoWhereThatFails) {
  ExpectGroup(
      {{"LABELSOURCE=VARLABEL LABELSOURCE VARLABEL",
        {false, "MDGROUP", "6 LABELSOURCE", {"error: MRSET LABELSOURCE was expecting \"=\". Found VARLABEL...;"}}},
       {"CATEGORYLABELS=COUNTEDVALUES CATEGORYLABELS VARLABELS",
        {false,
         "MDGROUP",
         "6 CATEGORYLABELS",
         {"error: MRSET CATEGORYLABELS was expecting \"=\". Found VARLABELS...;"}}}});
}

TEST(ParseMDGroup, ReportsATokenThatIsNoKeywordOfItAsWritten) {
  const auto report = [](const std::string& text) {
    return ParseOutcome{
        false, "MDGROUP", "2 MDGROUP", {"error: Unexpected " + text + " keyword in MDGROUP subcommand."}};
  };
  ExpectGroup({{"Frob=1", report("Frob")},
               {"DISPLAY NAME=ALL", report("DISPLAY")},
               {"NAMES=$a", report("NAMES")},
               {"NA=$a", report("NA")},
               {"LABELX='A'", report("LABELX")},
               {"1.50", report("1.50")},
               {"'a B'", report("a B")},
               {"=", report("=")},
               {"[", report("[")},
               {"All", report("All")}});
}

TEST(ParseMDGroup, ReportsAnUnknownKeywordBehindKnownOnes) {
  ExpectGroup(
      {{"NAME=$a LABEL='A' FROB=1 VALUE=1",
        {false, "MDGROUP name <$a> label <A>", "8 A", {"error: Unexpected FROB keyword in MDGROUP subcommand."}}},
       {"VARIABLES=q1 q2 'x'",
        {false, "MDGROUP variables (q1 q2)", "6 q2", {"error: Unexpected x keyword in MDGROUP subcommand."}}}});
}

TEST(ParseMDGroup, StepsBackOneTokenFromWhereAKeywordFailed) {
  ExpectGroup(
      {{"NAME=1 VALUE=1", {false, "MDGROUP", "4 =", {"error: Unexpected MRSET name value 1 was found."}}},
       {"NAME=$a 'x' VALUE=1", {false, "MDGROUP name <$a>", "5 $a", {"error: Unexpected token x in this context"}}},
       {"LABEL='A' VALUE /", {false, "MDGROUP label <A>", "6 VALUE", {"error: Unexpected token / in this context"}}},
       {"NAME", {false, "MDGROUP", "3 NAME", {"error: MRSET NAME was expecting \"=\". Found end of command...;"}}}});
}

TEST(ParseMDGroup, StopsAtTheFirstFailure) {
  ExpectGroup(
      {{"NAME=a LABEL=b FROB", {false, "MDGROUP name <a>", "4 =", {"error: The MRSET name a must start with $."}}}});
}

TEST(ParseMDGroup, GoesOnBehindAValueThatIsNoInteger) {
  ExpectGroup(
      {{"VALUE=2.5 NAME=$a",
        {true, "MDGROUP name <$a> value <2.5> number", "8 $a", {"error: The counted value 2.5 is not an integer."}}}});
}

TEST(ParseMDGroup, GoesOnBehindALabelThatIsCut) {
  const std::string label(256, 'x');
  EXPECT_EQ(ParseGroup("LABEL='" + label + "' NAME=$a"),
            (ParseOutcome{true,
                          "MDGROUP name <$a> label <" + label.substr(1) + ">",
                          "8 $a",
                          {"warning: The MRSET label " + label + " will be truncated to a length of 255 chars."}}));
}

TEST(ParseMDGroup, TakesAQuotedKeywordForTheKeyword) {
  ExpectGroup({{"'name'=$a", {true, "MDGROUP name <$a>", "5 $a"}},
               {"VARIABLES=q1 q2 'VALUE'=1", {true, "MDGROUP variables (q1 q2) value <1> number", "9 1"}}});
}

TEST(ParseMDGroup, ClearsTheAllFlagWithItsVariables) {
  Parsing parsing("MRSET /MDGROUP VARIABLES=q1 q2");
  parsing.record.fAll = true;
  EXPECT_EQ(ParseGroup(parsing).record, "MDGROUP variables (q1 q2)");
}

// ValidateMDGroup

/// A record that is valid.
MRSetSubcommand ValidGroup() {
  MRSetSubcommand record = RecordOf(MRSetSubcommand::kMDGROUP);
  record.fName = "$Set";
  record.fVariables = {"n1", "n2"};
  record.fValue = "1";
  record.fValueIsNumber = true;
  return record;
}

Verdict Validate(Parsing& parsing, const MRSetSubcommand& record) {
  parsing.record = record;
  const bool valid = ValidateMDGroup(parsing.record, parsing.Source());
  EXPECT_EQ(ToText(parsing.record), ToText(record)) << "the record was changed";
  return {valid, parsing.host.MessageLines()};
}

Verdict Validate(const MRSetSubcommand& record) {
  Parsing parsing("MRSET");
  return Validate(parsing, record);
}

TEST(ValidateMDGroup, AcceptsNumericVariablesWithANumber) {
  EXPECT_EQ(Validate(ValidGroup()), (Verdict{true}));
}

TEST(ValidateMDGroup, AcceptsStringVariablesWithAQuotedValue) {
  MRSetSubcommand record = ValidGroup();
  record.fVariables = {"s8", "s3"};
  record.fValue = "1";
  record.fValueIsNumber = false;
  EXPECT_EQ(Validate(record), (Verdict{true}));
}

TEST(ValidateMDGroup, ReportsAMissingNameBeforeEverythingElse) {
  MRSetSubcommand record = RecordOf(MRSetSubcommand::kMDGROUP);
  EXPECT_EQ(Validate(record), (Verdict{false, {"error: MDGROUP has no name."}}));
  record = ValidGroup();
  record.fName.clear();
  EXPECT_EQ(Validate(record), (Verdict{false, {"error: MDGROUP has no name."}}));
}

TEST(ValidateMDGroup, ReportsMissingVariablesBeforeAMissingValue) {
  MRSetSubcommand record = ValidGroup();
  record.fVariables.clear();
  EXPECT_EQ(Validate(record), (Verdict{false, {"error: MDGROUP $Set has no variable names."}}));
  record.fValue.clear();
  EXPECT_EQ(Validate(record), (Verdict{false, {"error: MDGROUP $Set has no variable names."}}));
}

TEST(ValidateMDGroup, ReportsAMissingValueBeforeItLooksAtTheVariables) {
  MRSetSubcommand record = ValidGroup();
  record.fValue.clear();
  EXPECT_EQ(Validate(record), (Verdict{false, {"error: MDGROUP $Set has no counted value."}}));
  record.fVariables = {"nix"};
  EXPECT_EQ(Validate(record), (Verdict{false, {"error: MDGROUP $Set has no counted value."}}));
  record.fAll = true;
  EXPECT_EQ(Validate(record), (Verdict{false, {"error: MDGROUP $Set has no counted value."}}));
}

TEST(ValidateMDGroup, ReportsBadVariablesBeforeTheKindOfTheValue) {
  MRSetSubcommand record = ValidGroup();
  record.fVariables = {"n1"};
  record.fValueIsNumber = false;
  record.fLabelSourceVarLabel = true;
  EXPECT_EQ(Validate(record), (Verdict{false, {"error: Only one variable n1 was found."}}));
  record.fVariables = {"n1", "s8"};
  EXPECT_EQ(Validate(record), (Verdict{false, {"error: s8 variable has a different type."}}));
  record.fVariables = {"n1", "Nix"};
  EXPECT_EQ(Validate(record), (Verdict{false, {"error: Nix variable not in the dataset."}}));
}

TEST(ValidateMDGroup, ReportsAQuotedValueOfNumericVariables) {
  MRSetSubcommand record = ValidGroup();
  record.fValueIsNumber = false;
  EXPECT_EQ(Validate(record), (Verdict{false, {"error: $Set:variables are numbers and countedval is string."}}));
}

TEST(ValidateMDGroup, ReportsANumberOfStringVariables) {
  MRSetSubcommand record = ValidGroup();
  record.fVariables = {"s8", "s3"};
  EXPECT_EQ(Validate(record), (Verdict{false, {"error: $Set:variables are string and countedval is number."}}));
}

TEST(ValidateMDGroup, ReportsTheKindOfTheValueBeforeTheLabelSource) {
  MRSetSubcommand record = ValidGroup();
  record.fLabelSourceVarLabel = true;
  record.fValueIsNumber = false;
  EXPECT_EQ(Validate(record), (Verdict{false, {"error: $Set:variables are numbers and countedval is string."}}));
  record.fVariables = {"s8", "s3"};
  record.fValueIsNumber = true;
  EXPECT_EQ(Validate(record), (Verdict{false, {"error: $Set:variables are string and countedval is number."}}));
}

TEST(ValidateMDGroup, RefusesALabelSourceWithoutCountedValueLabels) {
  const Verdict refused = {false, {"error: $Set:LABELSOURCE=VARLABEL requires CATEGORYLABELS=COUNTEDVALUES..."}};
  MRSetSubcommand record = ValidGroup();
  record.fLabelSourceVarLabel = true;
  EXPECT_EQ(Validate(record), refused);
  record.fVariables = {"s8", "s3"};
  record.fValueIsNumber = false;
  EXPECT_EQ(Validate(record), refused);
}

TEST(ValidateMDGroup, AcceptsALabelSourceWithCountedValueLabels) {
  MRSetSubcommand record = ValidGroup();
  record.fVariables = {"q1", "q2"};
  record.fLabelSourceVarLabel = true;
  record.fCategoryLabelsCountedValues = true;
  EXPECT_EQ(Validate(record), (Verdict{true}));
  record.fLabelSourceVarLabel = false;
  EXPECT_EQ(Validate(record), (Verdict{true}));
}

TEST(ValidateMDGroup, ChecksTheLabelsThatWillNameTheCategories) {
  MRSetSubcommand record = ValidGroup();
  record.fCategoryLabelsCountedValues = true;
  EXPECT_EQ(Validate(record), (Verdict{false, {"error: No countedval label for variable n1..."}}));
  record.fVariables = {"q1", "q2"};
  record.fValue = "0";
  EXPECT_EQ(Validate(record), (Verdict{false, {"error: CountedVal label of variable q2 is not unique..."}}));
  record.fCategoryLabelsCountedValues = false;
  EXPECT_EQ(Validate(record), (Verdict{true}));
  record.fValue = "1";
  EXPECT_EQ(Validate(record), (Verdict{true, {"warning: CountVal 1 label different in the variables."}}));
}

TEST(ValidateMDGroup, ReportsTheErrorBehindAWarning) {
  MRSetSubcommand record = ValidGroup();
  record.fVariables = {"q1", "q2"};
  record.fValueIsNumber = false;
  EXPECT_EQ(Validate(record), (Verdict{false,
                                       {"warning: CountVal 1 label different in the variables.",
                                        "error: $Set:variables are numbers and countedval is string."}}));
}

TEST(ValidateMDGroup, TakesAllVariablesForStringVariablesWithoutLookingAtThem) {
  for (const std::vector<std::string>& variables :
       {std::vector<std::string>{}, std::vector<std::string>{"n1"}, std::vector<std::string>{"n1", "nix"}}) {
    MRSetSubcommand record = ValidGroup();
    record.fAll = true;
    record.fVariables = variables;
    Parsing parsing("MRSET");
    EXPECT_EQ(Validate(parsing, record),
              (Verdict{false, {"error: $Set:variables are string and countedval is number."}}));
    EXPECT_EQ(parsing.Calls("FindVarIndex("), Lines{});
    record.fValueIsNumber = false;
    EXPECT_EQ(Validate(parsing, record).valid, true);
    EXPECT_EQ(parsing.Calls("FindVarIndex("), Lines{});
  }
}

TEST(ValidateMDGroup, ChecksTheLabelSourceOfAllVariablesToo) {
  MRSetSubcommand record = ValidGroup();
  record.fAll = true;
  record.fVariables.clear();
  record.fValueIsNumber = false;
  record.fLabelSourceVarLabel = true;
  EXPECT_EQ(Validate(record),
            (Verdict{false, {"error: $Set:LABELSOURCE=VARLABEL requires CATEGORYLABELS=COUNTEDVALUES..."}}));
  record.fCategoryLabelsCountedValues = true;
  EXPECT_EQ(Validate(record), (Verdict{true}));
  record.fName.clear();
  EXPECT_EQ(Validate(record), (Verdict{false, {"error: MDGROUP has no name."}}));
}

TEST(ValidateMDGroup, TakesVariablesOfANegativeTypeForStringVariables) {
  Parsing parsing("MRSET");
  parsing.host.SetDictionary({{"n1", -5, std::nullopt, {}}, {"n2", -5, std::nullopt, {}}});
  EXPECT_EQ(Validate(parsing, ValidGroup()),
            (Verdict{false, {"error: $Set:variables are string and countedval is number."}}));
}

TEST(ValidateMDGroup, IsReachedByWholeCommands) {
  struct CommandRow {
    const char* command;
    Lines messages;
  };
  const std::vector<CommandRow> rows = {
      {"MRSET /MDGROUP LABEL='x'", {"error: MDGROUP has no name."}},
      {"MRSET /MDGROUP NAME=$Ab", {"error: MDGROUP $Ab has no variable names."}},
      {"MRSET /MDGROUP NAME=$Ab VALUE=1", {"error: MDGROUP $Ab has no variable names."}},
      {"MRSET /MDGROUP NAME=$Ab VARIABLES=n1 n2", {"error: MDGROUP $Ab has no counted value."}},
      {"MRSET /MDGROUP NAME=$Ab VARIABLES=n1 n2 VALUE=''", {"error: MDGROUP $Ab has no counted value."}},
      {"MRSET /MDGROUP NAME=$Ab VARIABLES=n1 VALUE=1", {"error: Only one variable n1 was found."}},
      {"MRSET /MDGROUP NAME=$Ab VARIABLES=n1 n2 VALUE='1'",
       {"error: $Ab:variables are numbers and countedval is string."}},
      {"MRSET /MDGROUP NAME=$Ab VARIABLES=s8 s3 VALUE=1",
       {"error: $Ab:variables are string and countedval is number."}},
      {"MRSET /MDGROUP NAME=$Ab VARIABLES=s8 s3 VALUE=' ab  '", {}},
      {"MRSET /MDGROUP NAME=$Ab VARIABLES=s8 s3 VALUE=1234",
       {"error: CountVal 1234 is wider than the narrowest variable."}},
      {"MRSET /MDGROUP NAME=$Ab VARIABLES=n1 n2 VALUE=1 LABELSOURCE=VARLABEL",
       {"error: $Ab:LABELSOURCE=VARLABEL requires CATEGORYLABELS=COUNTEDVALUES..."}},
      {"MRSET /MDGROUP NAME=$Ab VARIABLES=n1 n2 VALUE=1 LABELS=VARLABEL CATEGORYLABELS=VARLABELS",
       {"error: $Ab:LABELSOURCE=VARLABEL requires CATEGORYLABELS=COUNTEDVALUES..."}},
      {"MRSET /MDGROUP NAME=$Ab VARIABLES=q1 q2 VALUE=1 LABELSOURCE=VARLABEL CATEGORYLABELS=COUNTEDVALUES", {}},
  };
  for (const CommandRow& row : rows) {
    EXPECT_EQ(RunOnSurvey(row.command).messages, row.messages) << row.command;
  }
}

}  // namespace
}  // namespace module_test
