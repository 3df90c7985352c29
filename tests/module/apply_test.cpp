#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <iostream>
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
using scripted::ScriptedHost;
using scripted::SetData;
using testing::ElementsAre;
using testing::IsEmpty;

MRSetSubcommand Labelled(MRSetSubcommand record, std::string label) {
  record.fLabel = std::move(label);
  return record;
}

MRSetSubcommand OfType(MRSetSubcommand record, int type) {
  record.fType = static_cast<MRSetSubcommand::Type>(type);
  return record;
}

// The driver.

TEST(Apply, EmptyListOfSubcommandsLoadsAndSavesTheSetsOnce) {
  ApplyPhase phase({Categories("$b", {"n1", "n2"}), Dichotomies("$a", "1", {"q1", "q2"}, "A")});
  phase.Apply({});
  EXPECT_EQ(phase.Host().TraceText(), R"(VariableSets(parent, kMRSets) -> [$b, $a]
SaveVariableSets([$b MC (n1 n2), $a MD value "1" label "A" (q1 q2)], parent, kMRSets)
)");
}

TEST(Apply, RecordsOfNoOrOfAnUnknownTypeAreSkippedInSilence) {
  for (const int type : {0, 5, -1, 6, 1000000}) {
    SCOPED_TRACE(type);
    ApplyPhase phase(CategorySets({"$b", "$a"}));
    MRSetSubcommand full = All(Labelled(MDGroup("$new", "1", {"q1", "q2"}), "New"));
    full.fNames = {"$a"};
    phase.Apply({OfType(MRSetSubcommand(), type), OfType(full, type)});
    EXPECT_EQ(phase.Host().TraceText(), R"(VariableSets(parent, kMRSets) -> [$b, $a]
SaveVariableSets([$b MC (n1 n2), $a MC (n1 n2)], parent, kMRSets)
)");
  }
}

TEST(Apply, SkippedRecordDoesNotStopTheOnesBehindIt) {
  ApplyPhase phase(CategorySets({"$a"}));
  phase.Apply({MRSetSubcommand(), Delete({"$a"}), OfType(DisplayAll(), 7), MCGroup("$b", {"q1", "q2"})});
  EXPECT_THAT(phase.SavedNames(), ElementsAre("$b"));
  EXPECT_THAT(phase.Host().Messages(), IsEmpty());
}

struct EditRow {
  std::string name;
  std::vector<std::string> stored;
  MRSETSUBCOMMANDS records;
  Lines messages;
  Lines saved;
};

void ExpectEdits(const std::vector<EditRow>& rows) {
  for (const EditRow& row : rows) {
    SCOPED_TRACE(row.name);
    ApplyPhase phase(CategorySets(row.stored));
    phase.Apply(row.records);
    EXPECT_EQ(phase.Host().MessageLines(), row.messages);
    EXPECT_EQ(phase.SavedNames(), row.saved);
    EXPECT_EQ(phase.Host().SaveCount(), 1U);
  }
}

TEST(Apply, SubcommandsAreAppliedInOrderEachToWhatTheOnesBeforeItLeft) {
  ExpectEdits({
      {"a set defined in the command is deleted in it",
       {"$old"},
       {MCGroup("$new", {"q1", "q2"}), Delete({"$NEW"})},
       {},
       {"$old"}},
      {"a set deleted in the command is defined again, at the end",
       {"$a", "$b"},
       {Delete({"$a"}), MCGroup("$a", {"q1", "q2"})},
       {},
       {"$b", "$a"}},
      {"a set is deleted before it is defined",
       {},
       {Delete({"$a"}), MCGroup("$a", {"q1", "q2"})},
       {"warning: $a MRSET can not be found in the dataset."},
       {"$a"}},
      {"every set is deleted and then there is none",
       {"$a", "$b"},
       {DeleteAll(), DeleteAll(), DisplayAll(), Delete({"$a"})},
       {"warning: No MRSETs to delete", "warning: No MRSET to display",
        "warning: $a MRSET can not be found in the dataset."},
       {}},
      {"a set is defined twice in the command", {}, {MCGroup("$a", {"q1"}), MCGroup("$A", {"q2"})}, {}, {"$A"}},
  });
}

