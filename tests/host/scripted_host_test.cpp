#include "tests/host/scripted_host.h"

#include <gmock/gmock.h>

#include <new>
#include <stdexcept>

#include "tests/host/host_access.h"

namespace scripted {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

HostSetup TwoVariables() {
  HostSetup setup;
  setup.dictionary = {Numeric("q1", "Tea", {{1.0, "Yes"}, {2.5, ""}}), String("s", 8, "", {{"a", "An a"}})};
  setup.sets = {Dichotomies("$b", "1", {"q1", "q2"}, "B"), Categories("$A", {"s"})};
  return setup;
}

/// A module in small: makes objects of every kind and calls every operation once or more.
void UseEverything() {
  BpProcedure procedure("Title", 2);
  ZEVA_TokenSequence tokens(true);
  const ProcedureDataSource source;
  tokens.Next();
  tokens.Position();
  tokens.AtEnd();
  KeywordMatch(TokenStringCaps(tokens).c_str(), "MRSET");
  tokens.SetPosition(4);
  tokens.Next();
  TokenString(tokens);
  tokens.Symbol();
  tokens.NumberValue();
  tokens.SetPosition(1);
  tokens.Next();
  std::vector<int> indices{7};
  ExistingVarList(source, tokens, indices, 4);
  source.ColumnCount();
  const ZEVA_Variable* variable = source.GetVariable(source.FindVarIndex("Q1", 0));
  variable->GetName();
  variable->GetType();
  variable->GetLabel();
  ZEVA_ValueLabelMap labels(variable->GetValueLabels());
  labels.Reset();
  labels.GetLabel(1.0);
  labels.GetLabel(3.0);
  ZEVA_ValueLabelMap texts(source.GetVariable(1)->GetValueLabels());
  texts.Reset();
  texts.GetLabel(std::string("a"));
}

void UseSets() {
  const ProcedureDataSource source;
  ZEVA_DataSource* parent = source.GetParentSource();
  VARIABLESETS sets = VariableSets(*parent, kMRSets);
  VariableSet set("$c", VariableSet::kMDSet);
  set.SetLabel("It's \"c\"\r\n");
  set.SetValue("1");
  set.UseVariableCategoryLabels(true);
  set.LabelSetByVariable(false);
  set.AddVariableName("q1");
  set.GetName(VariableSet::kUpperCase);
  set.GetVariableNames(VariableSet::kUpperCase);
  set.GetType();
  set.GetLabel();
  set.GetValue();
  set.qLabelSetByVariable();
  set.qUseVariableCategoryLabels();
  sets.push_back(set);
  SaveVariableSets(sets, *parent, kMRSets);
}

void UseOutput() {
  BpProcedure procedure("Title", 2);
  {
    BpComposite message("^1 and ^2", true);
    message.Add(BpString("one", false));
    message.Sublist();
    message.EndSublist();
    message.Finish();
    BpError(message, kBpErrorShow, kBpErrorLevelWarning);
  }
  const BpString title("Table", true);
  BpPivotTable table = procedure.PivotTable(title, title, false);
  BpDimension columns = table.Dimension(BpString("Columns", true), BpPivotTable::kAsAdded);
  columns.Position(BpDimension::kColumns, 1, true, false);
  BpDimension rows = table.Dimension(BpString("Rows", true), BpPivotTable::kAsAdded);
  BpCategory column = columns.Category(BpString("Value", true));
  const BpAnnotation note = BpString("Note", true).Replicate();
  const BpCategory row = rows.Category(BpString("First", false));
  column.Cell(BpString("1", false));
  column.CellNote(note);
}

void UseText() {
  char buffer[8] = "abc";
  ZEVAMBstrupr_A(buffer);
  ZEVAMBzstncpy_A(buffer, "longer than that", 8);
  ZEVAMBstricmp_A("a", "B");
  ZEVAMBqstricmp_A("LABELSX", 6, "labelsource", 6, 0);
  ValidateZEVAName("$a");
}

TEST(Trace, ShowsTokensDictionaryAndTheirObjects) {
  ScriptedHost host(TwoVariables(), "MRSET q1 to s 1");
  UseEverything();
  EXPECT_EQ(host.TraceText(),
            "procedure#1 = BpProcedure(\"Title\", 2)\n"
            "tokens#1 = ZEVA_TokenSequence(true)\n"
            "source#1 = ProcedureDataSource()\n"
            "tokens#1.Next() -> true\n"
            "tokens#1.Position() -> 0\n"
            "tokens#1.Type() -> kString\n"
            "TokenStringCaps(tokens#1) -> \"MRSET\"\n"
            "KeywordMatch(\"MRSET\", \"MRSET\") -> 1\n"
            "tokens#1.SetPosition(4)\n"
            "tokens#1.Next() -> true\n"
            "TokenString(tokens#1) -> \"1\"\n"
            "tokens#1.Symbol() -> 0\n"
            "tokens#1.NumberValue() -> 1\n"
            "tokens#1.SetPosition(1)\n"
            "tokens#1.Next() -> true\n"
            "ExistingVarList(source#1, tokens#1, [7], 4) -> true, [7, 0, 1]\n"
            "source#1.ColumnCount() -> 2\n"
            "source#1.FindVarIndex(\"Q1\", 0) -> 0\n"
            "source#1.GetVariable(0) -> variable q1\n"
            "variable q1.GetName() -> \"q1\"\n"
            "variable q1.GetType() -> 0\n"
            "variable q1.GetLabel() -> \"Tea\"\n"
            "variable q1.GetValueLabels()\n"
            "labels#1 = ZEVA_ValueLabelMap(value labels of q1)\n"
            "labels#1.Reset()\n"
            "labels#1.GetLabel(1) -> \"Yes\"\n"
            "labels#1.GetLabel(3) -> null\n"
            "source#1.GetVariable(1) -> variable s\n"
            "variable s.GetValueLabels()\n"
            "labels#2 = ZEVA_ValueLabelMap(value labels of s)\n"
            "labels#2.Reset()\n"
            "labels#2.GetLabel(\"a\") -> \"An a\"\n"
            "~labels#2\n"
            "~labels#1\n"
            "~source#1\n"
            "~tokens#1\n"
            "~procedure#1\n");
  EXPECT_THAT(host.Problems(), IsEmpty());
}

TEST(Trace, ShowsVariableSets) {
  ScriptedHost host(TwoVariables());
  UseSets();
  EXPECT_EQ(host.TraceText(),
            "source#1 = ProcedureDataSource()\n"
            "source#1.GetParentSource() -> parent\n"
            "VariableSets(parent, kMRSets) -> [$b, $A]\n"
            "VariableSet(\"$c\", kMDSet)\n"
            "set \"$c\".SetLabel(\"It's \\\"c\\\"\\r\\n\")\n"
            "set \"$c\".SetValue(\"1\")\n"
            "set \"$c\".UseVariableCategoryLabels(true)\n"
            "set \"$c\".LabelSetByVariable(false)\n"
            "set \"$c\".AddVariableName(\"q1\")\n"
            "set \"$c\".GetName(kUpperCase) -> \"$C\"\n"
            "set \"$c\".GetVariableNames(kUpperCase) -> [\"Q1\"]\n"
            "set \"$c\".GetType() -> kMDSet\n"
            "set \"$c\".GetLabel() -> \"It's \\\"c\\\"\\r\\n\"\n"
            "set \"$c\".GetValue() -> \"1\"\n"
            "set \"$c\".qLabelSetByVariable() -> false\n"
            "set \"$c\".qUseVariableCategoryLabels() -> true\n"
            "SaveVariableSets([$b MD value \"1\" label \"B\" (q1 q2), $A MC (s), $c MD value \"1\" label \"It's "
            "\\\"c\\\"\\r\\n\" counted-value-labels (q1)], parent, kMRSets)\n"
            "~source#1\n");
  EXPECT_THAT(host.Problems(), IsEmpty());
}

TEST(Trace, ShowsOutputInOrderOfItsReleases) {
  ScriptedHost host;
  UseOutput();
  EXPECT_EQ(host.TraceText(),
            "procedure#1 = BpProcedure(\"Title\", 2)\n"
            "composite#1 = BpComposite(\"^1 and ^2\", true)\n"
            "text#1 = BpString(\"one\", false)\n"
            "composite#1.Add(text#1)\n"
            "~text#1\n"
            "composite#1.Sublist()\n"
            "composite#1.EndSublist()\n"
            "composite#1.Finish()\n"
            "BpError(composite#1, kBpErrorShow, kBpErrorLevelWarning)\n"
            "~composite#1\n"
            "text#2 = BpString(\"Table\", true)\n"
            "table#1 = procedure#1.PivotTable(text#2, text#2, false)\n"
            "text#3 = BpString(\"Columns\", true)\n"
            "dimension#1 = table#1.Dimension(text#3, kAsAdded)\n"
            "~text#3\n"
            "dimension#1.Position(kColumns, 1, true, false)\n"
            "text#4 = BpString(\"Rows\", true)\n"
            "dimension#2 = table#1.Dimension(text#4, kAsAdded)\n"
            "~text#4\n"
            "text#5 = BpString(\"Value\", true)\n"
            "category#1 = dimension#1.Category(text#5)\n"
            "~text#5\n"
            "text#6 = BpString(\"Note\", true)\n"
            "note#1 = text#6.Replicate()\n"
            "~text#6\n"
            "text#7 = BpString(\"First\", false)\n"
            "category#2 = dimension#2.Category(text#7)\n"
            "~text#7\n"
            "text#8 = BpString(\"1\", false)\n"
            "category#1.Cell(text#8)\n"
            "~text#8\n"
            "category#1.CellNote(note#1)\n"
            "~category#2\n"
            "~note#1\n"
            "~category#1\n"
            "~dimension#2\n"
            "~dimension#1\n"
            "~table#1\n"
            "~text#2\n"
            "~procedure#1\n");
  EXPECT_THAT(host.Problems(), IsEmpty());
}

TEST(Trace, ShowsTextUtilities) {
  ScriptedHost host;
  UseText();
  EXPECT_THAT(host.Trace(), ElementsAre("ZEVAMBstrupr_A(\"abc\") -> \"ABC\"",
                                        "ZEVAMBzstncpy_A(target, \"longer than that\", 8, 0) -> \"longer \"",
                                        "ZEVAMBstricmp_A(\"a\", \"B\") -> less",
                                        "ZEVAMBqstricmp_A(\"LABELSX\", 6, \"labelsource\", 6, 0) -> 1",
                                        "ValidateZEVAName(\"$a\") -> 2"));
}

TEST(Trace, EscapesControlAndInvalidBytesAndKeepsLetters) {
  ScriptedHost host;
  const BpString text("\xC3\xA9\x01\x7F\xC3\t\\", false);
  EXPECT_THAT(host.Trace(), ElementsAre("text#1 = BpString(\"\xC3\xA9\\x01\\x7F\\xC3\\t\\\\\", false)"));
}

TEST(Trace, ShowsTheHostsOwnMessageBehindItsCall) {
  ScriptedHost host(TwoVariables(), "MRSET nobody");
  const ProcedureDataSource source;
  ZEVA_TokenSequence tokens(true);
  tokens.SetPosition(1);
  tokens.Next();
  std::vector<int> indices;
  EXPECT_FALSE(ExistingVarList(source, tokens, indices, 2));
  ASSERT_EQ(host.Trace().size(), 6u);
  EXPECT_EQ(host.Trace()[4], "ExistingVarList(source#1, tokens#1, [], 2) -> false, []");
  EXPECT_EQ(host.Trace()[5], "  host error: Variable nobody is not in the dictionary.");
}

TEST(Trace, IsEmptyWhenSwitchedOffAndTheRestIsKept) {
  ScriptedHost host;
  host.SetTracing(false);
  UseOutput();
  EXPECT_THAT(host.Trace(), IsEmpty());
  EXPECT_THAT(host.Events(), IsEmpty());
  EXPECT_EQ(host.TraceText(), "");
  EXPECT_EQ(host.CallCount(), 24u);
  EXPECT_THAT(host.MessageLines(), ElementsAre("warning: one and "));
  EXPECT_EQ(host.Tables().size(), 1u);
  EXPECT_THAT(host.Problems(), IsEmpty());
}

TEST(Trace, LeavesOutWhatIsQuiet) {
  ScriptedHost host;
  host.FailAtCall(1);
  {
    const Quiet quiet;
    EXPECT_EQ(VariableSet("$a", VariableSet::kMCSet).GetName(VariableSet::kUpperCase), "$A");
  }
  EXPECT_THAT(host.Trace(), IsEmpty());
  EXPECT_EQ(host.CallCount(), 0u);
  EXPECT_FALSE(host.Fired());
}

TEST(Trace, BeginsAnewWithEachCommand) {
  ScriptedHost host(TwoVariables(), "MRSET");
  UseSets();
  UseOutput();
  const std::vector<SetData> stored = host.StoredSets();
  host.FailAtCall(3);
  host.SetCommand("MRSET /DISPLAY");
  EXPECT_THAT(host.Trace(), IsEmpty());
  EXPECT_THAT(host.Messages(), IsEmpty());
  EXPECT_THAT(host.Tables(), IsEmpty());
  EXPECT_THAT(host.Procedures(), IsEmpty());
  EXPECT_THAT(host.Events(), IsEmpty());
  EXPECT_EQ(host.SaveCount(), 0u);
  EXPECT_EQ(host.SavedSets(), std::nullopt);
  EXPECT_EQ(host.CallCount(), 0u);
  EXPECT_EQ(host.StoredSets(), stored);
  UseOutput();
  EXPECT_FALSE(host.Fired());
  EXPECT_EQ(host.Trace().front(), "procedure#1 = BpProcedure(\"Title\", 2)");
}

// ---------------------------------------------------------------------------------------------------------------------

/// Runs `use` with a fault at every call, one after the other, until none fires; the number of calls that failed.
template <class Exception, class Use>
std::size_t Sweep(Use use, FaultKind kind, FaultMode mode) {
  constexpr std::size_t kCap = 1000;
  ScriptedHost host(TwoVariables(), "MRSET q1 to s 1");
  for (std::size_t call = 1; call < kCap; ++call) {
    host.SetStoredSets(TwoVariables().sets);
    host.StartOver();
    host.FailAtCall(call, kind, mode);
    bool caught = false;
    try {
      use();
    } catch (const Exception&) {
      caught = true;
    }
    EXPECT_EQ(caught, host.Fired()) << call;
    EXPECT_THAT(host.Problems(), IsEmpty()) << call << "\n" << host.TraceText();
    if (!host.Fired()) {
      return call - 1;
    }
    EXPECT_EQ(host.StoredSets(), TwoVariables().sets) << call;
  }
  return kCap;
}

TEST(Faults, ReachEveryCallOnce) {
  EXPECT_EQ((Sweep<Fault>(UseEverything, FaultKind::kStandard, FaultMode::kOnce)), 32u);
  EXPECT_EQ((Sweep<Fault>(UseSets, FaultKind::kStandard, FaultMode::kOnce)), 17u);
  EXPECT_EQ((Sweep<Fault>(UseOutput, FaultKind::kStandard, FaultMode::kOnce)), 24u);
  EXPECT_EQ((Sweep<Fault>(UseText, FaultKind::kStandard, FaultMode::kOnce)), 5u);
}

TEST(Faults, ReachEveryCallWithATypeThatIsNoException) {
  EXPECT_EQ((Sweep<OddFault>(UseEverything, FaultKind::kOdd, FaultMode::kOnce)), 32u);
  EXPECT_EQ((Sweep<OddFault>(UseOutput, FaultKind::kOdd, FaultMode::kFromThenOn)), 24u);
}

TEST(Faults, TellTheCallThatFailed) {
  ScriptedHost host;
  host.FailAtCall(2, FaultKind::kStandard);
  ValidateZEVAName("a");
  try {
    ValidateZEVAName("a");
    FAIL() << "no fault";
  } catch (const Fault& fault) {
    EXPECT_EQ(fault.Call(), 2u);
    EXPECT_STREQ(fault.what(), "host call 2 fails");
  }
  host.FailAtCall(3, FaultKind::kOdd);
  try {
    ValidateZEVAName("a");
    FAIL() << "no fault";
  } catch (const OddFault& fault) {
    EXPECT_EQ(fault.call, 3u);
  }
}

TEST(Faults, HappenOnceOrFromThenOn) {
  ScriptedHost host;
  host.FailAtCall(2, FaultKind::kStandard, FaultMode::kOnce);
  EXPECT_NO_THROW(ValidateZEVAName("a"));
  EXPECT_THROW(ValidateZEVAName("a"), Fault);
  EXPECT_NO_THROW(ValidateZEVAName("a"));
  EXPECT_EQ(host.FaultCount(), 1u);

  host.StartOver();
  host.FailAtCall(2, FaultKind::kStandard, FaultMode::kFromThenOn);
  EXPECT_NO_THROW(ValidateZEVAName("a"));
  EXPECT_THROW(ValidateZEVAName("a"), Fault);
  EXPECT_THROW(ValidateZEVAName("a"), Fault);
  EXPECT_EQ(host.FaultCount(), 2u);
  EXPECT_EQ(host.CallCount(), 3u);

  host.FailNoCall();
  EXPECT_NO_THROW(ValidateZEVAName("a"));
}

TEST(Faults, OfAConstructorLeaveNoObject) {
  ScriptedHost host;
  host.FailAtCall(1, FaultKind::kStandard);
  EXPECT_THROW(BpString("x", true), Fault);
  EXPECT_THAT(host.Trace(), ElementsAre("BpString(\"x\", true) throws"));
  EXPECT_THAT(host.LiveObjects(), IsEmpty());
  EXPECT_THAT(host.Events(), IsEmpty());
  const BpString next("y", true);
  EXPECT_EQ(host.Trace().back(), "text#1 = BpString(\"y\", true)");
}

TEST(Faults, HaveNoEffectOnTheCursorTheSetsOrTheOutput) {
  ScriptedHost host(TwoVariables(), "MRSET");
  ZEVA_TokenSequence tokens(true);
  host.FailAtCall(2, FaultKind::kStandard);
  EXPECT_THROW(tokens.Next(), Fault);
  EXPECT_EQ(tokens.Position(), -1);

  const ProcedureDataSource source;
  host.FailAtCall(host.CallCount() + 2, FaultKind::kStandard);
  ZEVA_DataSource* parent = source.GetParentSource();
  EXPECT_THROW(SaveVariableSets({}, *parent, kMRSets), Fault);
  EXPECT_EQ(host.SaveCount(), 0u);
  EXPECT_EQ(host.StoredSets(), TwoVariables().sets);
}

TEST(Faults, AreNotOfDestructors) {
  ScriptedHost host;
  host.FailAtCall(2, FaultKind::kStandard);
  { const BpString text("x", true); }
  EXPECT_EQ(host.CallCount(), 1u);
  EXPECT_FALSE(host.Fired());
}

// ---------------------------------------------------------------------------------------------------------------------

TEST(LedgerOfTheHost, TellsLiveObjectsAndEvents) {
  ScriptedHost host;
  {
    const BpString first("a", true);
    const BpComposite second("b", true);
    EXPECT_THAT(host.LiveObjects(), ElementsAre("text#1", "composite#1"));
    EXPECT_THAT(host.Problems(), ElementsAre("text#1 is still alive", "composite#1 is still alive"));
  }
  EXPECT_THAT(host.LiveObjects(), IsEmpty());
  EXPECT_THAT(host.Events(), ElementsAre(Event{true, "text#1"}, Event{true, "composite#1"}, Event{false, "composite#1"},
                                         Event{false, "text#1"}));
  EXPECT_THAT(host.OutOfOrder(), IsEmpty());
}

TEST(LedgerOfTheHost, NoticesAReleaseOutOfOrder) {
  ScriptedHost host;
  auto first = std::make_unique<BpString>("a", true);
  const BpString second("b", true);
  first.reset();
  EXPECT_THAT(host.OutOfOrder(), ElementsAre("text#1 was released before text#2, which is younger"));
  EXPECT_THAT(host.Violations(), IsEmpty());
}

TEST(LedgerOfTheHost, AllowsATemporaryToGoBeforeWhatItMade) {
  ScriptedHost host;
  auto text = std::make_unique<BpString>("a", true);
  const BpAnnotation note = text->Replicate();
  text.reset();
  EXPECT_THAT(host.OutOfOrder(), IsEmpty());
}

TEST(LedgerOfTheHost, NoticesUseAndReleaseOfAReleasedObject) {
  ScriptedHost host;
  std::intptr_t handle = 0;
  {
    const BpAnnotation note = BpString("a", true).Replicate();
    handle = HostAccess::Handle(note);
  }
  EXPECT_THAT(host.Problems(), IsEmpty());
  { const BpAnnotation again = HostAccess::Annotation(handle); }
  EXPECT_THAT(host.Violations(), ElementsAre("note#1 was released and is not alive"));
  EXPECT_EQ(host.Trace().back(), "~note#1");
}

TEST(LedgerOfTheHost, NoticesAnObjectOfAnEarlierRecord) {
  ScriptedHost host;
  {
    BpComposite composite("^1", true);
    host.StartOver();
    composite.Finish();
  }
  EXPECT_THAT(host.Violations(), ElementsAre("an object of another record was used and is not alive",
                                             "an object of another record was released and is not alive"));
}

// ---------------------------------------------------------------------------------------------------------------------

TEST(Misuse, OfPositionsIsNoticed) {
  ScriptedHost host(TwoVariables(), "MRSET a");
  ZEVA_TokenSequence tokens(true);
  tokens.SetPosition(-1);
  EXPECT_TRUE(tokens.Next());
  tokens.SetPosition(3);
  EXPECT_FALSE(tokens.Next());
  EXPECT_THAT(host.Violations(),
              ElementsAre("the position -1 is outside of the command", "the position 3 is outside of the command"));
}

TEST(Misuse, OfACursorOnNoTokenIsNoticed) {
  ScriptedHost host(TwoVariables(), "MRSET 1");
  ZEVA_TokenSequence tokens(true);
  tokens.Type();
  TokenString(tokens);
  tokens.SetPosition(1);
  tokens.Position();
  tokens.Next();
  tokens.NumberValue();
  tokens.SetPosition(0);
  tokens.Next();
  tokens.NumberValue();
  EXPECT_THAT(host.Violations(), ElementsAre("Type() was asked for where no token is current",
                                             "TokenString was asked for where no token is current",
                                             "Position() was asked for where no token is current",
                                             "NumberValue() was asked of MRSET, which is no number"));
}

TEST(Misuse, OfTheCursorBehindAVariableListIsNoticed) {
  ScriptedHost host(TwoVariables(), "MRSET q1");
  const ProcedureDataSource source;
  ZEVA_TokenSequence tokens(true);
  tokens.SetPosition(1);
  tokens.Next();
  std::vector<int> indices;
  ExistingVarList(source, tokens, indices, 2);
  tokens.Next();
  EXPECT_THAT(host.Violations(), ElementsAre("Next() was called behind a variable list before SetPosition()"));
}

TEST(Misuse, OfTheEndOfAVariableListIsNoticed) {
  ScriptedHost host(TwoVariables(), "MRSET q1");
  const ProcedureDataSource source;
  ZEVA_TokenSequence tokens(true);
  tokens.Next();
  tokens.Next();
  std::vector<int> indices;
  ExistingVarList(source, tokens, indices, 3);
  EXPECT_THAT(host.Violations(), ElementsAre("the end 3 of a variable list is outside of the command"));
}

TEST(Misuse, OfVariableIndicesIsNoticed) {
  ScriptedHost host(TwoVariables());
  const ProcedureDataSource source;
  source.GetVariable(-1);
  EXPECT_STREQ(source.GetVariable(2)->GetName(), "(no variable)");
  EXPECT_THAT(host.Violations(), ElementsAre("there is no variable -1", "there is no variable 2"));
}

TEST(Misuse, OfSourcesAndVariablesBehindTheirLifeIsNoticed) {
  ScriptedHost host(TwoVariables());
  const ZEVA_Variable* variable = nullptr;
  const ZEVA_DataSource* parent = nullptr;
  {
    const ProcedureDataSource source;
    variable = source.GetVariable(0);
    parent = source.GetParentSource();
  }
  variable->GetName();
  parent->ColumnCount();
  EXPECT_THAT(host.Violations(), ElementsAre("variable q1 was used and no source is alive",
                                             "the parent source was used and no source is alive"));
}

TEST(Misuse, OfASourceWithoutDatasetIsNoticed) {
  ScriptedHost host;
  host.SetDatasetOpen(false);
  const ProcedureDataSource source;
  EXPECT_THAT(host.Violations(), ElementsAre("a data source was opened and no dataset is"));
}

TEST(Misuse, OfValueLabelsIsNoticed) {
  ScriptedHost host(TwoVariables());
  const ProcedureDataSource source;
  ZEVA_ValueLabelMap labels(source.GetVariable(0)->GetValueLabels());
  labels.GetLabel(1.0);
  labels.Reset();
  labels.Reset();
  labels.GetLabel(std::string("1"));
  EXPECT_THAT(host.Violations(), ElementsAre("a label of q1 was looked up before Reset()", "labels#1 was reset twice",
                                             "a label of q1 was looked up for a value of the other type"));
}

TEST(Misuse, OfSetKindsIsNoticed) {
  ScriptedHost host;
  const ProcedureDataSource source;
  VariableSets(source, static_cast<VarSetsType>(0));
  EXPECT_THAT(host.Violations(), ElementsAre("variable sets of the unknown kind 0 were asked for"));
  EXPECT_EQ(host.Trace().back(), "VariableSets(source#1, 0) -> []");
}

TEST(Misuse, OfKeywordsAndLengthsIsNoticed) {
  ScriptedHost host;
  KeywordMatch("name", "NAME");
  ZEVAMBqstricmp_A("LABEL", 6, "LABELSOURCE", 6, 0);
  char buffer[1] = {'x'};
  ZEVAMBzstncpy_A(buffer, "a", 0);
  EXPECT_THAT(host.Violations(),
              ElementsAre("KeywordMatch was given a token that is not in upper case: name",
                          "a text of 5 bytes was compared for 6", "a text was copied to a target of 0 bytes"));
}

TEST(Misuse, OfCompositesIsNoticed) {
  ScriptedHost host;
  BpComposite composite("^1", true);
  composite.EndSublist();
  composite.Sublist();
  composite.Sublist();
  BpError(composite, kBpErrorShow, kBpErrorLevelError);
  composite.EndSublist();
  composite.Finish();
  composite.Add(BpString("late", false));
  EXPECT_THAT(host.Violations(),
              ElementsAre("the list of composite#1 was not begun", "the list of composite#1 was begun twice",
                          "composite#1 was used while its list was open", "composite#1 was added to after Finish()"));
}

TEST(Misuse, OfCellsIsNoticed) {
  ScriptedHost host;
  BpProcedure procedure("Title", 2);
  const BpString text("x", true);
  BpPivotTable table = procedure.PivotTable(text, text, false);
  BpDimension columns = table.Dimension(text, BpPivotTable::kAsAdded);
  BpDimension rows = table.Dimension(text, BpPivotTable::kAsAdded);
  BpCategory column = columns.Category(text);
  column.Cell(text);
  { const BpCategory row = rows.Category(text); }
  column.Cell(text);
  const BpCategory row = rows.Category(text);
  column.Cell(text);
  column.Cell(text);
  EXPECT_THAT(host.Violations(), ElementsAre("the cell of category#1 has no live category in another dimension",
                                             "the cell of category#1 has no live category in another dimension",
                                             "a cell was filled twice: \"x\" and \"x\""));
}

// ---------------------------------------------------------------------------------------------------------------------

TEST(Installation, AllowsOneHostAtATime) {
  const ScriptedHost host;
  EXPECT_THROW(ScriptedHost(), std::logic_error);
  EXPECT_NE(CmnDic, nullptr);
}

TEST(Installation, EndsWithTheHost) {
  { const ScriptedHost host; }
  EXPECT_EQ(CmnDic, nullptr);
  EXPECT_THROW(BpString("x", true), std::logic_error);
  EXPECT_THROW(KeywordMatch("A", "A"), std::logic_error);
}

TEST(Installation, IsNotNeededForSetsAndTexts) {
  VariableSet set("$a", VariableSet::kMCSet);
  set.AddVariableName("q");
  EXPECT_EQ(ToText(ToData(set)), "$a MC (q)");
  EXPECT_EQ(ZEVAMBstricmp_A("a", "A"), 0);
  EXPECT_NE(ZEVAMBqstricmp_A("ab", 1, "AC", 1, 0), 0);
  EXPECT_EQ(ValidateZEVAName("$a"), 2);
  char buffer[2] = "";
  ZEVAMBzstncpy_A(buffer, "ab", 2);
  EXPECT_STREQ(buffer, "a");
}

TEST(Installation, TellsWhetherADatasetIsOpenByTheTwelfthMemberAlone) {
  ScriptedHost host;
  EXPECT_NE(CmnDic->fActiveDataset, nullptr);
  EXPECT_THAT(CmnDic->fHostOwn, testing::Each(nullptr));
  host.SetDatasetOpen(false);
  EXPECT_EQ(CmnDic->fActiveDataset, nullptr);
  EXPECT_THAT(CmnDic->fHostOwn, testing::Each(testing::Ne(nullptr)));
}

}  // namespace
}  // namespace scripted
