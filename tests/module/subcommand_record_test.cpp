#include "backend/mrset/mrsetsubcommand.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <type_traits>
#include <vector>

#include "backend/mrset/mrsetparse.h"
#include "tests/module/apply_phase.h"
#include "tests/module/parsing.h"
#include "tests/module/records.h"
#include "tests/module/run.h"

namespace module_test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

static_assert(std::is_same_v<std::underlying_type_t<MRSetSubcommand::Type>, std::int32_t>);
static_assert(MRSetSubcommand::kNONE == 0);
static_assert(MRSetSubcommand::kMDGROUP == 1);
static_assert(MRSetSubcommand::kMCGROUP == 2);
static_assert(MRSetSubcommand::kDISPLAY == 3);
static_assert(MRSetSubcommand::kDELETE == 4);
static_assert(std::is_same_v<MRSETSUBCOMMANDS, std::vector<MRSetSubcommand>>);

MRSetSubcommand FullRecord() {
  return {MRSetSubcommand::kMDGROUP, "$name", "Label", {"q1", "q2"}, "1", true, {"$x", "$y"}, true, true, true};
}

void ExpectFullRecord(const MRSetSubcommand& record) {
  EXPECT_EQ(ToText(record),
            "MDGROUP name <$name> label <Label> variables (q1 q2) value <1> number names ($x $y) all labelsource "
            "countedvalues");
}

void ExpectDefaultRecord(const MRSetSubcommand& record) {
  EXPECT_EQ(record.fType, MRSetSubcommand::kNONE);
  EXPECT_EQ(record.fName, "");
  EXPECT_EQ(record.fLabel, "");
  EXPECT_THAT(record.fVariables, IsEmpty());
  EXPECT_EQ(record.fValue, "");
  EXPECT_FALSE(record.fValueIsNumber);
  EXPECT_THAT(record.fNames, IsEmpty());
  EXPECT_FALSE(record.fAll);
  EXPECT_FALSE(record.fLabelSourceVarLabel);
  EXPECT_FALSE(record.fCategoryLabelsCountedValues);
}

TEST(SubcommandRecord, IsMadeEmptyAndWithoutAnyFlag) {
  const MRSetSubcommand made;
  ExpectDefaultRecord(made);
  ExpectDefaultRecord(MRSetSubcommand());
}

TEST(SubcommandRecord, HasItsTenFieldsInTheAgreedOrder) {
  const MRSetSubcommand record = FullRecord();
  const auto& [type, name, label, variables, value, valueIsNumber, names, all, labelSource, categoryLabels] = record;
  EXPECT_EQ(&type, &record.fType);
  EXPECT_EQ(&name, &record.fName);
  EXPECT_EQ(&label, &record.fLabel);
  EXPECT_EQ(&variables, &record.fVariables);
  EXPECT_EQ(&value, &record.fValue);
  EXPECT_EQ(&valueIsNumber, &record.fValueIsNumber);
  EXPECT_EQ(&names, &record.fNames);
  EXPECT_EQ(&all, &record.fAll);
  EXPECT_EQ(&labelSource, &record.fLabelSourceVarLabel);
  EXPECT_EQ(&categoryLabels, &record.fCategoryLabelsCountedValues);
}

TEST(SubcommandRecord, CopiesAreDeep) {
  MRSetSubcommand record = FullRecord();
  const MRSetSubcommand copy = record;
  MRSetSubcommand assigned;
  assigned = record;
  MRSETSUBCOMMANDS list(1, record);
  record.fName[1] = 'N';
  record.fLabel.clear();
  record.fVariables.front() = "other";
  record.fValue += "2";
  record.fNames.pop_back();
  record.fAll = false;
  list.resize(100);  // makes it grow

  ExpectFullRecord(copy);
  ExpectFullRecord(assigned);
  ExpectFullRecord(list.front());
  ExpectDefaultRecord(list.back());
}

/// The records that the parse phase makes of a command on the survey.
MRSETSUBCOMMANDS Parsed(const std::string& command, bool result = true) {
  Parsing parsing(command);
  MRSETSUBCOMMANDS records;
  EXPECT_EQ(MRSetParse(parsing.Stream(), parsing.Source(), records), result) << command;
  return records;
}

TEST(SubcommandRecord, EachSubcommandFillsItsOwnFields) {
  const struct {
    std::string command;
    Lines records;
  } kRows[] = {
      {"MRSET /MDGROUP NAME=$Likes LABEL='Drinks' VARIABLES=Q2 q1 VALUE=1 CATEGORYLABELS=COUNTEDVALUES "
       "LABELSOURCE=VARLABEL",
       {"MDGROUP name <$Likes> label <Drinks> variables (q2 q1) value <1> number labelsource countedvalues"}},
      {"MRSET /MDGROUP NAME=$s VARIABLES=s8 s3 VALUE='yes' CATEGORYLABELS=VARLABELS",
       {"MDGROUP name <$s> variables (s8 s3) value <yes>"}},
      {"MRSET /MCGROUP NAME=$m LABEL='Any' VARIABLES=q1 TO q4",
       {"MCGROUP name <$m> label <Any> variables (q1 q2 q3 q4)"}},
      {"MRSET /DISPLAY NAME=[$b $A $b]", {"DISPLAY names ($b $A $b)"}},
      {"MRSET /DISPLAY NAME=ALL", {"DISPLAY all"}},
      {"MRSET /DELETE NAME=[$A]", {"DELETE names ($A)"}},
      {"MRSET /DELETE NAME=ALL", {"DELETE all"}},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.command);
    EXPECT_EQ(ToText(Parsed(row.command)), row.records);
  }
}