TEST(Apply, SetDefinedAndDeletedInOneCommandIsNoLongerDisplayed) {
  ApplyPhase phase(CategorySets({"$old"}));
  phase.Apply({MCGroup("$new", {"q1", "q2"}), DisplayAll(), Delete({"$new"}), DisplayAll()});
  ASSERT_EQ(phase.Host().Tables().size(), 2U);
  EXPECT_EQ(phase.Host().Tables()[0].Rows()->categories.size(), 2U);
  EXPECT_THAT(phase.Host().Tables()[1].Lines(),
              ElementsAre("Multiple Response Sets: Name by Attributes",
                          "Label | Coded As | Counted Value | Data Type | Elementary Variables",
                          "$old | - | Categories | N/A | Numeric | n1; n2"));
  EXPECT_THAT(phase.SavedNames(), ElementsAre("$old"));
}

// DISPLAY and the order of the list.

TEST(Apply, DisplayOfAnEmptyListWarnsAndWritesNoTable) {
  for (const MRSetSubcommand& record : {DisplayAll(), Display({"$a"}), Display({})}) {
    ApplyPhase phase;
    phase.Apply({record});
    EXPECT_EQ(phase.Host().TraceText(), R"(VariableSets(parent, kMRSets) -> []
composite#1 = BpComposite("No MRSET to display", true)
composite#1.Finish()
BpError(composite#1, kBpErrorShow, kBpErrorLevelWarning)
~composite#1
SaveVariableSets([], parent, kMRSets)
)");
  }
}

TEST(Apply, DisplaySavesTheSetsInTheOrderOfTheirUpperCaseNames) {
  const std::vector<EditRow> kRows = {
      {"letters in any case", {"$Q2", "$q1", "$R"}, {DisplayAll()}, {}, {"$q1", "$Q2", "$R"}},
      {"digits, letters, underscore", {"$X_Y", "$XY", "$X1"}, {DisplayAll()}, {}, {"$X1", "$XY", "$X_Y"}},
      {"the same in lower case", {"$x_y", "$xy", "$x1"}, {DisplayAll()}, {}, {"$x1", "$xy", "$x_y"}},
      {"the shorter first", {"$abc", "$AB", "$a"}, {DisplayAll()}, {}, {"$a", "$AB", "$abc"}},
      {"bytes as unsigned values", {"$\xC3\xA9", "$z"}, {DisplayAll()}, {}, {"$z", "$\xC3\xA9"}},
      {"by names", {"$b", "$a"}, {Display({"$b"})}, {}, {"$a", "$b"}},
      {"by no names", {"$b", "$a"}, {Display({})}, {}, {"$a", "$b"}},
      {"one set", {"$b"}, {DisplayAll()}, {}, {"$b"}},
  };
  ExpectEdits(kRows);
}

TEST(Apply, SortIsOfTheWholeListHoweverLong) {
  std::vector<std::string> names;
  for (int number = 60; number > 9; --number) {
    names.push_back((number % 2 == 0 ? "$n" : "$N") + std::to_string(number));
  }
  ApplyPhase phase(CategorySets(names));
  phase.Apply({DisplayAll()});
  std::reverse(names.begin(), names.end());
  EXPECT_EQ(phase.SavedNames(), names);
  Lines rows;
  for (const scripted::TextData& heading : phase.Host().Tables().front().Rows()->categories) {
    rows.push_back(heading.text);
  }
  EXPECT_EQ(rows, names);
}

TEST(Apply, WithoutADisplayTheLoadedOrderIsKeptWithNewSetsAtTheEnd) {
  ExpectEdits({
      {"nothing changes",
       {"$c", "$a", "$b"},
       {Delete({"$x"})},
       {"warning: $x MRSET can not be found in the dataset."},
       {"$c", "$a", "$b"}},
      {"new sets", {"$c", "$b"}, {MCGroup("$z", {"q1"}), MDGroup("$a", "1", {"q1"})}, {}, {"$c", "$b", "$z", "$a"}},
      {"deleted from the middle", {"$c", "$a", "$b"}, {Delete({"$a"})}, {}, {"$c", "$b"}},
  });
}

TEST(Apply, SortByADisplayStaysForTheSubcommandsBehindIt) {
  ExpectEdits({
      {"a set defined behind it stands at the end",
       {"$c", "$b"},
       {DisplayAll(), MCGroup("$a", {"q1"})},
       {},
       {"$b", "$c", "$a"}},
      {"a set defined before it is sorted in",
       {"$c", "$b"},
       {MCGroup("$a", {"q1"}), DisplayAll()},
       {},
       {"$a", "$b", "$c"}},
      {"a set redefined behind it keeps its place",
       {"$c", "$b"},
       {DisplayAll(), MCGroup("$B", {"q1"})},
       {},
       {"$B", "$c"}},
  });
}

// Defining sets.

TEST(Apply, NewDichotomySetIsMadeFromItsRecordStepByStepAndAppended) {
  ApplyPhase phase(CategorySets({"$Old"}));
  MRSetSubcommand record = Labelled(MDGroup("$new", "1", {"q2", "q1"}), "New");
  record.fCategoryLabelsCountedValues = true;
  phase.Apply({record});
  EXPECT_EQ(phase.Host().TraceText(), R"(VariableSets(parent, kMRSets) -> [$Old]
VariableSet("$new", kMDSet)
set "$new".SetLabel("New")
set "$new".SetValue("1")
set "$new".UseVariableCategoryLabels(true)
set "$new".LabelSetByVariable(false)
set "$new".AddVariableName("q2")
set "$new".AddVariableName("q1")
set "$new".GetName(kAsStored) -> "$new"
ZEVAMBstrupr_A("$new") -> "$NEW"
set "$Old".GetName(kUpperCase) -> "$OLD"
SaveVariableSets([$Old MC (n1 n2), $new MD value "1" label "New" counted-value-labels (q2 q1)], parent, kMRSets)
)");
}

TEST(Apply, NewCategorySetIsMadeFromItsRecordStepByStepAndAppended) {
  ApplyPhase phase(CategorySets({"$Old"}));
  MRSetSubcommand record = Labelled(MCGroup("$new", {"q2", "q1"}), "New");
  record.fValue = "1";
  record.fCategoryLabelsCountedValues = true;
  record.fLabelSourceVarLabel = true;
  phase.Apply({record});
  EXPECT_EQ(phase.Host().TraceText(), R"(VariableSets(parent, kMRSets) -> [$Old]
VariableSet("$new", kMCSet)
set "$new".SetLabel("New")
set "$new".AddVariableName("q2")
set "$new".AddVariableName("q1")
set "$new".GetName(kAsStored) -> "$new"
ZEVAMBstrupr_A("$new") -> "$NEW"
set "$Old".GetName(kUpperCase) -> "$OLD"
SaveVariableSets([$Old MC (n1 n2), $new MC label "New" (q2 q1)], parent, kMRSets)
)");
}

TEST(Apply, SetWithoutALabelGetsNone) {
  ApplyPhase phase;
  phase.Apply({MDGroup("$d", "0", {"q1"}), MCGroup("$c", {"q1"})});
  EXPECT_EQ(phase.Host().TraceText(), R"(VariableSets(parent, kMRSets) -> []
VariableSet("$d", kMDSet)
set "$d".SetValue("0")
set "$d".UseVariableCategoryLabels(false)
set "$d".LabelSetByVariable(false)
set "$d".AddVariableName("q1")
set "$d".GetName(kAsStored) -> "$d"
ZEVAMBstrupr_A("$d") -> "$D"
VariableSet("$c", kMCSet)
set "$c".AddVariableName("q1")
set "$c".GetName(kAsStored) -> "$c"
ZEVAMBstrupr_A("$c") -> "$C"
set "$d".GetName(kUpperCase) -> "$D"
SaveVariableSets([$d MD value "0" (q1), $c MC (q1)], parent, kMRSets)
)");
}

TEST(Apply, LabelFlagsAndCountedValueOfADichotomySetComeFromItsRecord) {
  for (const bool labelSource : {false, true}) {
    for (const bool categoryLabels : {false, true}) {
      SCOPED_TRACE(testing::Message() << "label source " << labelSource << ", category labels " << categoryLabels);
      MRSetSubcommand record = MDGroup("$a", " 01 ", {"q1", "q2"});
      record.fLabelSourceVarLabel = labelSource;
      record.fCategoryLabelsCountedValues = categoryLabels;
      ApplyPhase phase;
      phase.Apply({record});
      SetData expected = Dichotomies("$a", " 01 ", {"q1", "q2"});
      expected.labelSetByVariable = labelSource;
      expected.useVariableCategoryLabels = categoryLabels;
      EXPECT_EQ(phase.Host().SavedSets(), std::vector{expected});
    }
  }
}

TEST(Apply, CategorySetCarriesNeitherFlagsNorACountedValue) {
  MRSetSubcommand record = MCGroup("$a", {"q1", "q2"});
  record.fValue = "1";
  record.fValueIsNumber = true;
  record.fLabelSourceVarLabel = true;
  record.fCategoryLabelsCountedValues = true;
  ApplyPhase phase;
  phase.Apply({record});
  EXPECT_EQ(phase.Host().SavedSets(), std::vector{Categories("$a", {"q1", "q2"})});
}

TEST(Apply, SetOfAllVariablesTakesThemByNameAskingForTheCountBeforeEach) {
  ApplyPhase phase({}, {scripted::Numeric("one"), scripted::String("Two", 3)});
  phase.Apply({All(MDGroup("$d", "1", {"n1"})), All(MCGroup("$c", {}))});
  EXPECT_EQ(phase.Host().TraceText(), R"(VariableSets(parent, kMRSets) -> []
VariableSet("$d", kMDSet)
set "$d".SetValue("1")
set "$d".UseVariableCategoryLabels(false)
set "$d".LabelSetByVariable(false)
parent.ColumnCount() -> 2
parent.GetVariable(0) -> variable one
variable one.GetName() -> "one"
set "$d".AddVariableName("one")
parent.ColumnCount() -> 2
parent.GetVariable(1) -> variable Two
variable Two.GetName() -> "Two"
set "$d".AddVariableName("Two")
parent.ColumnCount() -> 2
set "$d".GetName(kAsStored) -> "$d"
ZEVAMBstrupr_A("$d") -> "$D"
VariableSet("$c", kMCSet)
parent.ColumnCount() -> 2
parent.GetVariable(0) -> variable one
variable one.GetName() -> "one"
set "$c".AddVariableName("one")
parent.ColumnCount() -> 2
parent.GetVariable(1) -> variable Two
variable Two.GetName() -> "Two"
set "$c".AddVariableName("Two")
parent.ColumnCount() -> 2
set "$c".GetName(kAsStored) -> "$c"
ZEVAMBstrupr_A("$c") -> "$C"
set "$d".GetName(kUpperCase) -> "$D"
SaveVariableSets([$d MD value "1" (one Two), $c MC (one Two)], parent, kMRSets)
)");
}

TEST(Apply, SetOfAllVariablesOfAnEmptyDictionaryHasNone) {
  ApplyPhase phase({}, {});
  phase.Apply({All(MDGroup("$d", "1", {})), All(MCGroup("$c", {}))});
  EXPECT_EQ(phase.Host().SavedSets(), (std::vector{Dichotomies("$d", "1", {}), Categories("$c", {})}));
}

TEST(Apply, VariablesAreTakenAsListedWhetherOrNotTheyExistOrRepeat) {
  ApplyPhase phase;
  phase.Apply({MCGroup("$a", {"Q2", "gone", "q2", "Q2"})});
  EXPECT_EQ(phase.Host().SavedSets(), std::vector{Categories("$a", {"Q2", "gone", "q2", "Q2"})});
}

// Replacing sets.

TEST(Apply, SetOfTheSameNameInOtherLetterCaseIsReplacedInPlaceUnderTheNewSpelling) {
  ApplyPhase phase(CategorySets({"$first", "$ABC", "$last"}));
  phase.Apply({MDGroup("$abc", "1", {"q1", "q2"}), DisplayAll()});
  EXPECT_EQ(phase.Host().SavedSets(),
            (std::vector{Dichotomies("$abc", "1", {"q1", "q2"}), Categories("$first", {"n1", "n2"}),
                         Categories("$last", {"n1", "n2"})}));
  EXPECT_EQ(phase.Host().Tables().front().Rows()->categories.front().text, "$abc");
}

TEST(Apply, ReplacedSetKeepsItsPlace) {
  ExpectEdits({
      {"first", {"$C", "$b", "$A"}, {MDGroup("$c", "1", {"q1"})}, {}, {"$c", "$b", "$A"}},
      {"between", {"$C", "$b", "$A"}, {MCGroup("$B", {"q1"})}, {}, {"$C", "$B", "$A"}},
      {"last", {"$C", "$b", "$A"}, {MDGroup("$a", "1", {"q1"})}, {}, {"$C", "$b", "$a"}},
  });
}

TEST(Apply, NothingOfAReplacedSetRemains) {
  SetData full = Dichotomies("$a", "1", {"q1", "q2", "q3"}, "Old");
  full.labelSetByVariable = true;
  full.useVariableCategoryLabels = true;
  const struct {
    MRSetSubcommand record;
    SetData saved;
  } kRows[] = {
      {MCGroup("$A", {"n1"}), Categories("$A", {"n1"})},
      {MDGroup("$a", "2", {"n2"}), Dichotomies("$a", "2", {"n2"})},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(ToText(row.saved));
    ApplyPhase phase({full});
    phase.Apply({row.record});
    EXPECT_EQ(phase.Host().SavedSets(), std::vector{row.saved});
  }
}

TEST(Apply, NamesThatAreAlikeInPartAreDifferentSets) {
  ExpectEdits({{"beginnings",
                {"$ab", "$abcd"},
                {MCGroup("$abc", {"q1"}), Delete({"$a"})},
                {"warning: $a MRSET can not be found in the dataset."},
                {"$ab", "$abcd", "$abc"}}});
}

TEST(ReplaceVarSet, SearchesFromTheFrontUpToTheFirstSetOfThatName) {
  ScriptedHost host;
  VARIABLESETS sets = scripted::ToSets(CategorySets({"$x", "$a", "$A", "$y"}));
  const VariableSet set = scripted::ToSet(Categories("$a", {"q1"}));
  ReplaceVarSet(set, sets);
  EXPECT_EQ(host.TraceText(), R"(set "$a".GetName(kAsStored) -> "$a"
ZEVAMBstrupr_A("$a") -> "$A"
set "$x".GetName(kUpperCase) -> "$X"
set "$a".GetName(kUpperCase) -> "$A"
)");
  EXPECT_THAT(scripted::ToData(sets), ElementsAre(Categories("$x", {"n1", "n2"}), Categories("$a", {"q1"}),
                                                  Categories("$A", {"n1", "n2"}), Categories("$y", {"n1", "n2"})));
  EXPECT_EQ(scripted::ToData(set), Categories("$a", {"q1"}));
}

TEST(ReplaceVarSet, AppendsACopyWhenThereIsNoSetOfThatName) {
  VARIABLESETS sets = scripted::ToSets(CategorySets({"$x"}));
  VariableSet set = scripted::ToSet(Categories("$a", {"q1"}, "A"));
  ReplaceVarSet(set, sets);
  set.SetLabel("Changed");
  EXPECT_THAT(scripted::ToData(sets), ElementsAre(Categories("$x", {"n1", "n2"}), Categories("$a", {"q1"}, "A")));
}

// Deleting sets.

TEST(Apply, DeleteOfAllRemovesEverySetOrWarnsThatThereIsNone) {
  ExpectEdits({
      {"some", {"$b", "$a"}, {DeleteAll()}, {}, {}},
      {"one", {"$b"}, {DeleteAll()}, {}, {}},
      {"none", {}, {DeleteAll()}, {"warning: No MRSETs to delete"}, {}},
      {"names do not matter", {"$b", "$a"}, {All(Delete({"$x", "a"}))}, {}, {}},
      {"names do not matter when there is none", {}, {All(Delete({"$x"}))}, {"warning: No MRSETs to delete"}, {}},
  });
}

TEST(Apply, DeleteByNamesRemovesThoseSetsAndWarnsOfEachNameThatMatchesNone) {
  ExpectEdits({
      {"first", {"$a", "$b", "$c"}, {Delete({"$a"})}, {}, {"$b", "$c"}},
      {"last", {"$a", "$b", "$c"}, {Delete({"$c"})}, {}, {"$a", "$b"}},
      {"only", {"$a"}, {Delete({"$a"})}, {}, {}},
      {"in other letter case", {"$aB", "$b"}, {Delete({"$Ab"})}, {}, {"$b"}},
      {"several, in any order", {"$d", "$c", "$b", "$a"}, {Delete({"$a", "$c"})}, {}, {"$d", "$b"}},
      {"missing ones among them, as written",
       {"$a", "$b"},
       {Delete({"$Xx", "$a", "$yY"})},
       {"warning: $Xx MRSET can not be found in the dataset.", "warning: $yY MRSET can not be found in the dataset."},
       {"$b"}},
      {"one set twice",
       {"$a", "$b"},
       {Delete({"$a", "$A"})},
       {"warning: $A MRSET can not be found in the dataset."},
       {"$b"}},
      {"from an empty list, without a warning that there is none",
       {},
       {Delete({"$a", "$b"})},
       {"warning: $a MRSET can not be found in the dataset.", "warning: $b MRSET can not be found in the dataset."},
       {}},
  });
}

TEST(RemoveVarSet, LooksAtEverySetAndKeepsTheOrderOfTheOthers) {
  ScriptedHost host;
  VARIABLESETS sets = scripted::ToSets(CategorySets({"$c", "$Ab", "$a"}));
  RemoveVarSet("$aB", sets);
  EXPECT_EQ(host.TraceText(), R"(ZEVAMBstrupr_A("$aB") -> "$AB"
set "$c".GetName(kUpperCase) -> "$C"
set "$Ab".GetName(kUpperCase) -> "$AB"
set "$a".GetName(kUpperCase) -> "$A"
)");
  EXPECT_THAT(scripted::ToData(sets), ElementsAre(Categories("$c", {"n1", "n2"}), Categories("$a", {"n1", "n2"})));
}

TEST(RemoveVarSet, WarnsWithTheNameAsWrittenAndLeavesTheListAlone) {
  ScriptedHost host;
  VARIABLESETS sets = scripted::ToSets(CategorySets({"$c"}));
  RemoveVarSet("$None", sets);
  EXPECT_EQ(host.TraceText(), R"(ZEVAMBstrupr_A("$None") -> "$NONE"
set "$c".GetName(kUpperCase) -> "$C"
composite#1 = BpComposite("^1 MRSET can not be found in the dataset.", true)
text#1 = BpString("$None", false)
composite#1.Add(text#1)
~text#1
composite#1.Finish()
BpError(composite#1, kBpErrorShow, kBpErrorLevelWarning)
~composite#1
)");
  EXPECT_THAT(scripted::ToData(sets), ElementsAre(Categories("$c", {"n1", "n2"})));
}

// The rules of names.

TEST(FindVarSetNamePred, MatchesTheUpperCaseNameByteForByte) {
  const VariableSet set("$Abc", VariableSet::kMCSet);
  const struct {
    std::string key;
    bool matches;
  } kRows[] = {{"$ABC", true},   {"$Abc", false}, {"$abc", false}, {"$AB", false},
               {"$ABCD", false}, {"ABC", false},  {"", false},     {std::string("$ABC\0", 5), false}};
  for (const auto& row : kRows) {
    EXPECT_EQ(FindVarSetNamePred(row.key)(set), row.matches) << row.key;
  }
}

TEST(SortVarSetNamePred, OrdersByTheBytesOfUpperCaseNames) {
  const struct {
    std::string first;
    std::string second;
    bool before;
  } kRows[] = {{"$a", "$b", true},
               {"$b", "$a", false},
               {"$a", "$B", true},
               {"$A", "$b", true},
               {"$B", "$a", false},
               {"$a", "$A", false},
               {"$A", "$a", false},
               {"$a", "$a", false},
               {"$a", "$ab", true},
               {"$ab", "$a", false},
               {"$9", "$a", true},
               {"$Z", "$_", true},
               {"$z", "$_", true},
               {"$_", "$a", false},
               {"$z", "$\xC3\xA9", true},
               {"$\xC3\xA9", "$z", false},
               {"$\xC3\xA9", "$\xC3\x89", false}};
  for (const auto& row : kRows) {
    const VariableSet first(row.first, VariableSet::kMCSet);
    const VariableSet second(row.second, VariableSet::kMCSet);
    EXPECT_EQ(SortVarSetNamePred()(first, second), row.before) << row.first << " and " << row.second;
  }
}

TEST(SortVarSetNamePred, AsksForTheFirstNameFirst) {
  ScriptedHost host;
  const VARIABLESETS sets = scripted::ToSets(CategorySets({"$b", "$a"}));
  EXPECT_FALSE(SortVarSetNamePred()(sets[0], sets[1]));
  EXPECT_THAT(host.Trace(),
              ElementsAre("set \"$b\".GetName(kUpperCase) -> \"$B\"", "set \"$a\".GetName(kUpperCase) -> \"$A\""));
}

// Exceptions.

TEST(Apply, ExceptionOfAHostCallLeavesTheStoredSetsAsTheyWere) {
  const MRSETSUBCOMMANDS records = {Labelled(MDGroup("$new", "1", {"q1"}), "New"), All(MCGroup("$b", {})),
                                    Delete({"$a", "$none"}), DisplayAll()};
  const std::vector<SetData> stored = CategorySets({"$b", "$a"});
  std::size_t calls = 0;
  {
    ApplyPhase phase(stored);
    phase.Apply(records);
    calls = phase.Host().CallCount();
  }
  ASSERT_GT(calls, 100U);
  for (std::size_t call = 1; call <= calls; ++call) {
    SCOPED_TRACE("call " + std::to_string(call) + " throws");
    ApplyPhase failing(stored);
    failing.Host().FailAtCall(call);
    EXPECT_THROW(failing.Apply(records), scripted::Fault);
    failing.ExpectNothingWrong();
    EXPECT_EQ(failing.Host().SaveCount(), 0U);
    EXPECT_EQ(failing.Host().StoredSets(), stored);
  }
}

// Assertions. `location <= end` is not among them: a search within a list never ends behind it.

std::string Report(const std::string& function, const std::string& expression) {
  return AssertionReport("backend/mrset/mrsetapply.cpp", function, expression);
}

class ApplyDeathTest : public testing::Test {
 protected:
  ApplyDeathTest() { testing::FLAGS_gtest_death_test_style = "threadsafe"; }
};

TEST_F(ApplyDeathTest, DichotomySetIsAssertedToHaveANameItsTypeAValueAndVariablesInThisOrder) {
  MRSetSubcommand record;
  ApplyPhase phase;
  VARIABLESETS sets;
  const auto add = [&] { AddMDGroup(record, phase.Parent(), sets); };
  EXPECT_DEATH(add(), Report("AddMDGroup", "!subcmd.fName.empty()"));
  record.fName = "a$";
  EXPECT_DEATH(add(), Report("AddMDGroup", "subcmd.fName[0] == '$'"));
  record.fName = "$a";
  EXPECT_DEATH(add(), Report("AddMDGroup", "subcmd.fType == MRSetSubcommand::kMDGROUP"));
  record.fType = MRSetSubcommand::kMCGROUP;
  EXPECT_DEATH(add(), Report("AddMDGroup", "subcmd.fType == MRSetSubcommand::kMDGROUP"));
  record.fType = MRSetSubcommand::kMDGROUP;
  EXPECT_DEATH(add(), Report("AddMDGroup", "!subcmd.fValue.empty()"));
  record.fValue = "1";
  EXPECT_DEATH(add(), Report("AddMDGroup", "!subcmd.fVariables.empty()"));
  record.fVariables = {"q1"};
  add();
  EXPECT_THAT(scripted::ToData(sets), ElementsAre(Dichotomies("$a", "1", {"q1"})));
}

TEST_F(ApplyDeathTest, CategorySetIsAssertedToHaveANameItsTypeAndVariablesInThisOrder) {
  MRSetSubcommand record;
  ApplyPhase phase;
  VARIABLESETS sets;
  const auto add = [&] { AddMCGroup(record, phase.Parent(), sets); };
  EXPECT_DEATH(add(), Report("AddMCGroup", "!subcmd.fName.empty()"));
  record.fName = "a$";
  EXPECT_DEATH(add(), Report("AddMCGroup", "subcmd.fName[0] == '$'"));
  record.fName = "$a";
  EXPECT_DEATH(add(), Report("AddMCGroup", "subcmd.fType == MRSetSubcommand::kMCGROUP"));
  record.fType = MRSetSubcommand::kMDGROUP;
  EXPECT_DEATH(add(), Report("AddMCGroup", "subcmd.fType == MRSetSubcommand::kMCGROUP"));
  record.fType = MRSetSubcommand::kMCGROUP;
  EXPECT_DEATH(add(), Report("AddMCGroup", "!subcmd.fVariables.empty()"));
  record.fVariables = {"q1"};
  add();
  EXPECT_THAT(scripted::ToData(sets), ElementsAre(Categories("$a", {"q1"})));
}

TEST_F(ApplyDeathTest, DeleteIsAssertedToHaveItsTypeAndNames) {
  ScriptedHost host;
  VARIABLESETS sets;
  const std::string type = Report("DeleteMRSets", "subcmd.fType == MRSetSubcommand::kDELETE");
  EXPECT_DEATH(DeleteMRSets(Display({}), sets), type);
  EXPECT_DEATH(DeleteMRSets(DisplayAll(), sets), type);
  EXPECT_DEATH(DeleteMRSets(MRSetSubcommand(), sets), type);
  EXPECT_DEATH(DeleteMRSets(Delete({}), sets), Report("DeleteMRSets", "!subcmd.fNames.empty()"));
}

TEST_F(ApplyDeathTest, EachNameToDeleteIsAssertedToBeginWithADollarWhenItIsItsTurn) {
  ScriptedHost host;
  VARIABLESETS sets = scripted::ToSets(CategorySets({"$a"}));
  const std::string dollar = Report("DeleteMRSets", "(*namesIter)[0] == '$'");
  EXPECT_DEATH(DeleteMRSets(Delete({"a"}), sets), dollar);
  EXPECT_DEATH(DeleteMRSets(Delete({""}), sets), dollar);
  EXPECT_DEATH(DeleteMRSets(Delete({"$a", "b$"}), sets), dollar);
  // By then the names before it have been seen to.
  const std::string warning = "warning: \\$none MRSET can not be found";
  EXPECT_DEATH(
      {
        host.HostHooks().render = [](const std::string& pattern, const std::vector<scripted::Argument>& arguments) {
          std::string text = scripted::RenderTemplate(pattern, arguments);
          std::cerr << "warning: " << text << std::endl;
          return text;
        };
        DeleteMRSets(Delete({"$none", "b$"}), sets);
      },
      warning + "(.|\n)*" + dollar.substr(dollar.find("backend")));
}

TEST_F(ApplyDeathTest, TwoStoredSetsOfOneNameAreNotDeleted) {
  const std::string one = Report("RemoveVarSet", "(end - 1) == last");
  ScriptedHost host;
  for (const auto& names : {std::vector<std::string>{"$a", "$b", "$A"}, {"$a", "$A"}, {"$b", "$A", "$a"}}) {
    VARIABLESETS sets = scripted::ToSets(CategorySets(names));
    EXPECT_DEATH(RemoveVarSet("$a", sets), one);
  }
}

TEST_F(ApplyDeathTest, CommandsThatTheParsePhaseLetsThroughEndInAnAssertion) {
  const struct {
    std::string command;
    std::string report;
  } kRows[] = {
      {"MRSET /MCGROUP VARIABLES=n1 n2", Report("AddMCGroup", "!subcmd.fName.empty()")},
      {"MRSET /DELETE NAME=[]", Report("DeleteMRSets", "!subcmd.fNames.empty()")},
      {"MRSET /DELETE NAME=[x]", Report("DeleteMRSets", "(*namesIter)[0] == '$'")},
  };
  for (const auto& row : kRows) {
    EXPECT_DEATH(RunOnSurvey(row.command), row.report) << row.command;
  }
}

}  // namespace
}  // namespace module_test
