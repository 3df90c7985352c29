#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "backend/mrset/mrsetapply.h"
#include "tests/module/apply_phase.h"
#include "tests/module/assertion_report.h"
#include "tests/module/records.h"
#include "tests/module/run.h"

namespace module_test {
namespace {

using scripted::Categories;
using scripted::Dichotomies;
using scripted::Numeric;
using scripted::SetData;
using scripted::String;
using scripted::Table;
using testing::ElementsAre;
using testing::IsEmpty;

const std::string kTitleLine = "Multiple Response Sets: Name by Attributes";
const std::string kHeadingLine = "Label | Coded As | Counted Value | Data Type | Elementary Variables";

SetData WithFlags(SetData set, bool labelSetByVariable, bool useVariableCategoryLabels) {
  set.labelSetByVariable = labelSetByVariable;
  set.useVariableCategoryLabels = useVariableCategoryLabels;
  return set;
}

/// Calls the report alone, on a list of sets as it stands.
void Show(ApplyPhase& phase, const MRSetSubcommand& record, const std::vector<SetData>& list) {
  const VARIABLESETS sets = scripted::ToSets(list);
  DisplayMRSets(record, phase.Parent(), sets, phase.Procedure());
  phase.ExpectNothingWrong();
  EXPECT_EQ(scripted::ToData(sets), list);
}

class DisplayReport : public testing::Test {
 protected:
  void Show(const MRSetSubcommand& record, const std::vector<SetData>& list) {
    module_test::Show(fPhase, record, list);
  }

  /// The line of the table that a list of one set has.
  std::string Row(const SetData& set) {
    Show(DisplayAll(), {set});
    const Lines lines = Tables().back().Lines();
    EXPECT_EQ(lines.size(), 3U);
    return lines.back();
  }

  const std::vector<Table>& Tables() { return fPhase.Host().Tables(); }

