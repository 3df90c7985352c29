#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <type_traits>
#include <vector>

#include "backend/mrset/mrset.h"
#include "backend/mrset/mrsetapply.h"
#include "backend/mrset/mrsetparse.h"
#include "tests/module/run.h"

/// The entry point by the name of its symbol: this program links only if that is unmangled.
void EntryBySymbol() __asm__("mrset_");

namespace module_test {
namespace {

using scripted::Categories;
using scripted::Dichotomies;
using scripted::ScriptedHost;
using scripted::SetData;
using testing::AnyOf;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

static_assert(std::is_same_v<decltype(&mrset_), void (*)()>);
static_assert(
    std::is_same_v<decltype(&MRSetParse), bool (*)(ZEVA_TokenSequence&, const ZEVA_DataSource&, MRSETSUBCOMMANDS&)>);
static_assert(
    std::is_same_v<decltype(&MRSetApply), void (*)(const MRSETSUBCOMMANDS&, const ZEVA_DataSource&, BpProcedure&)>);

const char kDefineAndDisplay[] = "MRSET /MDGROUP NAME=$likes VARIABLES=q1 q2 q3 VALUE=1 /DISPLAY NAME=[$likes]";

std::vector<SetData> StoredSets() {
  return {Categories("$old", {"n1", "n2"}, "Old")};
}

/// A host with the survey and $old.
class Entry : public testing::Test {
 protected:
  Entry() : fHost({SurveyDictionary(), StoredSets(), true, {}}) {}

  /// The trace of a run in which nothing fails.
  Lines TraceOf(const std::string& command) {
    fHost.SetCommand(command);
    mrset_();
    fHost.SetStoredSets(StoredSets());
    return fHost.Trace();
  }

  /// Runs with the call of that text failing, and expects the fault to come out.
  void RunWithFault(const std::string& command, const std::string& call) {
    const std::size_t number = CallNumber(TraceOf(command), call);
    ASSERT_NE(number, 0U) << "no call " << call;
    fHost.StartOver();
    fHost.FailAtCall(number);
    try {
      mrset_();
      ADD_FAILURE() << "no exception left mrset_";
    } catch (const scripted::Fault& fault) {
      EXPECT_EQ(fault.Call(), number);
    }
    EXPECT_THAT(fHost.Problems(), IsEmpty());
    EXPECT_EQ(fHost.SaveCount(), 0U);
    EXPECT_EQ(fHost.StoredSets(), StoredSets());
  }