TEST(SubcommandRecord, OfEverySetHasNoNames) {
  for (const std::string command : {"MRSET /DISPLAY NAME=ALL", "MRSET /DELETE NAME=ALL",
                                    "MRSET /DELETE NAME=[$a] NAME=ALL", "MRSET /DISPLAY NAME=[$a $b] NAME=ALL"}) {
    SCOPED_TRACE(command);
    const MRSETSUBCOMMANDS records = Parsed(command);
    ASSERT_EQ(records.size(), 1U);
    EXPECT_TRUE(records.front().fAll);
    EXPECT_THAT(records.front().fNames, IsEmpty());
  }
}

TEST(SubcommandRecord, OfADeleteByNamesHasAtLeastOneName) {
  const struct {
    std::string command;
    Lines names;
  } kRows[] = {{"MRSET /DELETE NAME=[$a]", {"$a"}},
               {"MRSET /DELETE NAME=[$a $B]", {"$a", "$B"}},
               {"MRSET /DELETE NAME=ALL NAME=[$c]", {"$c"}}};
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.command);
    const MRSETSUBCOMMANDS records = Parsed(row.command);
    ASSERT_EQ(records.size(), 1U);
    EXPECT_FALSE(records.front().fAll);
    EXPECT_EQ(records.front().fNames, row.names);
  }
}

TEST(SubcommandRecord, OfAnMDGroupNeverStandsForAllVariablesOnceParsed) {
  const MRSETSUBCOMMANDS records = Parsed("MRSET /MDGROUP NAME=$a VARIABLES=q3 q1 VALUE=0");
  ASSERT_EQ(records.size(), 1U);
  EXPECT_FALSE(records.front().fAll);
  ApplyPhase phase;
  phase.Apply(records);
  EXPECT_EQ(phase.Host().SavedSets(), std::vector{scripted::Dichotomies("$a", "0", {"q3", "q1"})});
}

TEST(SubcommandRecord, ForAllVariablesNoLongerIsWhenVariablesAreParsed) {
  Parsing parsing("MRSET /MDGROUP VARIABLES=q1 q2");
  parsing.record.fType = MRSetSubcommand::kMDGROUP;
  parsing.record.fAll = true;
  parsing.At("VARIABLES");
  EXPECT_TRUE(ParseVariables(parsing.Stream(), parsing.Source(), parsing.record.fVariables, parsing.record.fAll));
  EXPECT_FALSE(parsing.record.fAll);
}

TEST(SubcommandRecord, ForAllVariablesMadeByHandTakesEveryOneInDictionaryOrder) {
  const std::vector<std::string> everyVariable = {"q1", "q2", "q3", "q4", "s8", "s3", "n1", "n2"};
  ApplyPhase phase;
  phase.Apply({All(MDGroup("$d", "1", {})), All(MCGroup("$c", {"n2"}))});
  EXPECT_EQ(phase.Host().SavedSets(),
            (std::vector{scripted::Dichotomies("$d", "1", everyVariable), scripted::Categories("$c", everyVariable)}));
}

TEST(SubcommandRecord, HoldsTheCountedValueAsTheTokensText) {
  const struct {
    std::string value;
    std::string variables;
    std::string text;
    bool isNumber;
  } kRows[] = {{"1", "n1 n2", "1", true},          {"+1", "n1 n2", "+1", true},     {"01.00", "n1 n2", "01.00", true},
               {"1E0", "n1 n2", "1E0", true},      {"-3", "n1 n2", "-3", true},     {"'1'", "s8 s3", "1", false},
               {"\"yes\"", "s8 s3", "yes", false}, {"' a '", "s8 s3", " a ", false}};
  for (const auto& row : kRows) {
    SCOPED_TRACE("VALUE=" + row.value);
    const MRSETSUBCOMMANDS records =
        Parsed("MRSET /MDGROUP NAME=$a VARIABLES=" + row.variables + " VALUE=" + row.value);
    ASSERT_EQ(records.size(), 1U);
    EXPECT_EQ(records.front().fValue, row.text);
    EXPECT_EQ(records.front().fValueIsNumber, row.isNumber);
  }
}

TEST(SubcommandRecord, IsMadeAfreshForEachSubcommand) {
  EXPECT_THAT(
      ToText(Parsed("MRSET /MDGROUP NAME=$a LABEL='A' VARIABLES=q1 q2 VALUE=1 CATEGORYLABELS=COUNTEDVALUES "
                    "/MCGROUP NAME=$b VARIABLES=n1 n2 /DISPLAY NAME=ALL /DISPLAY NAME=[$a] /DELETE NAME=[$b]")),
      ElementsAre("MDGROUP name <$a> label <A> variables (q1 q2) value <1> number countedvalues",
                  "MCGROUP name <$b> variables (n1 n2)", "DISPLAY all", "DISPLAY names ($a)", "DELETE names ($b)"));
}

TEST(SubcommandRecord, IsAppendedOnlyWhenItsSubcommandWasAccepted) {
  EXPECT_THAT(ToText(Parsed("MRSET /DISPLAY NAME=ALL /DELETE NAME=[$a] /DISPLAY NAME", false)),
              ElementsAre("DISPLAY all", "DELETE names ($a)"));
  EXPECT_THAT(Parsed("MRSET /MDGROUP NAME=$a VARIABLES=q1 q2", false), IsEmpty());
}

}  // namespace
}  // namespace module_test