  ApplyPhase fPhase;
};

// The table.

TEST_F(DisplayReport, TableOfADichotomySetIsMadeStepByStepAndReleasedInReverse) {
  Show(DisplayAll(), {WithFlags(Dichotomies("$Likes", "1", {"Q1", "q4", "gone"}, "Likes"), false, true)});
  EXPECT_THAT(fPhase.Host().Messages(), IsEmpty());
  EXPECT_EQ(fPhase.Host().TraceText(), R"trace(text#1 = BpString("Multiple Response Sets", true)
table#1 = procedure#1.PivotTable(text#1, text#1, false)
text#2 = BpString("Attributes", true)
dimension#1 = table#1.Dimension(text#2, kAsAdded)
~text#2
dimension#1.Position(kColumns, 1, true, false)
text#3 = BpString("Name", true)
dimension#2 = table#1.Dimension(text#3, kAsAdded)
~text#3
text#4 = BpString("Label", true)
category#1 = dimension#1.Category(text#4)
~text#4
text#5 = BpString("Coded As", true)
category#2 = dimension#1.Category(text#5)
~text#5
text#6 = BpString("Counted Value", true)
category#3 = dimension#1.Category(text#6)
~text#6
text#7 = BpString("Data Type", true)
category#4 = dimension#1.Category(text#7)
~text#7
text#8 = BpString("Elementary Variables", true)
category#5 = dimension#1.Category(text#8)
~text#8
text#9 = BpString("Using variable value labels", true)
note#1 = text#9.Replicate()
~text#9
set "$Likes".GetType() -> kMDSet
set "$Likes".GetName(kAsStored) -> "$Likes"
text#10 = BpString("$Likes", false)
category#6 = dimension#2.Category(text#10)
~text#10
set "$Likes".qLabelSetByVariable() -> false
set "$Likes".GetLabel() -> "Likes"
text#11 = BpString("Likes", false)
category#1.Cell(text#11)
~text#11
set "$Likes".GetType() -> kMDSet
text#12 = BpString("Dichotomies", true)
category#2.Cell(text#12)
~text#12
set "$Likes".GetValue() -> "1"
text#13 = BpString("1", false)
category#3.Cell(text#13)
~text#13
set "$Likes".qUseVariableCategoryLabels() -> true
category#3.CellNote(note#1)
set "$Likes".GetVariableNames(kUpperCase) -> ["Q1", "Q4", "GONE"]
parent.FindVarIndex("Q1", 0) -> 0
parent.GetVariable(0) -> variable q1
variable q1.GetType() -> 0
text#14 = BpString("Numeric", true)
category#4.Cell(text#14)
~text#14
composite#1 = BpComposite("[:^1\r:$1]1", false)
composite#1.Sublist()
set "$Likes".GetVariableNames(kAsStored) -> ["Q1", "q4", "gone"]
parent.FindVarIndex("Q1", 0) -> 0
parent.GetVariable(0) -> variable q1
variable q1.GetName() -> "q1"
text#15 = BpString("q1", false)
composite#1.Add(text#15)
~text#15
parent.FindVarIndex("q4", 0) -> 3
parent.GetVariable(3) -> variable q4
variable q4.GetName() -> "q4"
text#16 = BpString("q4", false)
composite#1.Add(text#16)
~text#16
parent.FindVarIndex("gone", 0) -> -1
text#17 = BpString("gone(no longer exists)", false)
composite#1.Add(text#17)
~text#17
composite#1.EndSublist()
category#5.Cell(composite#1)
~composite#1
~category#6
~note#1
~category#5
~category#4
~category#3
~category#2
~category#1
~dimension#2
~dimension#1
~table#1
~text#1
)trace");
}

TEST_F(DisplayReport, RowOfACategorySetIsMadeStepByStep) {
  Show(DisplayAll(), {WithFlags(Categories("$c", {"q1", "q4"}, "Any"), true, false)});
  const Lines& trace = fPhase.Host().Trace();
  const auto begin = std::find(trace.begin(), trace.end(), "~text#9");
  const auto end = std::find(trace.begin(), trace.end(), "~note#1");
  ASSERT_TRUE(begin != trace.end() && end != trace.end());
  EXPECT_THAT(Lines(begin + 1, end),
              ElementsAre("set \"$c\".GetType() -> kMCSet",                               //
                          "set \"$c\".GetName(kAsStored) -> \"$c\"",                      //
                          "text#10 = BpString(\"$c\", false)",                            //
                          "category#6 = dimension#2.Category(text#10)",                   //
                          "~text#10",                                                     //
                          "set \"$c\".qLabelSetByVariable() -> true",                     //
                          "text#11 = BpString(\"(use variable label)\", true)",           //
                          "category#1.Cell(text#11)",                                     //
                          "~text#11",                                                     //
                          "set \"$c\".GetType() -> kMCSet",                               //
                          "text#12 = BpString(\"Categories\", true)",                     //
                          "category#2.Cell(text#12)",                                     //
                          "~text#12",                                                     //
                          "text#13 = BpString(\"N/A\", true)",                            //
                          "category#3.Cell(text#13)",                                     //
                          "~text#13",                                                     //
                          "set \"$c\".GetVariableNames(kUpperCase) -> [\"Q1\", \"Q4\"]",  //
                          "parent.FindVarIndex(\"Q1\", 0) -> 0",                          //
                          "parent.GetVariable(0) -> variable q1",                         //
                          "variable q1.GetType() -> 0",                                   //
                          "text#14 = BpString(\"Numeric\", true)",                        //
                          "category#4.Cell(text#14)",                                     //
                          "~text#14",                                                     //
                          "composite#1 = BpComposite(\"[:^1\\r:$1]1\", false)",           //
                          "composite#1.Sublist()",                                        //
                          "set \"$c\".GetVariableNames(kAsStored) -> [\"q1\", \"q4\"]",   //
                          "parent.FindVarIndex(\"q1\", 0) -> 0",                          //
                          "parent.GetVariable(0) -> variable q1",                         //
                          "variable q1.GetLabel() -> \"Tea\"",                            //
                          "text#15 = BpString(\"Tea\", false)",                           //
                          "composite#1.Add(text#15)",                                     //
                          "~text#15",                                                     //
                          "parent.FindVarIndex(\"q4\", 0) -> 3",                          //
                          "parent.GetVariable(3) -> variable q4",                         //
                          "variable q4.GetLabel() -> null",                               //
                          "variable q4.GetName() -> \"q4\"",                              //
                          "text#16 = BpString(\"q4\", false)",                            //
                          "composite#1.Add(text#16)",                                     //
                          "~text#16",                                                     //
                          "composite#1.EndSublist()",                                     //
                          "category#5.Cell(composite#1)",                                 //
                          "~composite#1",                                                 //
                          "~category#6"));
}

TEST_F(DisplayReport, TableHasItsConstantsAndNoFootnoteThatIsNotNeeded) {
  Show(DisplayAll(), {Categories("$c", {"q1"})});
  ASSERT_EQ(Tables().size(), 1U);
  const Table& table = Tables().front();
  EXPECT_EQ(table.title.text, "Multiple Response Sets");
  EXPECT_EQ(table.second.text, "Multiple Response Sets");
  EXPECT_FALSE(table.flag);
  ASSERT_EQ(table.dimensions.size(), 2U);
  EXPECT_EQ(table.dimensions[0].title.text, "Attributes");
  EXPECT_EQ(table.dimensions[0].sort, 2);
  ASSERT_TRUE(table.dimensions[0].position);
  EXPECT_EQ(table.dimensions[0].position->place, 1);
  EXPECT_EQ(table.dimensions[0].position->level, 1);
  EXPECT_TRUE(table.dimensions[0].position->visible);
  EXPECT_FALSE(table.dimensions[0].position->hidden);
  EXPECT_EQ(table.dimensions[1].title.text, "Name");
  EXPECT_EQ(table.dimensions[1].sort, 2);
  EXPECT_FALSE(table.dimensions[1].position);
  EXPECT_THAT(table.Lines(), ElementsAre(kTitleLine, kHeadingLine, "$c | - | Categories | N/A | Numeric | Tea"));

  const auto& events = fPhase.Host().Events();
  EXPECT_EQ(std::count(events.begin(), events.end(), scripted::Event{true, "note#1"}), 1);
}

TEST_F(DisplayReport, OneAnnotationServesEveryCellThatNeedsIt) {
  Show(DisplayAll(), {WithFlags(Dichotomies("$a", "1", {"q1"}), false, true), Dichotomies("$b", "1", {"q1"}),
                      WithFlags(Dichotomies("$c", "2", {"q2"}), true, true)});
  const Lines& trace = fPhase.Host().Trace();
  EXPECT_EQ(std::count(trace.begin(), trace.end(), "category#3.CellNote(note#1)"), 2);
  EXPECT_EQ(CallNumber(trace, "note#2"), 0U);
  EXPECT_THAT(
      Tables().front().Lines(),
      ElementsAre(kTitleLine, kHeadingLine, "$a | - | Dichotomies | 1 {Using variable value labels} | Numeric | q1",
                  "$b | - | Dichotomies | 1 | Numeric | Tea",
                  "$c | (use variable label) | Dichotomies | 2 {Using variable value labels} | Numeric | q2"));
  EXPECT_TRUE(Tables().front().At(0, 2)->notes.front().flag);
}

TEST_F(DisplayReport, RowIsReleasedBeforeTheNextIsMade) {
  Show(DisplayAll(), CategorySets({"$a", "$b"}));
  const auto& events = fPhase.Host().Events();
  const auto place = [&events](bool constructed, const std::string& object) {
    return std::find(events.begin(), events.end(), scripted::Event{constructed, object}) - events.begin();
  };
  EXPECT_LT(place(false, "category#6"), place(true, "category#7"));
  EXPECT_LT(place(false, "composite#1"), place(false, "category#6"));
}

// Cells.

TEST_F(DisplayReport, CellsAreThoseOfTheSetsAttributes) {
  const struct {
    SetData set;
    std::string row;
  } kRows[] = {
      // The label.
      {Categories("$a", {"n1"}, "Any"), "$a | Any | Categories | N/A | Numeric | n1"},
      {Categories("$a", {"n1"}), "$a | - | Categories | N/A | Numeric | n1"},
      {WithFlags(Categories("$a", {"n1"}), true, false), "$a | (use variable label) | Categories | N/A | Numeric | n1"},
      {WithFlags(Dichotomies("$a", "1", {"n1"}, "Any"), true, false),
       "$a | (use variable label) | Dichotomies | 1 | Numeric | n1"},
      {Dichotomies("$a", "1", {"n1"}, "Any"), "$a | Any | Dichotomies | 1 | Numeric | n1"},
      // The counted value, as stored.
      {Dichotomies("$a", "1", {"q1", "q2"}), "$a | - | Dichotomies | 1 | Numeric | Tea; Coffee"},
      {Dichotomies("$a", " 01.0", {"q1"}), "$a | - | Dichotomies |  01.0 | Numeric | Tea"},
      {Dichotomies("$a", "", {"q1"}), "$a | - | Dichotomies |  | Numeric | Tea"},
      // A category set has neither counted value nor footnote, whatever it holds.
      {WithFlags({"$a", VariableSet::kMCSet, "", "7", false, false, {"q1"}}, false, true),
       "$a | - | Categories | N/A | Numeric | Tea"},
      // A type of no name counts as a dichotomy set.
      {{"$a", static_cast<VariableSet::VariableSetType>(3), "", "7", false, false, {"q1"}},
       "$a | - | Dichotomies | 7 | Numeric | Tea"},
      {{"$a", static_cast<VariableSet::VariableSetType>(-1), "", "7", false, true, {"q1"}},
       "$a | - | Dichotomies | 7 {Using variable value labels} | Numeric | q1"},
      // Variables by label, else by the dictionary's name; by name alone with the footnote.
      {Categories("$a", {"Q1", "Q4", "N1"}), "$a | - | Categories | N/A | Numeric | Tea; q4; n1"},
      {WithFlags(Dichotomies("$a", "1", {"Q1", "Q4", "Gone"}), false, true),
       "$a | - | Dichotomies | 1 {Using variable value labels} | Numeric | q1; q4; Gone(no longer exists)"},
      // Variables that are gone.
      {Categories("$a", {"Q7", "s8"}), "$a | - | Categories | N/A | String | Q7(no longer exists); Wide"},
      {Categories("$a", {"x", "Y"}), "$a | - | Categories | N/A | Unknown | x(no longer exists); Y(no longer exists)"},
      {Categories("$a", {}), "$a | - | Categories | N/A | Unknown | "},
      // The set's name as stored.
      {Categories("$Ab_C", {"n1"}), "$Ab_C | - | Categories | N/A | Numeric | n1"},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(ToText(row.set));
    EXPECT_EQ(Row(row.set), row.row);
  }
}

TEST_F(DisplayReport, EmptyLabelCountsAsNone) {
  fPhase.Host().SetDictionary({Numeric("e", ""), Numeric("blank", " ")});
  EXPECT_EQ(Row(Categories("$a", {"E", "blank"})), "$a | - | Categories | N/A | Numeric | e;  ");
}

TEST_F(DisplayReport, ElementaryVariablesAreOneCompositeCell) {
  Show(DisplayAll(), {Categories("$a", {"q1", "q2"})});
  const scripted::Cell* cell = Tables().front().At(0, 4);
  ASSERT_NE(cell, nullptr);
  ASSERT_TRUE(cell->text);
  EXPECT_TRUE(cell->text->isComposite);
  EXPECT_FALSE(cell->text->flag);
  EXPECT_FALSE(cell->text->finished);
  EXPECT_EQ(cell->text->pattern, "[:^1\x0D:$1]1");
  EXPECT_EQ(cell->text->pattern.size(), 10U);
  EXPECT_THAT(cell->text->arguments, ElementsAre(scripted::List({"Tea", "Coffee"})));
}

TEST_F(DisplayReport, FixedTextsAreFlaggedAndDataAreNot) {
  Show(DisplayAll(), {WithFlags(Dichotomies("$d", "1", {"q1"}), true, true), Categories("$c", {"q1"}, "Label")});
  const Table& table = Tables().front();
  EXPECT_TRUE(table.title.flag);
  for (const scripted::Dimension& dimension : table.dimensions) {
    EXPECT_TRUE(dimension.title.flag);
  }
  const auto flags = [&table](std::size_t row) {
    std::vector<bool> result = {table.Rows()->categories[row].flag};
    for (std::size_t column = 0; column < 5; ++column) {
      result.push_back(table.At(row, column)->text->flag);
    }
    return result;
  };
  for (const scripted::TextData& heading : table.Columns()->categories) {
    EXPECT_TRUE(heading.flag) << heading.text;
  }
  // Name, then label, coding, counted value, data type and variables.
  EXPECT_EQ(flags(0), (std::vector<bool>{false, true, true, false, true, false}));
  EXPECT_EQ(flags(1), (std::vector<bool>{false, false, true, true, true, false}));
}

// The sets to show.

struct ChoiceRow {
  std::string name;
  std::vector<std::string> list;
  MRSetSubcommand record;
  Lines shown;
  Lines missing;
};

TEST(DisplayReportChoice, ShowsTheSetsThatAreNamedInTheOrderOfTheListAndWarnsOfTheOthers) {
  const ChoiceRow kRows[] = {
      {"all", {"$A", "$b", "$C"}, DisplayAll(), {"$A", "$b", "$C"}, {}},
      {"all, whatever names there are", {"$A", "$b"}, All(Display({"$b", "$x"})), {"$A", "$b"}, {}},
      {"in another order", {"$A", "$M", "$Z"}, Display({"$Z", "$A"}), {"$A", "$Z"}, {}},
      {"in other letter case", {"$Abc", "$Xyz"}, Display({"$aBC", "$XYZ"}), {"$Abc", "$Xyz"}, {}},
      {"one missing", {"$a", "$b"}, Display({"$None", "$b"}), {"$b"}, {"$None"}},
      {"only missing ones, in their order", {"$a"}, Display({"$z", "$Y", "$x"}), {}, {"$z", "$Y", "$x"}},
      {"one of them twice", {"$a", "$b"}, Display({"$a", "$a"}), {"$a"}, {"$a"}},
      {"one of them three times", {"$a", "$b"}, Display({"$A", "$b", "$a", "$A"}), {"$a", "$b"}, {"$a", "$A"}},
      {"a missing one twice", {"$a"}, Display({"$x", "$X"}), {}, {"$x", "$X"}},
      {"beginnings of names", {"$ab"}, Display({"$a", "$abc"}), {}, {"$a", "$abc"}},
      {"none", {"$a", "$b"}, Display({}), {}, {}},
      {"two sets of one name", {"$A", "$a"}, Display({"$a"}), {"$A", "$a"}, {}},
      {"two sets of one name, named twice", {"$A", "$a"}, Display({"$a", "$A"}), {"$A", "$a"}, {}},
  };
  for (const ChoiceRow& row : kRows) {
    SCOPED_TRACE(row.name);
    ApplyPhase phase;
    Show(phase, row.record, CategorySets(row.list));
    ASSERT_EQ(phase.Host().Tables().size(), 1U);
    Lines shown;
    for (const scripted::TextData& heading : phase.Host().Tables().front().Rows()->categories) {
      shown.push_back(heading.text);
    }
    EXPECT_EQ(shown, row.shown);
    if (row.missing.empty()) {
      EXPECT_THAT(phase.Host().Messages(), IsEmpty());
    } else {
      ASSERT_EQ(phase.Host().Messages().size(), 1U);
      EXPECT_THAT(phase.Host().Messages().front().arguments, ElementsAre(scripted::List(row.missing)));
    }
  }
}

TEST_F(DisplayReport, ComparesNamesByTheHostsRuleWithTheSetsOwnNameFirst) {
  Show(Display({"$x", "$B"}), CategorySets({"$a", "$b"}));
  Lines choice;
  for (const std::string& line : fPhase.Host().Trace()) {
    if (line.find("Composite(") != std::string::npos) {
      break;
    }
    choice.push_back(line);
  }
  EXPECT_THAT(choice, ElementsAre("set \"$a\".GetName(kAsStored) -> \"$a\"",     //
                                  "ZEVAMBstricmp_A(\"$a\", \"$x\") -> less",     //
                                  "ZEVAMBstricmp_A(\"$a\", \"$B\") -> less",     //
                                  "set \"$b\".GetName(kAsStored) -> \"$b\"",     //
                                  "ZEVAMBstricmp_A(\"$b\", \"$x\") -> less",     //
                                  "ZEVAMBstricmp_A(\"$b\", \"$B\") -> equal",    // named
                                  "ZEVAMBstricmp_A(\"$b\", \"$x\") -> less",     //
                                  "ZEVAMBstricmp_A(\"$b\", \"$B\") -> equal"));  // struck
}

TEST_F(DisplayReport, OnlyMissingNamesGiveOneWarningAndATableOfHeadings) {
  Show(Display({"$No", "$nor"}), CategorySets({"$a"}));
  ASSERT_EQ(fPhase.Host().Messages().size(), 1U);
  const scripted::Message& message = fPhase.Host().Messages().front();
  EXPECT_EQ(message.pattern, "One or more of the sets specified do not exist...");
  EXPECT_EQ(message.level, 2);
  EXPECT_EQ(message.show, 2);
  EXPECT_TRUE(message.flag);
  EXPECT_FALSE(message.finished);
  EXPECT_THAT(message.arguments, ElementsAre(scripted::List({"$No", "$nor"})));
  EXPECT_EQ(fPhase.Host().TraceText(), R"trace(set "$a".GetName(kAsStored) -> "$a"
ZEVAMBstricmp_A("$a", "$No") -> less
ZEVAMBstricmp_A("$a", "$nor") -> less
composite#1 = BpComposite("One or more of the sets specified do not exist...", true)
composite#1.Sublist()
text#1 = BpString("$No", false)
composite#1.Add(text#1)
~text#1
text#2 = BpString("$nor", false)
composite#1.Add(text#2)
~text#2
composite#1.EndSublist()
BpError(composite#1, kBpErrorShow, kBpErrorLevelWarning)
~composite#1
text#3 = BpString("Multiple Response Sets", true)
table#1 = procedure#1.PivotTable(text#3, text#3, false)
text#4 = BpString("Attributes", true)
dimension#1 = table#1.Dimension(text#4, kAsAdded)
~text#4
dimension#1.Position(kColumns, 1, true, false)
text#5 = BpString("Name", true)
dimension#2 = table#1.Dimension(text#5, kAsAdded)
~text#5
text#6 = BpString("Label", true)
category#1 = dimension#1.Category(text#6)
~text#6
text#7 = BpString("Coded As", true)
category#2 = dimension#1.Category(text#7)
~text#7
text#8 = BpString("Counted Value", true)
category#3 = dimension#1.Category(text#8)
~text#8
text#9 = BpString("Data Type", true)
category#4 = dimension#1.Category(text#9)
~text#9
text#10 = BpString("Elementary Variables", true)
category#5 = dimension#1.Category(text#10)
~text#10
text#11 = BpString("Using variable value labels", true)
note#1 = text#11.Replicate()
~text#11
~note#1
~category#5
~category#4
~category#3
~category#2
~category#1
~dimension#2
~dimension#1
~table#1
~text#3
)trace");
}

// Whole commands.

struct CommandRow {
  std::string command;
  Lines messages;
  Lines rows;
};

/// Runs a command that displays once, on a survey with $A, $M and $Z.
void ExpectDisplay(const CommandRow& row) {
  SCOPED_TRACE(row.command);
  const std::vector<SetData> stored = {Categories("$Z", {"q1", "q2"}, "Last"),
                                       Dichotomies("$M", "1", {"q7", "s8", "q1"}), Categories("$A", {"q7", "q8"})};
  Outcome expected{row.messages, {kTitleLine, kHeadingLine}, std::nullopt};
  expected.tables.insert(expected.tables.end(), row.rows.begin(), row.rows.end());
  Outcome outcome = RunOnSurvey(row.command, stored);
  EXPECT_TRUE(outcome.saved);
  outcome.saved.reset();
  EXPECT_EQ(outcome, expected);
}

const std::string kRowA = "$A | - | Categories | N/A | Unknown | q7(no longer exists); q8(no longer exists)";
const std::string kRowM = "$M | - | Dichotomies | 1 | String | q7(no longer exists); Wide; Tea";
const std::string kRowZ = "$Z | Last | Categories | N/A | Numeric | Tea; Coffee";
const std::string kMissing = "warning: One or more of the sets specified do not exist... ";

TEST(DisplayCommand, OfAllShowsEverySetInTheOrderOfNamesWithoutAWarning) {
  ExpectDisplay({"MRSET /DISPLAY NAME=ALL", {}, {kRowA, kRowM, kRowZ}});
}

TEST(DisplayCommand, ShowsRequestedSetsInTheOrderOfNames) {
  ExpectDisplay({"MRSET /DISPLAY NAME=[$Z $A]", {}, {kRowA, kRowZ}});
}

TEST(DisplayCommand, MatchesInAnyLetterCaseAndShowsTheNameAsStored) {
  ExpectDisplay({"MRSET /DISPLAY NAME=[$z]", {}, {kRowZ}});
}

TEST(DisplayCommand, WarnsOfAMissingSetAndShowsTheOneThatExists) {
  ExpectDisplay({"MRSET /DISPLAY NAME=[$None $Z]", {kMissing + "$None"}, {kRowZ}});
}

TEST(DisplayCommand, OfMissingSetsAloneShowsATableWithoutRows) {
  ExpectDisplay({"MRSET /DISPLAY NAME=[$x $Y]", {kMissing + "$x, $Y"}, {}});
}

TEST(DisplayCommand, OfASetDeletedBeforeItWarnsAsOfAnyMissingSet) {
  ExpectDisplay({"MRSET /DELETE NAME=[$m] /DISPLAY NAME=[$M $A]", {kMissing + "$M"}, {kRowA}});
}

TEST(DisplayCommand, NamingASetTwiceShowsItOnceAndWarnsOfTheSecondMention) {
  ExpectDisplay({"MRSET /DISPLAY NAME=[$Z $z]", {kMissing + "$z"}, {kRowZ}});
}

TEST(DisplayCommand, OfASetWithCountedValueLabelsShowsTheFootnoteAndItsVariablesByName) {
  ExpectDisplay({"MRSET /MDGROUP NAME=$n VARIABLES=q1 q2 VALUE=1 CATEGORYLABELS=COUNTEDVALUES /DISPLAY NAME=[$n]",
                 {},
                 {"$n | - | Dichotomies | 1 {Using variable value labels} | Numeric | q1; q2"}});
  ExpectDisplay(
      {"MRSET /MDGROUP NAME=$n VARIABLES=q1 q2 VALUE=1 CATEGORYLABELS=COUNTEDVALUES LABELSOURCE=VARLABEL "
       "/DISPLAY NAME=[$n]",
       {},
       {"$n | (use variable label) | Dichotomies | 1 {Using variable value labels} | Numeric | q1; q2"}});
}

TEST(DisplayCommand, OfACategorySetShowsNoCountedValueAndNoFootnote) {
  ExpectDisplay({"MRSET /MCGROUP NAME=$n LABEL='Any' VARIABLES=q1 q4 /DISPLAY NAME=[$n]",
                 {},
                 {"$n | Any | Categories | N/A | Numeric | Tea; q4"}});
}

TEST(DisplayCommand, OfASetWhoseVariablesAreGoneShowsAnUnknownType) {
  ExpectDisplay({"MRSET /DISPLAY NAME=[$A]", {}, {kRowA}});
}

TEST(DisplayCommand, OfASetWhoseFirstVariableIsGoneTakesTheTypeOfTheNextThatExists) {
  ExpectDisplay({"MRSET /DISPLAY NAME=[$M]", {}, {kRowM}});
}

TEST(DisplayCommand, OfAnEmptyListOfNamesShowsATableWithoutRowsOrAWarning) {
  ExpectDisplay({"MRSET /DISPLAY NAME=[]", {}, {}});
}

// The data type.

TEST(GetVarSetDataType, IsThatOfTheFirstVariableThatExists) {
  const struct {
    std::vector<std::string> names;
    std::string type;
  } kRows[] = {{{"q1"}, "Numeric"},      {{"s8"}, "String"},       {{"q1", "s8"}, "Numeric"},
               {{"s8", "q1"}, "String"}, {{"x", "q1"}, "Numeric"}, {{"x", "y", "s3", "q1"}, "String"},
               {{"Q1"}, "Numeric"},      {{"x"}, "Unknown"},       {{"x", "y"}, "Unknown"},
               {{}, "Unknown"},          {{"odd"}, "String"},      {{"", "s8"}, "String"}};
  std::vector<scripted::Variable> dictionary = SurveyDictionary();
  dictionary.push_back(String("odd", -1));  // anything but 0 is a string
  const ApplyPhase phase({}, dictionary);
  for (const auto& row : kRows) {
    EXPECT_EQ(GetVarSetDataType(row.names, phase.Parent()), row.type) << testing::PrintToString(row.names);
  }
}

TEST(GetVarSetDataType, SearchStopsAtTheFirstVariableThatExists) {
  ApplyPhase phase;
  GetVarSetDataType({"X", "S8", "Q1"}, phase.Parent());
  EXPECT_THAT(phase.Host().Trace(),
              ElementsAre("parent.FindVarIndex(\"X\", 0) -> -1", "parent.FindVarIndex(\"S8\", 0) -> 4",
                          "parent.GetVariable(4) -> variable s8", "variable s8.GetType() -> 8"));
}

// Exceptions.

TEST(DisplayReportFaults, ExceptionOfAHostCallReleasesEverythingMadeInReverse) {
  const MRSetSubcommand record = Display({"$none", "$a", "$b"});
  const std::vector<SetData> list = {WithFlags(Dichotomies("$a", "1", {"q1", "gone"}, "A"), false, true),
                                     Categories("$b", {"q1", "q4"})};
  std::size_t calls = 0;
  {
    ApplyPhase phase;
    Show(phase, record, list);
    calls = phase.Host().CallCount();
  }
  ASSERT_GT(calls, 100U);
  for (std::size_t call = 1; call <= calls; ++call) {
    SCOPED_TRACE("call " + std::to_string(call) + " throws");
    ApplyPhase phase;
    phase.Host().FailAtCall(call);
    EXPECT_THROW(Show(phase, record, list), scripted::Fault);
    phase.ExpectNothingWrong();
  }
}

// Assertions.

std::string Report(const std::string& expression) {
  return AssertionReport("backend/mrset/mrsetapply.cpp", "DisplayMRSets", expression);
}

class DisplayReportDeathTest : public testing::Test {
 protected:
  DisplayReportDeathTest() { testing::FLAGS_gtest_death_test_style = "threadsafe"; }
};

TEST_F(DisplayReportDeathTest, RecordIsAssertedToBeOfADisplay) {
  ApplyPhase phase;
  const std::vector<SetData> list = CategorySets({"$a"});
  const std::string report = Report("subcmd.fType == MRSetSubcommand::kDISPLAY");
  EXPECT_DEATH(Show(phase, DeleteAll(), list), report);
  EXPECT_DEATH(Show(phase, Delete({"$x"}), list), report);
  EXPECT_DEATH(Show(phase, MRSetSubcommand(), {}), report);
}

TEST_F(DisplayReportDeathTest, ChosenSetIsAssertedToBeNoPlainVariableSet) {
  const SetData plain{"$p", VariableSet::kVarSet, "", "", false, false, {"q1"}};
  const std::string report = Report("iter->GetType() != VariableSet::kVarSet");
  ApplyPhase phase;
  EXPECT_DEATH(Show(phase, DisplayAll(), {plain}), report);
  EXPECT_DEATH(Show(phase, DisplayAll(), {Categories("$a", {"q1"}), plain}), report);
  EXPECT_DEATH(Show(phase, Display({"$P"}), {plain}), report);
  // One that is not chosen does no harm.
  Show(phase, Display({"$a"}), {Categories("$a", {"q1"}), plain});
  EXPECT_THAT(phase.Host().Tables().front().Lines(),
              ElementsAre(kTitleLine, kHeadingLine, "$a | - | Categories | N/A | Numeric | Tea"));
}

}  // namespace
}  // namespace module_test