  ScriptedHost fHost;
};

TEST_F(Entry, IsReachedByItsUnmangledSymbol) {
  fHost.SetCommand("MRSET");
  EntryBySymbol();
  EXPECT_THAT(fHost.MessageLines(), ElementsAre("error: No subcommand in MRSET command."));
}

TEST_F(Entry, WithNoDatasetOpenACommandOfAnyContentIsSilentAndChangesNothing) {
  fHost.SetDatasetOpen(false);
  for (const std::string command : {kDefineAndDisplay, "MRSET", "MRSET /DELETE NAME=ALL", "MRSET /NONSENSE", "MRSET /",
                                    "MRSET /MCGROUP NAME=$a VARIABLES=n1 n2 LABEL=5", "OTHER", ""}) {
    SCOPED_TRACE(command);
    fHost.SetCommand(command);
    mrset_();
    EXPECT_EQ(fHost.TraceText(), R"(procedure#1 = BpProcedure("Multiple Response Set", 2)
tokens#1 = ZEVA_TokenSequence(true)
~tokens#1
~procedure#1
)");
    EXPECT_THAT(fHost.Messages(), IsEmpty());
    EXPECT_EQ(fHost.SaveCount(), 0U);
    EXPECT_EQ(fHost.StoredSets(), StoredSets());
    EXPECT_THAT(fHost.Problems(), IsEmpty());
  }
}

TEST_F(Entry, CommandWithAnErrorInItsSecondSubcommandAppliesNotEvenTheFirst) {
  const struct {
    std::string command;
    Lines messages;
  } kRows[] = {
      {"MRSET /MCGROUP NAME=$new VARIABLES=n1 n2 /NONSENSE", {"error: Invalid MRSET subcommand. Found NONSENSE .."}},
      {"MRSET /DELETE NAME=ALL /MCGROUP NAME=$new VARIABLES=n1", {"error: Only one variable n1 was found."}},
      {"MRSET /DISPLAY NAME=ALL /DISPLAY", {"error: Empty Display found"}},
      {"MRSET /MCGROUP NAME=$old VARIABLES=q1 q2 /DELETE / DISPLAY NAME=ALL", {}},
      {"MRSET /MCGROUP NAME=$new VARIABLES=n1 n2 /MCGROUP NAME=$newer VARIABLES=n1 gone",
       {"host error: Variable gone is not in the dictionary."}},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.command);
    const Outcome outcome = RunCommand(fHost, row.command);
    EXPECT_EQ(outcome.messages, row.messages);
    EXPECT_THAT(outcome.tables, IsEmpty());
    EXPECT_FALSE(outcome.saved);
    EXPECT_EQ(fHost.StoredSets(), StoredSets());
    EXPECT_THAT(fHost.Trace(), Each(Not(AnyOf(HasSubstr("GetParentSource"), HasSubstr("parent")))));
  }
}

TEST_F(Entry, CommandWithGoodSubcommandsBeforeABadOneSavesNothing) {
  const std::string define = " /MCGROUP NAME=$new VARIABLES=n1 n2";
  const std::string two = define + " /DELETE NAME=[$old]";
  const std::string five = two + " /DISPLAY NAME=ALL /DELETE NAME=ALL" + define;
  for (const std::string& good : {two, five}) {
    SCOPED_TRACE(good);
    EXPECT_EQ(RunCommand(fHost, "MRSET" + good + " /NONSENSE"),
              (Outcome{{"error: Invalid MRSET subcommand. Found NONSENSE .."}, {}, std::nullopt}));
    EXPECT_EQ(fHost.StoredSets(), StoredSets());
    EXPECT_EQ(fHost.SaveCount(), 0U);
  }
}

TEST(EntryWithoutSets, CommandWithNothingToDoStillWarnsAndSavesTheUnchangedList) {
  const struct {
    std::string command;
    Lines messages;
  } kRows[] = {
      {"MRSET /DELETE NAME=ALL", {"warning: No MRSETs to delete"}},
      {"MRSET /DISPLAY NAME=ALL", {"warning: No MRSET to display"}},
      {"MRSET /DELETE NAME=[$a]", {"warning: $a MRSET can not be found in the dataset."}},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.command);
    ScriptedHost host({SurveyDictionary(), {}, true, {}});
    EXPECT_EQ(RunCommand(host, row.command), (Outcome{row.messages, {}, Lines{}}));
    EXPECT_EQ(host.SaveCount(), 1U);
  }
}

TEST(EntryWithoutSets, WholeRunMakesItsCallsAndReleasesInOrder) {
  ScriptedHost host({SurveyDictionary(), {}, true, {}}, "MRSET /DELETE NAME=ALL");
  mrset_();
  // How the tokens are read is the business of the parsers' own tests.
  Lines trace;
  for (const std::string& line : host.Trace()) {
    const bool readsTokens = line.find("tokens#1.") == 0 || line.find("Token") == 0 || line.find("Keyword") == 0;
    if (!readsTokens) {
      trace.push_back(line);
    } else if (trace.back() != "(reads tokens)") {
      trace.emplace_back("(reads tokens)");
    }
  }
  EXPECT_THAT(trace, ElementsAre("procedure#1 = BpProcedure(\"Multiple Response Set\", 2)",   //
                                 "tokens#1 = ZEVA_TokenSequence(true)",                       //
                                 "source#1 = ProcedureDataSource()",                          //
                                 "(reads tokens)",                                            //
                                 "source#1.GetParentSource() -> parent",                      //
                                 "VariableSets(parent, kMRSets) -> []",                       //
                                 "composite#1 = BpComposite(\"No MRSETs to delete\", true)",  //
                                 "composite#1.Finish()",                                      //
                                 "BpError(composite#1, kBpErrorShow, kBpErrorLevelWarning)",  //
                                 "~composite#1",                                              //
                                 "SaveVariableSets([], parent, kMRSets)",                     //
                                 "~source#1", "~tokens#1", "~procedure#1"));
}

