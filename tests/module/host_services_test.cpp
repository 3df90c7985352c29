#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <set>
#include <string>
#include <thread>
#include <type_traits>
#include <utility>
#include <vector>

#include "backend/mrset/mrset.h"
#include "backend/mrset/mrsetparse.h"
#include "host/dictionary.h"
#include "host/module.h"
#include "host/output.h"
#include "host/text.h"
#include "host/tokens.h"
#include "host/variable_sets.h"
#include "tests/module/run.h"

namespace module_test {
namespace {

using scripted::ScriptedHost;
using testing::ElementsAre;
using testing::IsEmpty;

// Values that the module and its host have agreed on.

static_assert(VariableSet::kVarSet == 0);
static_assert(VariableSet::kMCSet == 1);
static_assert(VariableSet::kMDSet == 2);
static_assert(sizeof(VariableSet::VariableSetType) == 4);
static_assert(VariableSet::kUpperCase == 1);
static_assert(VariableSet::kAsStored == 2);
static_assert(kMRSets == 1);
static_assert(TokenSequenceBase::kEnd == 1);
static_assert(TokenSequenceBase::kString == 2);
static_assert(TokenSequenceBase::kNumber == 3);
static_assert(TokenSequenceBase::kQuotedString == 4);
static_assert(TokenSequenceBase::kSymbol == 5);
static_assert(kBpErrorShow == 2);
static_assert(kBpErrorLevelError == 4);
static_assert(kBpErrorLevelWarning == 2);
static_assert(BpPivotTable::kAsAdded == 2);
static_assert(BpDimension::kColumns == 1);

// Whether a dataset is open is told by the twelfth pointer of the common dictionary.

static_assert(offsetof(CommonDictionary, fActiveDataset) == 11 * sizeof(void*));
static_assert(sizeof(CommonDictionary::fActiveDataset) == sizeof(void*));
static_assert(std::is_same_v<decltype(CmnDic), CommonDictionary*>);

// Relations of classes.

static_assert(std::is_convertible_v<ZEVA_TokenSequence*, TokenSequenceBase*>);
static_assert(std::is_convertible_v<ProcedureDataSource*, ZEVA_DataSource*>);
static_assert(std::is_convertible_v<BpProcedure*, BpHeading*>);
static_assert(std::is_convertible_v<BpDimension*, BpGroup*>);
static_assert(std::is_convertible_v<BpString*, BpCellText*>);
static_assert(std::is_convertible_v<BpComposite*, BpCellText*>);
static_assert(std::is_convertible_v<BpAnnotation*, BpHandle*>);

// The host's objects are handles: what is released once is never copied or moved.

template <class... Classes>
constexpr bool kAreNeitherCopiedNorMoved = (... && (!std::is_copy_constructible_v<Classes> &&
                                                    !std::is_move_constructible_v<Classes> &&
                                                    !std::is_copy_assignable_v<Classes> &&
                                                    !std::is_move_assignable_v<Classes>));

static_assert(kAreNeitherCopiedNorMoved<TokenSequenceBase, ZEVA_TokenSequence>);
static_assert(kAreNeitherCopiedNorMoved<ZEVA_DataSource, ProcedureDataSource, ZEVA_Variable, ZEVA_ValueLabelMap>);
static_assert(kAreNeitherCopiedNorMoved<BpHandle, BpAnnotation, BpCellText, BpString, BpComposite>);
static_assert(kAreNeitherCopiedNorMoved<BpCategory, BpGroup, BpDimension, BpPivotTable, BpHeading, BpProcedure>);

// They hold nothing but the host's handle.

template <class... Classes>
constexpr bool kHoldOneHandle = (... && (sizeof(Classes) == sizeof(void*)));

static_assert(kHoldOneHandle<ZEVA_DataSource, ProcedureDataSource, ZEVA_Variable, ZEVA_ValueLabelMap>);
static_assert(kHoldOneHandle<BpAnnotation, BpString, BpComposite, BpCategory, BpDimension, BpPivotTable, BpProcedure>);

// Sets are values.

static_assert(std::is_copy_constructible_v<VariableSet> && std::is_copy_assignable_v<VariableSet>);
static_assert(!std::is_default_constructible_v<VariableSet>);
static_assert(std::is_same_v<VARIABLESETS, std::vector<VariableSet>>);

// Operations: arguments, results and what is const.

static_assert(
    std::is_same_v<decltype(&ZEVA_DataSource::GetParentSource), ZEVA_DataSource* (ZEVA_DataSource::*)() const>);
static_assert(std::is_same_v<decltype(&ZEVA_DataSource::ColumnCount), int (ZEVA_DataSource::*)() const>);
static_assert(
    std::is_same_v<decltype(&ZEVA_DataSource::GetVariable), const ZEVA_Variable* (ZEVA_DataSource::*)(int) const>);
static_assert(
    std::is_same_v<decltype(&ZEVA_DataSource::FindVarIndex), int (ZEVA_DataSource::*)(const char*, int) const>);
static_assert(std::is_same_v<decltype(&VariableSets), VARIABLESETS (*)(const ZEVA_DataSource&, VarSetsType)>);
static_assert(
    std::is_same_v<decltype(&SaveVariableSets), void (*)(const VARIABLESETS&, ZEVA_DataSource&, VarSetsType)>);
static_assert(std::is_same_v<decltype(&ExistingVarList),
                             bool (*)(const ZEVA_DataSource&, TokenSequenceBase&, std::vector<int>&, int)>);
static_assert(std::is_same_v<decltype(&KeywordMatch), int (*)(const char*, const char*)>);
static_assert(std::is_same_v<decltype(&TokenString), std::string (*)(const TokenSequenceBase&)>);
static_assert(std::is_same_v<decltype(&TokenStringCaps), std::string (*)(const TokenSequenceBase&)>);
static_assert(std::is_same_v<decltype(&BpError), void (*)(const BpCellText&, BpErrorShow, BpErrorLevel)>);
static_assert(std::is_same_v<decltype(&BpCellText::Replicate), BpAnnotation (BpCellText::*)() const>);
static_assert(std::is_constructible_v<BpProcedure, std::string, int>);
static_assert(std::is_constructible_v<BpString, std::string, bool>);
static_assert(std::is_constructible_v<BpComposite, const std::string&, bool>);

/// The place of a virtual operation among those of its class, as the C++ ABI of these platforms encodes it.
template <class Operation>
std::uintptr_t VirtualPlace(Operation operation) {
  static_assert(sizeof(operation) >= sizeof(std::uintptr_t));
  std::uintptr_t place = 0;
  std::memcpy(&place, &operation, sizeof place);
  return place;
}

TEST(HostServices, VirtualTokenOperationsStandInTheAgreedOrder) {
  const std::uintptr_t places[] = {
      VirtualPlace(&TokenSequenceBase::Next),        VirtualPlace(&TokenSequenceBase::Position),
      VirtualPlace(&TokenSequenceBase::SetPosition), VirtualPlace(&TokenSequenceBase::Type),
      VirtualPlace(&TokenSequenceBase::Symbol),      VirtualPlace(&TokenSequenceBase::NumberValue)};
  for (std::size_t index = 1; index < std::size(places); ++index) {
    EXPECT_GT(places[index], places[index - 1]) << "operation " << index;
  }
}

TEST(HostServices, StreamIsAtItsEndExactlyForATokenOfThatType) {
  using Type = TokenSequenceBase::TokenType;
  for (const Type type : {TokenSequenceBase::kEnd, TokenSequenceBase::kString, TokenSequenceBase::kNumber,
                          TokenSequenceBase::kQuotedString, TokenSequenceBase::kSymbol}) {
    SCOPED_TRACE(type);
    ScriptedHost host;
    host.SetTokens({{type, "text", scripted::kNoSymbol, 0}});
    ZEVA_TokenSequence tokens(true);
    tokens.Next();
    EXPECT_EQ(tokens.AtEnd(), type == TokenSequenceBase::kEnd);
  }
}

TEST(HostServices, FirstNextMakesTheCommandNameCurrent) {
  ScriptedHost host({}, "mrset /x");
  ZEVA_TokenSequence tokens(true);
  EXPECT_TRUE(tokens.Next());
  EXPECT_EQ(tokens.Type(), TokenSequenceBase::kString);
  EXPECT_EQ(TokenString(tokens), "mrset");
  EXPECT_EQ(TokenStringCaps(tokens), "MRSET");
  EXPECT_EQ(tokens.Position(), 0);
}

TEST(HostServices, SteppingBackMakesTheTokenBeforeCurrent) {
  ScriptedHost host({}, "MRSET / DISPLAY");
  ZEVA_TokenSequence tokens(true);
  while (tokens.Next()) {
  }
  EXPECT_TRUE(tokens.AtEnd());
  for (const std::string text : {"DISPLAY", "/", "MRSET"}) {
    tokens.SetPosition(tokens.Position() - 1);
    EXPECT_TRUE(tokens.Next());
    EXPECT_EQ(TokenString(tokens), text);
  }
  EXPECT_THAT(host.Violations(), IsEmpty());
}

TEST(HostServices, NameThatIsNotInTheDictionaryHasNoIndex) {
  ScriptedHost host({SurveyDictionary(), {}, true, {}});
  const ProcedureDataSource source;
  EXPECT_EQ(source.FindVarIndex("gone", 0), -1);
  EXPECT_EQ(source.FindVarIndex("", 0), -1);
  EXPECT_EQ(source.FindVarIndex("q1", 0), 0);
  EXPECT_EQ(source.FindVarIndex("Q2", 0), 1);
  EXPECT_EQ(source.FindVarIndex("n2", 0), source.ColumnCount() - 1);
}

TEST(HostServices, SetsNameIsReturnedInUpperCaseAndAsStored) {
  VariableSet set("$Abc", VariableSet::kMDSet);
  set.AddVariableName("qOne");
  EXPECT_EQ(set.GetName(VariableSet::kUpperCase), "$ABC");
  EXPECT_EQ(set.GetName(VariableSet::kAsStored), "$Abc");
  EXPECT_THAT(set.GetVariableNames(VariableSet::kUpperCase), ElementsAre("QONE"));
  EXPECT_THAT(set.GetVariableNames(VariableSet::kAsStored), ElementsAre("qOne"));
}

TEST(HostServices, UpperCaseNameOfASetIsTheOneThatTheTextUtilityMakes) {
  for (const std::string name : {"$abc", "$A_b1", "$\xC3\xA9t\xC3\xA9", "$"}) {
    std::string buffer = name;
    ZEVAMBstrupr_A(buffer.data());
    EXPECT_EQ(VariableSet(name, VariableSet::kMCSet).GetName(VariableSet::kUpperCase), buffer);
  }
}

TEST(HostServices, NewSetHasNoLabelNoValueNoFlagsAndNoVariables) {
  const VariableSet set("$a", VariableSet::kMCSet);
  EXPECT_EQ(scripted::ToData(set), scripted::Categories("$a", {}));
  EXPECT_EQ(set.GetLabel(), "");
  EXPECT_EQ(set.GetValue(), "");
  EXPECT_FALSE(set.qLabelSetByVariable());
  EXPECT_FALSE(set.qUseVariableCategoryLabels());
}

TEST(HostServices, CopiedAndAssignedSetsAreIndependent) {
  VariableSet set("$a", VariableSet::kMDSet);
  set.SetLabel("First");
  set.AddVariableName("q1");
  const VariableSet copy = set;
  VariableSet assigned("$other", VariableSet::kMCSet);
  assigned = set;
  set.SetLabel("Second");
  set.SetValue("1");
  set.LabelSetByVariable(true);
  set.UseVariableCategoryLabels(true);
  set.AddVariableName("q2");

  EXPECT_EQ(scripted::ToText(scripted::ToData(copy)), "$a MD label \"First\" (q1)");
  EXPECT_EQ(scripted::ToText(scripted::ToData(assigned)), "$a MD label \"First\" (q1)");
  EXPECT_EQ(scripted::ToText(scripted::ToData(set)),
            "$a MD value \"1\" label \"Second\" label-by-variable counted-value-labels (q1 q2)");
}

TEST(HostServices, StoredSetsAreHandedOutAsCopiesAndReplacedByThoseSaved) {
  const std::vector<scripted::SetData> stored = {scripted::Categories("$b", {"n1"}), scripted::Categories("$a", {})};
  ScriptedHost host({SurveyDictionary(), stored, true, {}});
  const ProcedureDataSource source;
  VARIABLESETS sets = VariableSets(source, kMRSets);
  sets.front().SetLabel("Changed");
  std::swap(sets.front(), sets.back());
  EXPECT_EQ(host.StoredSets(), stored);

  SaveVariableSets(sets, *source.GetParentSource(), kMRSets);
  EXPECT_THAT(host.StoredSets(),
              ElementsAre(scripted::Categories("$a", {}), scripted::Categories("$b", {"n1"}, "Changed")));
}

// ---------------------------------------------------------------------------------------------------------------------
// What the comments of host/ say of the module.

/// The trace of a command on the survey.
Lines TraceOf(const std::string& command, const std::vector<scripted::SetData>& storedSets = {}) {
  ScriptedHost host({SurveyDictionary(), storedSets, true, {}});
  RunCommand(host, command);
  return host.Trace();
}

TEST(ModuleAndHost, VariableListMayEndAtTheCursorOrBeforeItAndBeginAtTheEnd) {
  const struct {
    std::string list;
    std::string cursor;
    std::string end;
  } kRows[] = {{"q1 q2", "8", "10"}, {"1", "8", "8"}, {"", "8", "8"}, {"=", "8", "7"}};
  for (const auto& row : kRows) {
    const Lines trace = TraceOf("MRSET /MCGROUP NAME = $a VARIABLES = " + row.list);
    const std::size_t call = CallNumber(trace, "ExistingVarList(source#1, tokens#1, [], " + row.end + ")");
    ASSERT_NE(call, 0U) << row.list;
    EXPECT_EQ(CallNumber(trace, "tokens#1.SetPosition(" + row.cursor + ")") + 2, call) << row.list;
  }
}

TEST(ModuleAndHost, QuotedSymbolsAndKeywordsActAsThese) {
  EXPECT_EQ(RunOnSurvey("MRSET '/' 'DISPLAY' 'NAME' '=' ALL"),
            (Outcome{{"warning: No MRSET to display"}, {}, Lines{}}));
}

TEST(ModuleAndHost, TextAndCodeOfSymbolsMustBothBeRight) {
  const struct {
    scripted::Token slash;
    scripted::Token equals;
    Lines messages;
  } kRows[] = {
      {scripted::Symbol("/"), scripted::Symbol("="), {"error: Empty Display found"}},
      {{TokenSequenceBase::kSymbol, "|", 11, 0},
       scripted::Symbol("="),
       {"error: Unexpected | keyword in MCGROUP subcommand."}},
      {{TokenSequenceBase::kSymbol, "/", 12, 0}, scripted::Symbol("="), {"error: Unexpected token / in this context"}},
      {scripted::Symbol("/"),
       {TokenSequenceBase::kSymbol, ":", 3, 0},
       {"error: MRSET VARIABLES was expecting \"=\". Found :..."}},
      {scripted::Symbol("/"),
       {TokenSequenceBase::kSymbol, "=", 4, 0},
       {"host error: Variable NAME is not in the dictionary."}},
  };
  for (const auto& row : kRows) {
    using scripted::Word;
    const scripted::Token& equals = row.equals;
    ScriptedHost host({SurveyDictionary(), {}, true, {}});
    host.SetTokens({Word("MRSET"), scripted::Symbol("/"), Word("MCGROUP"), Word("VARIABLES"), equals, Word("n1"),
                    Word("n2"), Word("NAME"), equals, Word("$a"), row.slash, Word("DISPLAY")});
    mrset_();
    EXPECT_EQ(host.MessageLines(), row.messages);
  }
}

TEST(ModuleAndHost, TextOfTheEndIsTakenForTheSymbolOrKeywordThatItIs) {
  const struct {
    std::string command;
    std::string end;
    Lines messages;
  } kRows[] = {{"MRSET /", "end of command", {"error: Invalid MRSET subcommand. Found end of command .."}},
               {"MRSET /", "DISPLAY", {"error: Empty Display found"}},
               {"MRSET /DISPLAY", "/", {"error: Empty Display found"}},
               {"MRSET /DISPLAY NAME", "end", {"error: Names \"=\" was expected. Found end..."}},
               {"MRSET /DISPLAY NAME", "=", {"error: Square bracket expected."}}};
  for (const auto& row : kRows) {
    ScriptedHost host({SurveyDictionary(), {}, true, {}}, row.command);
    host.SetEnd(row.end, scripted::kNoSymbol);
    mrset_();
    EXPECT_EQ(host.MessageLines(), row.messages) << row.command << row.end;
  }
}

TEST(ModuleAndHost, ArgumentsAreThoseOfTheComments) {
  const struct {
    std::string what;
    std::string command;
    std::string call;
  } kRows[] = {
      {"a token may be empty", "MRSET /''", "KeywordMatch(\"\", \"MDGROUP\") -> 0"},
      {"a name has its $", "MRSET /MCGROUP NAME=$a", "ValidateZEVAName(\"$a\")"},
      {"a length may end within a character", "MRSET /MDGROUP LABEL\xC3\xA9",
       "ZEVAMBqstricmp_A(\"LABEL\xC3\x89\", 6, \"LABELSOURCE\", 6, 0) -> 0"},
      {"a string value keeps its blanks and is not padded", "MRSET /MDGROUP NAME=$a VARIABLES=s8 s3 VALUE=' x '",
       ".GetLabel(\" x \")"},
      {"the parent's dictionary is asked", "MRSET /MCGROUP NAME=$a VARIABLES=n1 n2 /DISPLAY NAME=ALL",
       "parent.FindVarIndex(\"N1\", 0)"},
      {"its size too", "MRSET /MCGROUP NAME=$a VARIABLES=n1 n2 /DISPLAY NAME=ALL", "parent.GetVariable("},
  };
  for (const auto& row : kRows) {
    const Lines trace = TraceOf(row.command);
    EXPECT_NE(CallNumber(trace, row.call), 0U) << row.what << testing::PrintToString(trace);
  }
}

TEST(ModuleAndHost, AnnotationOutlivesItsText) {
  const Lines trace =
      TraceOf("MRSET /MDGROUP NAME=$a VARIABLES=q1 q2 VALUE=1 CATEGORYLABELS=COUNTEDVALUES /DISPLAY NAME=ALL");
  const auto lineOf = [&trace](const std::string& line) {
    return std::find_if(trace.begin(), trace.end(),
                        [&line](const std::string& other) { return other.find(line) != std::string::npos; });
  };
  const auto made = lineOf(".Replicate()");
  ASSERT_NE(made, trace.end());
  const std::string text = made->substr(made->find("text#"), made->find(".Rep") - made->find("text#"));
  EXPECT_LT(made, lineOf("~" + text));
  EXPECT_LT(lineOf("~" + text), lineOf("CellNote(note#1)"));
  EXPECT_NE(lineOf("CellNote(note#1)"), trace.end());
}

TEST(ModuleAndHost, EveryCallIsOnTheThreadThatRunsTheCommand) {
  std::vector<std::thread::id> seen;
  scripted::Hooks hooks;
  hooks.validateName = [&seen](const std::string&) {
    seen.push_back(std::this_thread::get_id());
    return 2;
  };
  ScriptedHost host({SurveyDictionary(), {}, true, hooks}, "MRSET /MCGROUP NAME=$a VARIABLES=n1 n2");
  std::thread thread(mrset_);
  const std::thread::id id = thread.get_id();
  thread.join();
  EXPECT_THAT(seen, ElementsAre(id));
}

TEST(ModuleAndHostDeathTest, TheseCommandsOfUsersEndTheProcess) {
  const scripted::SetData twice = scripted::Categories("$a", {"n1", "n2"});
  const struct {
    std::string command;
    std::string assertion;
  } kRows[] = {{"MRSET /DELETE NAME=[]", "!subcmd.fNames.empty()"},
               {"MRSET /DELETE NAME=?", "!subcmd.fNames.empty()"},
               {"MRSET /DELETE NAME=[a]", "(*namesIter)[0] == '$'"},
               {"MRSET /MCGROUP VARIABLES=n1 n2", "!subcmd.fName.empty()"},
               {"MRSET /DELETE NAME=[$a]", "(end - 1) == last"}};
  for (const auto& row : kRows) {
    EXPECT_DEATH(RunOnSurvey(row.command, {twice, twice}),
                 testing::HasSubstr("Assertion `" + row.assertion + "' failed"))
        << row.command;
  }
}

TEST(MRSetParseLessNoCase, NameThatDiffersInLetterCaseAloneIsNotInsertedAgain) {
  std::set<std::string, MRSetParseLessNoCase> names = {"$ABC"};
  EXPECT_FALSE(names.insert("$abc").second);
  EXPECT_THAT(names, ElementsAre("$ABC"));
  EXPECT_EQ(names.count("$Abc"), 1U);
}

TEST(MRSetParseLessNoCase, IsTrueWhenTheHostsComparisonOfFirstAndSecondIsPositive) {
  const struct {
    std::string first;
    std::string second;
    bool less;
  } kRows[] = {{"$b", "$a", true},   {"$a", "$b", false}, {"$B", "$a", true},  {"$b", "$A", true},
               {"$a", "$A", false},  {"$A", "$a", false}, {"$a", "$a", false}, {"$ab", "$a", true},
               {"$a", "$ab", false}, {"", "", false},     {"a", "", true},     {"", "a", false}};
  for (const auto& row : kRows) {
    SCOPED_TRACE("\"" + row.first + "\" and \"" + row.second + "\"");
    EXPECT_EQ(MRSetParseLessNoCase()(row.first, row.second), row.less);
  }
}

TEST(MRSetParseLessNoCase, OrdersASetFromLastToFirst) {
  const std::set<std::string, MRSetParseLessNoCase> names = {"b", "C", "a", "B"};
  EXPECT_THAT(names, ElementsAre("C", "b", "a"));
}

TEST(MRSetParseLessNoCase, AsksTheHostOnceWithFirstBeforeSecond) {
  ScriptedHost host;
  MRSetParseLessNoCase()("$one", "$Two");
  EXPECT_THAT(host.Trace(), ElementsAre("ZEVAMBstricmp_A(\"$one\", \"$Two\") -> less"));
}

}  // namespace
}  // namespace module_test
