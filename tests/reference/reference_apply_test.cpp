#include "tests/reference/reference_apply.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "tests/reference/reference_parser.h"

namespace reference {
namespace {

using scripted::Categories;
using scripted::Dichotomies;
using scripted::Numeric;
using scripted::SetData;
using scripted::String;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Optional;

using Sets = std::vector<SetData>;

const char kTitle[] = "Multiple Response Sets: Name by Attributes";
const char kHeadings[] = "Label | Coded As | Counted Value | Data Type | Elementary Variables";

const std::vector<scripted::Variable>& Survey() {
  static const std::vector<scripted::Variable> variables{Numeric("Q1", "First"), Numeric("Q2", ""), Numeric("Q3"),
                                                         String("S1", 3)};
  return variables;
}

/// Applies a command that parses without a message.
ApplyResult Applied(const std::string& command, const Sets& sets) {
  const ParseResult parsed = Parse(scripted::Tokenize(command), Survey());
  EXPECT_TRUE(parsed.parsed) << command;
  EXPECT_THAT(parsed.messages, IsEmpty()) << command;
  return Apply(parsed.records, Survey(), sets);
}

SetData Likes(const std::string& name) {
  return Dichotomies(name, "1", {"Q1", "Q3"}, "Likes");
}

TEST(ReferenceApply, SavesTheLoadedSetsOfAnEmptyList) {
  const ApplyResult result = Apply({}, Survey(), {Likes("$b"), Likes("$a")});
  EXPECT_THAT(result.saved, Optional(ElementsAre(Likes("$b"), Likes("$a"))));
  EXPECT_THAT(result.editedSets, IsEmpty());
}

TEST(ReferenceApply, ReplacesInPlaceWithoutRegardToCase) {
  const SetData other = Categories("$z", {"Q1"});
  const ApplyResult result =
      Applied("MRSET /MDGROUP NAME=$abc VARIABLES=q1 q2 VALUE=2 /MCGROUP NAME=$New LABEL='x' VARIABLES=q1 q2",
              {other, Likes("$ABC")});
  const SetData first = Dichotomies("$abc", "2", {"Q1", "Q2"});
  const SetData second = Categories("$New", {"Q1", "Q2"}, "x");
  EXPECT_THAT(result.editedSets, ElementsAre(ElementsAre(other, first), ElementsAre(other, first, second)));
  EXPECT_THAT(result.saved, Optional(ElementsAre(other, first, second)));
}

TEST(ReferenceApply, WarnsOfEachNameToDeleteThatMatchesNothing) {
  const ApplyResult result = Applied("MRSET /DELETE NAME=[$A $a] /DELETE NAME=[$b]", {Likes("$a")});
  EXPECT_THAT(result.messages, ElementsAre("warning: $a MRSET can not be found in the dataset.",
                                           "warning: $b MRSET can not be found in the dataset."));
  EXPECT_THAT(result.saved, Optional(IsEmpty()));
}

TEST(ReferenceApply, WarnsWhereThereIsNothingToDeleteOrDisplay) {
  const ApplyResult result = Applied("MRSET /DELETE NAME=ALL /DELETE NAME=ALL /DISPLAY NAME=ALL", {Likes("$a")});
  EXPECT_THAT(result.messages, ElementsAre("warning: No MRSETs to delete", "warning: No MRSET to display"));
  EXPECT_THAT(result.tables, IsEmpty());
}

TEST(ReferenceApply, SavesWhatItDisplaysInOrderOfUpperCaseNames) {
  const ApplyResult result =
      Applied("MRSET /DISPLAY NAME=[$none]", {Likes("$X_Y"), Likes("$xy"), Likes("$X1"), Likes("$r")});
  EXPECT_THAT(result.saved, Optional(ElementsAre(Likes("$r"), Likes("$X1"), Likes("$xy"), Likes("$X_Y"))));
  EXPECT_THAT(result.messages, ElementsAre("warning: One or more of the sets specified do not exist... $none"));
  EXPECT_THAT(result.tables, ElementsAre(ElementsAre(kTitle, kHeadings)));
}

TEST(ReferenceApply, DisplaysTheNamedSetsOnceAndListsTheOtherMentions) {
  const ApplyResult result =
      Applied("MRSET /DISPLAY NAME=[$Z $a $none $A]", {Likes("$z"), Categories("$A", {"S1", "gone"})});
  EXPECT_THAT(result.messages, ElementsAre("warning: One or more of the sets specified do not exist... $none, $A"));
  EXPECT_THAT(result.tables, ElementsAre(ElementsAre(kTitle, kHeadings,
                                                     "$A | - | Categories | N/A | String | S1; gone(no longer exists)",
                                                     "$z | Likes | Dichotomies | 1 | Numeric | First; Q3")));
}

TEST(ReferenceApply, NotesTheUseOfValueLabelsAndShowsVariablesByName) {
  SetData set = Likes("$a");
  set.useVariableCategoryLabels = true;
  set.labelSetByVariable = true;
  const ApplyResult result = Applied("MRSET /DISPLAY NAME=ALL", {set, Dichotomies("$b", "1", {"x", "y"})});
  EXPECT_THAT(result.tables,
              ElementsAre(ElementsAre(
                  kTitle, kHeadings,
                  "$a | (use variable label) | Dichotomies | 1 {Using variable value labels} | Numeric | Q1; Q3",
                  "$b | - | Dichotomies | 1 | Unknown | x(no longer exists); y(no longer exists)")));
}

TEST(ReferenceApply, TakesEveryVariableForAHandBuiltRecord) {
  Record record;
  record.fType = Record::kMCGROUP;
  record.fName = "$a";
  record.fAll = true;
  EXPECT_THAT(Apply({record}, Survey(), {}).saved, Optional(ElementsAre(Categories("$a", {"Q1", "Q2", "Q3", "S1"}))));
}

std::string AssertionOf(const std::string& command, const Sets& sets) {
  const ParseResult parsed = Parse(scripted::Tokenize(command), Survey());
  EXPECT_TRUE(parsed.parsed) << command;
  const ApplyResult result = Apply(parsed.records, Survey(), sets);
  EXPECT_EQ(result.saved, std::nullopt) << command;
  return result.assertion.value_or("none");
}

TEST(ReferenceApply, StopsAtAFailedAssertion) {
  EXPECT_EQ(AssertionOf("MRSET /MCGROUP VARIABLES=q1 q2", {}), "!subcmd.fName.empty()");
  EXPECT_EQ(AssertionOf("MRSET /DELETE NAME=[]", {}), "!subcmd.fNames.empty()");
  EXPECT_EQ(AssertionOf("MRSET /DELETE NAME=[a]", {}), "(*namesIter)[0] == '$'");
  EXPECT_EQ(AssertionOf("MRSET /DELETE NAME=[$a]", {Likes("$a"), Likes("$A")}), "(end - 1) == last");
  SetData plain = Likes("$a");
  plain.type = VariableSet::kVarSet;
  EXPECT_EQ(AssertionOf("MRSET /DISPLAY NAME=ALL", {plain}), "iter->GetType() != VariableSet::kVarSet");
}

}  // namespace
}  // namespace reference