TEST_F(Entry, ParsesOnTheProceduresSourceAndAppliesToItsParent) {
  const Lines trace = TraceOf(
      "MRSET /MDGROUP NAME=$likes VARIABLES=q1 TO q3 VALUE=1 /MCGROUP NAME=$both VARIABLES=n1 n2 "
      "/DISPLAY NAME=[$likes $gone] /DELETE NAME=[$both]");
  const auto apply = std::find(trace.begin(), trace.end(), "source#1.GetParentSource() -> parent");
  ASSERT_NE(apply, trace.end());
  const Lines parsing(trace.begin(), apply);
  const Lines applying(apply + 1, trace.end());
  EXPECT_THAT(parsing, Each(Not(HasSubstr("parent"))));
  EXPECT_THAT(applying, Each(AnyOf("~source#1", Not(HasSubstr("source#1")))));

  const auto count = [](const Lines& lines, const std::string& text) {
    return std::count_if(lines.begin(), lines.end(), [&](const std::string& line) { return line.find(text) == 0; });
  };
  // One fetch for each of the three names that are checked, and one for the list that is edited.
  EXPECT_EQ(count(parsing, "VariableSets(source#1, kMRSets) -> [$old]"), 3);
  EXPECT_EQ(count(applying, "VariableSets(parent, kMRSets) -> [$old]"), 1);
  EXPECT_EQ(count(applying, "SaveVariableSets("), 1);
  EXPECT_EQ(applying[applying.size() - 4],
            "SaveVariableSets([$likes MD value \"1\" (q1 q2 q3), $old MC label \"Old\" (n1 n2)], parent, kMRSets)");
}

TEST_F(Entry, SavesOnceInEveryRunThatParsesAndNotAtAllInAnyOther) {
  const struct {
    std::string command;
    std::size_t saves;
  } kRows[] = {
      {"MRSET /DISPLAY NAME=ALL", 1},
      {"MRSET /DISPLAY NAME=[$old] /DISPLAY NAME=[$old] /DISPLAY NAME=ALL", 1},
      {"MRSET /DELETE NAME=[$none]", 1},
      {"MRSET /DELETE NAME=ALL /DELETE NAME=ALL", 1},
      {"MRSET /MCGROUP NAME=$a VARIABLES=n1 n2 /MCGROUP NAME=$a VARIABLES=n1 n2 /DELETE NAME=[$a]", 1},
      {"MRSET", 0},
      {"MRSET /", 0},
      {"MRSET /DISPLAY", 0},
      {"MRSET /DISPLAY NAME=ALL /DELETE", 0},
      {"MRSET /MDGROUP NAME=$a VARIABLES=q1 q2", 0},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.command);
    fHost.SetStoredSets(StoredSets());
    RunCommand(fHost, row.command);
    EXPECT_EQ(fHost.SaveCount(), row.saves);
  }
}

TEST_F(Entry, TypicalCommandDefinesDisplaysAndSaves) {
  const Outcome expected = {{"warning: CountVal 1 label different in the variables.",
                             "warning: CountVal 1 label different in the variables."},
                            {"Multiple Response Sets: Name by Attributes",
                             "Label | Coded As | Counted Value | Data Type | Elementary Variables",
                             "$likes | - | Dichotomies | 1 | Numeric | Tea; Coffee; Milk"},
                            Lines{"$likes MD value \"1\" (q1 q2 q3)", "$old MC label \"Old\" (n1 n2)"}};
  EXPECT_EQ(RunCommand(fHost, kDefineAndDisplay), expected);
}

TEST_F(Entry, NothingSurvivesFromOneRunToTheNext) {
  const Lines first = TraceOf(kDefineAndDisplay);
  TraceOf("MRSET /MCGROUP NAME=$a VARIABLES=n1");
  TraceOf("MRSET /DISPLAY NAME=ALL /DELETE NAME=ALL");
  EXPECT_EQ(TraceOf(kDefineAndDisplay), first);
}

