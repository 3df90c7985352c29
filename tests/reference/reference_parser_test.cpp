#include "tests/reference/reference_parser.h"

#include <gmock/gmock.h>

#include <cmath>
#include <ostream>
#include <string>
#include <vector>

#include "tests/reference/report.h"
#include "tests/reference/validators.h"

namespace reference {
namespace {

using scripted::Numeric;
using scripted::String;
using scripted::Symbol;
using scripted::Word;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;
using testing::Optional;

const std::vector<scripted::Variable>& Survey() {
  static const std::vector<scripted::Variable> variables{
      Numeric("Q1", "Yes", {{1.0, "Tea"}}),
      Numeric("Q2", "yes", {{1.0, "tea"}}),
      Numeric("Q3", std::nullopt, {{1.0, "Milk"}, {2.0, ""}}),
      Numeric("Q4", "", {{2.0, "Two"}}),
      Numeric("Q5", "", {{2.0, "zwei"}}),
      String("S8", 8, std::nullopt, {{std::string(" ab "), "padded"}}),
      String("S3", 3, std::nullopt, {{std::string(" ab "), "other"}, {std::string("ab"), "plain"}}),
      String("S2", 2)};
  return variables;
}

/// One command and all that its parse leaves.
struct Row {
  std::string command;
  bool parsed;
  std::vector<std::string> records;
  std::vector<std::string> messages;
  int cursor;
};

std::ostream& operator<<(std::ostream& stream, const Row& row) {
  return stream << row.command;
}

std::vector<std::string> Texts(const std::vector<Record>& records) {
  std::vector<std::string> texts;
  for (const Record& record : records) {
    texts.push_back(ToText(record));
  }
  return texts;
}

class ParseRows : public testing::TestWithParam<Row> {};

TEST_P(ParseRows, LeaveTheStatedResult) {
  const Row& row = GetParam();
  const ParseResult result = Parse(scripted::Tokenize(row.command), Survey());
  EXPECT_EQ(result.parsed, row.parsed);
  EXPECT_THAT(Texts(result.records), ElementsAreArray(row.records));
  EXPECT_THAT(result.messages, ElementsAreArray(row.messages));
  EXPECT_EQ(result.cursor, row.cursor);
  EXPECT_EQ(result.assertion, std::nullopt);
}

const char kDisplayAll[] = "DISPLAY all";

INSTANTIATE_TEST_SUITE_P(
    Driver, ParseRows,
    testing::Values(Row{"MRSET", false, {}, {"error: No subcommand in MRSET command."}, 1},
                    Row{"MRSET /", false, {}, {"error: Invalid MRSET subcommand. Found end of command .."}, 2},
                    Row{"MRSET /Frob", false, {}, {"error: Invalid MRSET subcommand. Found Frob .."}, 2},
                    Row{"MRSET //DISPLAY NAME=ALL", false, {}, {"error: Invalid MRSET subcommand. Found / .."}, 2},
                    Row{"mrset display name=all", true, {kDisplayAll}, {}, 5},
                    Row{"Mrs '/' 'display' 'name'=all", true, {kDisplayAll}, {}, 6},
                    Row{"MRSET DISPLAY NAME=ALL /DEL NAM=[$a]", true, {kDisplayAll, "DELETE names ($a)"}, {}, 12},
                    Row{"MRSET /MDGROUP NAME=$a VARIABLES=q1 q2 VALUE=1 5",
                        false,
                        {},
                        {"error: Unexpected token 5 in this context"},
                        12},
                    Row{"MRSET /DISPLAY NAME=ALL /Frob",
                        false,
                        {kDisplayAll},
                        {"error: Invalid MRSET subcommand. Found Frob .."},
                        7}));

INSTANTIATE_TEST_SUITE_P(
    Followers, ParseRows,
    testing::Values(
        Row{"MRSET /MCGROUP NAME=$a LABEL /", false, {}, {"error: Unexpected token / in this context"}, 6},
        Row{"MRSET /MCGROUP NAME=$a 'x'", false, {}, {"error: Unexpected token x in this context"}, 5},
        Row{"MRSET /MCGROUP NAME=$a ''", false, {}, {"error: Unexpected token  in this context"}, 5},
        Row{"MRSET /MCGROUP NAME=$a =", false, {}, {"error: Unexpected token = in this context"}, 5},
        Row{"MRSET /MCGROUP NAME=$a frob 5", false, {}, {"error: Unexpected frob keyword in MCGROUP subcommand."}, 5},
        Row{"MRSET /MCGROUP NAME=$a frob", false, {}, {"error: Unexpected frob keyword in MCGROUP subcommand."}, 5}));

const std::string k64 = "$" + std::string(63, 'a');
const std::string k65 = k64 + "a";

INSTANTIATE_TEST_SUITE_P(
    Attributes, ParseRows,
    testing::Values(
        Row{"MRSET /MCGROUP NAME $a", false, {}, {"error: MRSET NAME was expecting \"=\". Found $a...;"}, 3},
        Row{"MRSET /MDGROUP VALUE 1", false, {}, {"error: MRSET VALUE was expecting \"=\". Found 1..."}, 3},
        Row{"MRSET /MDGROUP NAME=", false, {}, {"error: Unexpected MRSET name value end of command was found."}, 4},
        Row{"MRSET /MDGROUP NAME=likes", false, {}, {"error: The MRSET name likes must start with $."}, 4},
        Row{"MRSET /MDGROUP NAME=$9", false, {}, {"error: The MRSET name $9 is invalid"}, 4},
        Row{"MRSET /MDGROUP NAME=$To", false, {}, {"error: The MRSET name $To is invalid"}, 4},
        Row{"MRSET /MDGROUP NAME=" + k64, false, {}, {"error: MDGROUP " + k64 + " has no variable names."}, 5},
        Row{"MRSET /MDGROUP NAME=" + k65,
            false,
            {},
            {"error: The MRSET name " + k65 + " has more than 8 chars length"},
            4},
        Row{"MRSET /MDGROUP LABEL=x", false, {}, {"error: A quoted label string was expected. Found x .."}, 4},
        Row{"MRSET /MDGROUP Labelsx=x", false, {}, {"error: The keyword VARLABEL was expected.  Found x..."}, 4},
        Row{"MRSET /MDGROUP CATEGORY='VARLABELS'",
            false,
            {},
            {"error: Expected VARLABELS or COUNTEDVALUES.  Found VARLABELS..."},
            4},
        Row{"MRSET /MDGROUP VALUE=x", false, {}, {"error: The MRSET value was expected. Found x..."}, 4}));

INSTANTIATE_TEST_SUITE_P(
    Dichotomies, ParseRows,
    testing::Values(
        Row{"MRSET /MDGROUP", false, {}, {"error: Empty MDGroup found"}, 2},
        Row{"MRSET /MDGROUP /DISPLAY NAME=ALL", false, {}, {}, 2},
        Row{"MRSET /MDGROUP LABEL='x'", false, {}, {"error: MDGROUP has no name."}, 5},
        Row{"MRSET /MDGROUP NAME=$a VARIABLES=q1 q3", false, {}, {"error: MDGROUP $a has no counted value."}, 9},
        Row{"MRSET /MDGROUP VARIABLES=q1 q3 LABEL='x' VALUE=1.0 NAME=$a",
            true,
            {"MDGROUP name \"$a\" label \"x\" variables (Q1 Q3) value \"1.0\" number"},
            {"warning: CountVal 1.0 label different in the variables."},
            16},
        Row{"MRSET /MDGROUP NAME=$a VARIABLES=q1 q2 VALUE=1",
            true,
            {"MDGROUP name \"$a\" variables (Q1 Q2) value \"1\" number"},
            {"warning: Duplicate label found for variable Q2."},
            13},
        Row{"MRSET /MDGROUP NAME=$a VARIABLES=q3 TO q5 VALUE=2",
            true,
            {"MDGROUP name \"$a\" variables (Q3 Q4 Q5) value \"2\" number"},
            {"warning: Duplicate label found for variable Q5.",
             "warning: CountVal 2 label different in the variables."},
            14},
        Row{"MRSET /MDGROUP NAME=$a VARIABLES=q1 q4 VALUE=2.5",
            true,
            {"MDGROUP name \"$a\" variables (Q1 Q4) value \"2.5\" number"},
            {"error: The counted value 2.5 is not an integer."},
            13},
        Row{"MRSET /MDGROUP NAME=$a VARIABLES=q1 q3 VALUE='1'",
            false,
            {},
            {"warning: CountVal 1 label different in the variables.",
             "error: $a:variables are numbers and countedval is string."},
            12},
        Row{"MRSET /MDGROUP NAME=$a VARIABLES=s8 s3 VALUE=1",
            false,
            {},
            {"error: $a:variables are string and countedval is number."},
            12},
        Row{"MRSET /MDGROUP NAME=$a VARIABLES=q1 q3 VALUE=3 LABELS=VARLABEL",
            false,
            {},
            {"error: $a:LABELSOURCE=VARLABEL requires CATEGORYLABELS=COUNTEDVALUES..."},
            15},
        Row{"MRSET /MDGROUP NAME=$a VARIABLES=q1 q3 VALUE=1 LABELSO=VAR CAT=COU",
            true,
            {"MDGROUP name \"$a\" variables (Q1 Q3) value \"1\" number label-by-variable counted-value-labels"},
            {},
            19},
        Row{"MRSET /MDGROUP NAME=$a VARIABLES=q1 q3 VALUE=3 CAT=COUNTED CAT=VARLABELS",
            true,
            {"MDGROUP name \"$a\" variables (Q1 Q3) value \"3\" number"},
            {},
            19},
        Row{"MRSET /MDGROUP NAME=$a CAT=COUNT VARIABLES=q1 q4 q9x VALUE=1",
            false,
            {},
            {"host error: Variable q9x is not in the dictionary."},
            12},
        Row{"MRSET /MDGROUP NAME=$a CAT=COUNT VARIABLES=q1 q4 q2 VALUE=1",
            false,
            {},
            {"error: No countedval label for variable Q4..."},
            16},
        Row{"MRSET /MDGROUP NAME=$a CAT=COUNT VARIABLES=q1 q2 VALUE=1",
            false,
            {},
            {"error: CountedVal label of variable Q2 is not unique..."},
            15}));

INSTANTIATE_TEST_SUITE_P(
    VariableLists, ParseRows,
    testing::Values(
        Row{"MRSET /MCGROUP VARIABLES q1", false, {}, {"error: MRSET VARIABLES was expecting \"=\". Found q1..."}, 3},
        Row{"MRSET /MCGROUP VARIABLES=",
            false,
            {},
            {"error: MCGROUP has no name.", "error: MCGROUP  has no variable names."},
            4},
        Row{"MRSET /MCGROUP VARIABLES==", false, {}, {"error: Unexpected = keyword in MCGROUP subcommand."}, 3},
        Row{"MRSET /MCGROUP VARIABLES=ALL", false, {}, {"error: Unexpected ALL keyword in MCGROUP subcommand."}, 4},
        Row{"MRSET /MCGROUP NAME=$a VARIABLES=q1 LABEL",
            false,
            {},
            {"host error: Variable LABEL is not in the dictionary."},
            8},
        Row{"MRSET /MCGROUP NAME=$a VARIABLES=LABEL='x'", false, {}, {"error: MCGROUP $a has no variable names."}, 10},
        Row{"MRSET /MCGROUP NAME=$a VARIABLES=q1 q1", false, {}, {"host error: Variable Q1 is listed twice."}, 8},
        Row{"MRSET /MCGROUP NAME=$a VARIABLES=q3 to q1",
            false,
            {},
            {"host error: The range from q3 to q1 is reversed."},
            9},
        Row{"MRSET /MCGROUP NAME=$a VARIABLES=q1 to", false, {}, {"host error: The range from q1 has no end."}, 8},
        Row{"MRSET /MCGROUP NAME=$a VARIABLES=to q1", false, {}, {"host error: TO has no variable before it."}, 8},
        Row{"MRSET /MCGROUP NAME=$a VARIABLES=q1", false, {}, {"error: Only one variable Q1 was found."}, 8},
        Row{"MRSET /MCGROUP NAME=$a VARIABLES=s3 q1", false, {}, {"error: Q1 variable has a different type."}, 9},
        Row{"MRSET /MCGROUP NAME=$a VARIABLES=q1 s3", false, {}, {"error: S3 variable has a different type."}, 9},
        Row{"MRSET /MDGROUP NAME=$a VARIABLES=s8 s3 VALUE='abcd'",
            false,
            {},
            {"error: CountVal abcd is wider than the narrowest variable."},
            12},
        Row{"MRSET /MDGROUP NAME=$a VARIABLES=s8 s3 s2 VALUE=' ab '",
            true,
            {"MDGROUP name \"$a\" variables (S8 S3 S2) value \" ab \""},
            {"warning: CountVal  ab  label different in the variables."},
            14}));

INSTANTIATE_TEST_SUITE_P(
    Categories, ParseRows,
    testing::Values(
        Row{"MRSET /MCGROUP", false, {}, {"error: Empty MCGroup found"}, 2},
        Row{"MRSET /MCGROUP/DELETE NAME=ALL", false, {}, {}, 2},
        Row{"MRSET /MCGROUP LabelSource=VARLABEL",
            false,
            {},
            {"error: Unexpected LabelSource keyword in MCGROUP subcommand."},
            2},
        Row{"MRSET /MCGROUP VALUE=1", false, {}, {"error: Unexpected VALUE keyword in MCGROUP subcommand."}, 2},
        Row{"MRSET /MCGROUP VARIABLES=q1 q2", true, {"MCGROUP variables (Q1 Q2)"}, {"error: MCGROUP has no name."}, 7},
        Row{"MRSET /MCGROUP NAME=$a NAME=$b LAB='x' VARIABLES=q3 q4 VAR=q1 q2",
            true,
            {"MCGROUP name \"$b\" label \"x\" variables (Q1 Q2)"},
            {},
            20}));

INSTANTIATE_TEST_SUITE_P(
    NameLists, ParseRows,
    testing::Values(
        Row{"MRSET /DISPLAY", false, {}, {"error: Empty Display found"}, 2},
        Row{"MRSET /DELETE", false, {}, {"error: Empty Delete found"}, 2},
        Row{"MRSET /DELETE/DISPLAY NAME=ALL", false, {}, {}, 2},
        Row{"MRSET /DELETE LABEL=[$a]", false, {}, {"error: Unexpected LABEL keyword in DELETE subcommand."}, 2},
        Row{"MRSET /DISPLAY ALL", false, {}, {"error: Unexpected ALL keyword in DISPLAY subcommand."}, 2},
        Row{"MRSET /DISPLAY NAME=[$a b]", true, {"DISPLAY names ($a b)"}, {}, 9},
        Row{"MRSET /DISPLAY NAME=[]", true, {"DISPLAY"}, {}, 7},
        Row{"MRSET /DISPLAY NAME=[$a] NAME=[$b]", true, {"DISPLAY names ($b)"}, {}, 13},
        Row{"MRSET /DISPLAY NAME=[$a] NAME=ALL", true, {kDisplayAll}, {}, 11},
        Row{"MRSET /DISPLAY NAME=?", true, {"DISPLAY"}, {}, 6},
        Row{"MRSET /DISPLAY NAME=/DELETE NAME=ALL",
            false,
            {},
            {"error: Unexpected DELETE keyword in DISPLAY subcommand."},
            5},
        Row{"MRSET /DISPLAY NAME $a", false, {}, {"error: Names \"=\" was expected. Found $a..."}, 3},
        Row{"MRSET /DISPLAY NAME=$a", false, {}, {"error: Square bracket expected."}, 4},
        Row{"MRSET /DISPLAY NAME=", false, {}, {"error: Square bracket expected."}, 4},
        Row{"MRSET /DISPLAY NAME=[$a,$b]", false, {}, {"error: Name or right sq bracket expected. Found ,..."}, 6},
        Row{"MRSET /DISPLAY NAME=[5]", false, {}, {"error: Name or right sq bracket expected. Found 5..."}, 5},
        Row{"MRSET /DISPLAY NAME=[$a", false, {}, {"error: Square bracket expected."}, 6}));

std::string MCGroupWithLabel(const std::string& label) {
  return "MRSET /MCGROUP NAME=$a VARIABLES=q1 q2 LABEL='" + label + "'";
}

TEST(ReferenceParser, KeepsALabelOf255Bytes) {
  const std::string label(255, 'x');
  const ParseResult result = Parse(scripted::Tokenize(MCGroupWithLabel(label)), Survey());
  EXPECT_THAT(result.messages, IsEmpty());
  ASSERT_EQ(result.records.size(), 1u);
  EXPECT_EQ(result.records[0].fLabel, label);
}

TEST(ReferenceParser, CutsALongerLabelBetweenCharacters) {
  const std::string label = std::string(254, 'x') + "\xC3\xA9";
  const ParseResult result = Parse(scripted::Tokenize(MCGroupWithLabel(label)), Survey());
  EXPECT_THAT(result.messages,
              ElementsAre("warning: The MRSET label " + label + " will be truncated to a length of 255 chars."));
  ASSERT_EQ(result.records.size(), 1u);
  EXPECT_EQ(result.records[0].fLabel, std::string(254, 'x'));
}

TEST(ReferenceParser, CountsNoNumberAsNoInteger) {
  auto tokens = scripted::Tokenize("MRSET /MDGROUP NAME=$a VARIABLES=q1 q4 VALUE=1");
  tokens.back().number = std::nan("");
  const ParseResult result = Parse(tokens, Survey());
  EXPECT_TRUE(result.parsed);
  EXPECT_THAT(result.messages, ElementsAre("error: The counted value 1 is not an integer."));
}

TEST(ReferenceParser, GivesAnEmptyArgumentsPlaceToTheNextOne) {
  const ParseResult result = Parse({Word("MRSET"), Word("MCGROUP"), Word("NAME"), scripted::Quoted("")}, Survey());
  EXPECT_THAT(result.messages, ElementsAre("error: MRSET NAME was expecting \"=\". Found ...;"));

  Report report;
  report.Error("^1 and ^2", "", "second");
  report.Warning("^1 and ^2", "^2", "second");
  EXPECT_THAT(report.Lines(), ElementsAre("error: second and ", "warning: ^2 and second"));
}

TEST(ReferenceParser, AssertsThatTheCommandNameIsAWord) {
  const std::string expression = "command.Type() == TokenSequenceBase::kString";
  EXPECT_THAT(Parse({}, Survey()).assertion, Optional(expression));
  const ParseResult result = Parse({scripted::Quoted("MRSET"), Symbol("/")}, Survey());
  EXPECT_THAT(result.assertion, Optional(expression));
  EXPECT_FALSE(result.parsed);
  EXPECT_EQ(result.cursor, 0);
}

TEST(ReferenceParser, AssertsThatTheCommandNameIsItsOwn) {
  EXPECT_THAT(Parse({Word("FROB")}, Survey()).assertion,
              Optional(std::string("IsTokenEqualWith(command, std:: string(\"MRSET\"))")));
}

TEST(ReferenceParser, AssertsThatAListedNameIsNotEmpty) {
  const ParseResult result =
      Parse({Word("MRSET"), Word("DELETE"), Word("NAME"), Symbol("="), Symbol("["), Word(""), Symbol("]")}, Survey());
  EXPECT_THAT(result.assertion, Optional(std::string("!mrSetName.empty()")));
  EXPECT_THAT(result.records, IsEmpty());
}

TEST(ReferenceParser, AssertsThatAWidthAmongStringsIsNotNegative) {
  const ParseResult result =
      Parse(scripted::Tokenize("MRSET /MCGROUP NAME=$a VARIABLES=s odd"), {String("s", 3), String("odd", -2)});
  EXPECT_THAT(result.assertion, Optional(std::string("var.GetType() > 0")));
}

TEST(ReferenceParser, TestsTheAllSetsSymbolByItsCodeAlone) {
  scripted::Token odd = Word("every");
  odd.symbol = scripted::kAllSets;
  const ParseResult result = Parse({Word("MRSET"), Word("DELETE"), Word("NAME"), Symbol("="), odd}, Survey());
  EXPECT_TRUE(result.parsed);
  EXPECT_THAT(Texts(result.records), ElementsAre("DELETE all"));
}

TEST(ReferenceParser, ExpectsASubcommandSymbolBehindAnEarlyEnd) {
  scripted::Token early = DefaultEnd();
  early.text = "early";
  const ParseResult result =
      Parse({Word("MRSET"), Word("DISPLAY"), Word("NAME"), Symbol("="), Symbol("ALL"), early, Word("x")}, Survey());
  EXPECT_FALSE(result.parsed);
  EXPECT_THAT(Texts(result.records), ElementsAre("DISPLAY all"));
  EXPECT_THAT(result.messages, ElementsAre("error: Begin subcommand symbol expected. Found early ..."));
  EXPECT_EQ(result.cursor, 5);
}

TEST(ReferenceParser, TakesAllVariablesOfAHandBuiltRecordForStrings) {
  Record record;
  record.fType = Record::kMDGROUP;
  record.fName = "$a";
  record.fAll = true;
  record.fValue = "1";
  Report report;
  EXPECT_TRUE(ValidateMDGroup(record, Survey(), report));
  record.fValueIsNumber = true;
  EXPECT_FALSE(ValidateMDGroup(record, Survey(), report));
  EXPECT_THAT(report.Lines(), ElementsAre("error: $a:variables are string and countedval is number."));
}

TEST(ReferenceParser, RefusesLabelSourceInAHandBuiltCategoryRecord) {
  Record record;
  record.fType = Record::kMCGROUP;
  record.fName = "$a";
  record.fVariables = {"q1", "q2"};
  record.fLabelSourceVarLabel = true;
  Report report;
  EXPECT_FALSE(ValidateMCGroup(record, Survey(), report));
  EXPECT_THAT(report.Lines(), ElementsAre("error: $a:LABELSOURCE=VARLABEL is invalid for an MCGROUP..."));
}

TEST(ReferenceParser, ReportsAVariableThatIsNotInTheDataset) {
  Record record;
  record.fType = Record::kMCGROUP;
  record.fName = "$a";
  record.fVariables = {"q1", "gone"};
  Report report;
  EXPECT_FALSE(ValidateMCGroup(record, Survey(), report));
  EXPECT_THAT(report.Lines(), ElementsAre("error: gone variable not in the dataset."));
}

}  // namespace
}  // namespace reference