TEST_F(Entry, OpensTheProcedureTheTokensAndTheSourceAndReleasesThemInReverse) {
  const auto isOwn = [](const scripted::Event& event) {
    return event.object == "procedure#1" || event.object == "tokens#1" || event.object == "source#1";
  };
  for (const std::string command : {kDefineAndDisplay, "MRSET /MCGROUP NAME=$a VARIABLES=n1"}) {
    SCOPED_TRACE(command);
    TraceOf(command);
    Lines own;
    for (const scripted::Event& event : fHost.Events()) {
      if (isOwn(event)) {
        own.push_back((event.constructed ? "+" : "~") + event.object);
      }
    }
    EXPECT_THAT(own, ElementsAre("+procedure#1", "+tokens#1", "+source#1", "~source#1", "~tokens#1", "~procedure#1"));
  }
}

TEST_F(Entry, NothingIsLeftToReleaseWhenTheProcedureCannotBeOpened) {
  RunWithFault(kDefineAndDisplay, "BpProcedure(");
  EXPECT_THAT(fHost.Trace(), ElementsAre("BpProcedure(\"Multiple Response Set\", 2) throws"));
}

TEST_F(Entry, ProcedureIsReleasedWhenTheTokensCannotBeOpened) {
  RunWithFault(kDefineAndDisplay, "ZEVA_TokenSequence(");
  EXPECT_THAT(fHost.Trace(), ElementsAre("procedure#1 = BpProcedure(\"Multiple Response Set\", 2)",
                                         "ZEVA_TokenSequence(true) throws", "~procedure#1"));
}

TEST_F(Entry, TokensAndProcedureAreReleasedWhenTheSourceCannotBeOpened) {
  RunWithFault(kDefineAndDisplay, "ProcedureDataSource(");
  EXPECT_THAT(fHost.Trace(), ElementsAre("procedure#1 = BpProcedure(\"Multiple Response Set\", 2)",
                                         "tokens#1 = ZEVA_TokenSequence(true)", "ProcedureDataSource() throws",
                                         "~tokens#1", "~procedure#1"));
}

TEST_F(Entry, ExceptionOfThePhasesLeavesAfterEverythingWasReleasedAndNothingWasSaved) {
  const struct {
    std::string call;
    Lines released;  // after the call
  } kRows[] = {
      {"tokens#1.Next()", {"source#1", "tokens#1", "procedure#1"}},
      {"ExistingVarList(", {"source#1", "tokens#1", "procedure#1"}},
      {"VariableSets(source#1", {"source#1", "tokens#1", "procedure#1"}},
      {"GetParentSource()", {"source#1", "tokens#1", "procedure#1"}},
      {"VariableSets(parent", {"source#1", "tokens#1", "procedure#1"}},
      {".Position(kColumns", {"dimension#1", "table#1", "text#3", "source#1", "tokens#1", "procedure#1"}},
      {"SaveVariableSets(", {"source#1", "tokens#1", "procedure#1"}},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.call + " throws");
    RunWithFault(kDefineAndDisplay, row.call);
    const Lines& trace = fHost.Trace();
    const auto thrown = std::find_if(trace.begin(), trace.end(), [](const std::string& line) {
      return line.size() > 7 && line.compare(line.size() - 7, 7, " throws") == 0;
    });
    ASSERT_NE(thrown, trace.end());
    Lines released;
    for (auto line = thrown + 1; line != trace.end(); ++line) {
      released.push_back(line->substr(1));
    }
    EXPECT_EQ(released, row.released);
  }
}

TEST_F(Entry, ExceptionsOfAnyTypePassThrough) {
  fHost.SetCommand(kDefineAndDisplay);
  fHost.FailAtCall(20, scripted::FaultKind::kOdd);
  EXPECT_THROW(mrset_(), scripted::OddFault);
  EXPECT_THAT(fHost.Problems(), IsEmpty());
}

}  // namespace
}  // namespace module_test
