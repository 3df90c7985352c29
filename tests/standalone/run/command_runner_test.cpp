#include "standalone/run/command_runner.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "standalone/dataset/dataset_writer.h"
#include "standalone/language/tokenizer.h"
#include "standalone/storage/interrupt.h"
#include "standalone/text/error.h"
#include "tests/standalone/elsewhere.h"
#include "tests/standalone/temporary_folder.h"

namespace standalone {
namespace {

constexpr const char* kFile = "survey.mrset";

class CommandRunnerTest : public TemporaryFolderTest {
 protected:
  CommandRunnerTest() {
    setenv("MRSET_MODULE", MRSET_TEST_MODULE, 1);
    DatasetWriter writer(kFile, false);
    writer.SetVariables({{"q1", 0, std::nullopt, {}}, {"q2", 0, std::nullopt, {}}});
    writer.AddCase({"1", "0"});
    writer.Commit();
  }

  ~CommandRunnerTest() override { unsetenv("MRSET_MODULE"); }

  static std::vector<std::string> StoredNames() {
    std::vector<std::string> names;
    for (const StoredSet& set : Dataset(kFile).Sets()) {
      names.push_back(set.name);
    }
    return names;
  }

  void DefineElsewhere(const std::string& name) { fElsewhere.Define(kFile, name); }

 private:
  Elsewhere fElsewhere;
};

std::string KindOf(const Event& event) {
  constexpr const char* kKinds[] = {"procedure", "message", "table", "tabulation",
                                    "hint",      "dry run", "saves", "restarted"};
  return kKinds[event.index()];
}

using Kinds = std::vector<std::string>;

TEST_F(CommandRunnerTest, ACommandRunsAgainWhereAnotherProcessCameFirst) {
  for (int interferences = 0; interferences <= 3; ++interferences) {
    int left = interferences;
    Kinds told;
    CommandRunner runner(kFile, false, [&](const Event& event) {
      told.push_back(KindOf(event));
      if (std::holds_alternative<ProcedureOpened>(event) && left > 0) {
        DefineElsewhere("$other" + std::to_string(interferences) + std::to_string(--left));
      }
    });
    Kinds expected;
    for (int run = 0; run < interferences; ++run) {
      expected.insert(expected.end(), {"procedure", "saves", "restarted"});
    }
    expected.insert(expected.end(), {"procedure", "saves"});
    const std::string name = "$own" + std::to_string(interferences);
    EXPECT_TRUE(runner.Run({"MRSET /MCGROUP NAME=" + name + " VARIABLES=q1 q2", 1}));
    EXPECT_EQ(told, expected);
    EXPECT_EQ(StoredNames().back(), name);
  }
  EXPECT_EQ(StoredNames().size(), 4U + 1U + 2U + 3U);
}

TEST_F(CommandRunnerTest, OnlyACommandThatChangesTheDatasetSaysSo) {
  CommandRunner runner(kFile, false, [](const Event&) {});
  EXPECT_TRUE(runner.Run({"MRSET /MCGROUP NAME=$a VARIABLES=q1 q2", 1}));
  EXPECT_FALSE(runner.Run({"MRSET /MCGROUP NAME=$a VARIABLES=q1 q2", 1}));
  EXPECT_FALSE(runner.Run({"MRSET /DISPLAY NAME=ALL", 1}));
  EXPECT_FALSE(runner.Run({"MRSET /DELETE NAME=[$b]", 1}));
  EXPECT_TRUE(runner.Run({"MRSET /DELETE NAME=[$a]", 1}));
}

TEST_F(CommandRunnerTest, ADryRunKeepsItsSetsToItself) {
  Kinds items;
  CommandRunner runner(kFile, true, [&](const Event& event) {
    if (const auto* message = std::get_if<Message>(&event)) {
      items.push_back(message->text);
    }
  });
  EXPECT_FALSE(runner.Run({"MRSET /MCGROUP NAME=$a VARIABLES=q1 q2", 1}));
  EXPECT_FALSE(runner.Run({"MRSET /DELETE NAME=[$a $b]", 1}));
  EXPECT_EQ(items, Kinds{"$b MRSET can not be found in the dataset."});
  EXPECT_EQ(StoredNames(), Kinds{});
}

TEST_F(CommandRunnerTest, TabulateNeedsNoModuleAndSavesNothing) {
  Dataset(kFile).SaveSets({{"$a", SetType::kDichotomy, "", "1", false, false, {"q1", "q2"}}}, "set-up");
  setenv("MRSET_MODULE", "/nowhere", 1);
  Kinds told;
  CommandRunner runner(kFile, false, [&](const Event& event) { told.push_back(KindOf(event)); });
  EXPECT_FALSE(runner.Run({"tab $a $A", 1}));
  EXPECT_FALSE(runner.Run({"TABULATE $b", 1}));
  EXPECT_EQ(told, (Kinds{"procedure", "tabulation", "tabulation", "procedure", "message"}));
}

TEST_F(CommandRunnerTest, TabulateCountsTheSetsOfADryRun) {
  std::vector<std::string> sets;
  CommandRunner runner(kFile, true, [&](const Event& event) {
    if (const auto* tabulation = std::get_if<Tabulation>(&event)) {
      sets.push_back(tabulation->set);
    }
  });
  EXPECT_FALSE(runner.Run({"MRSET /MCGROUP NAME=$a VARIABLES=q1 q2", 1}));
  EXPECT_FALSE(runner.Run({"TABULATE $A", 1}));
  EXPECT_EQ(sets, Kinds{"$a"});
  EXPECT_EQ(StoredNames(), Kinds{});
}

TEST_F(CommandRunnerTest, AnInterruptionEndsATabulate) {
  Dataset(kFile).SaveSets({{"$a", SetType::kDichotomy, "", "1", false, false, {"q1", "q2"}}}, "set-up");
  CommandRunner runner(
      kFile, false, [](const Event& event) { isInterruptRequested = std::holds_alternative<ProcedureOpened>(event); });
  EXPECT_THROW(runner.Run({"TABULATE $a", 1}), Error);
  isInterruptRequested = false;
}

TEST_F(CommandRunnerTest, AnErrorOfTabulateHasItsPlaceAndAHint) {
  Dataset(kFile).SaveSets({{"$drinks", SetType::kDichotomy, "", "1", false, false, {"q1", "q2"}}}, "set-up");
  struct Row {
    std::string command;
    std::string place;
    std::string hint;
  };
  const std::vector<Row> rows = {
      {"TABULATE $drniks", "$drniks", "did you mean $drinks?"},
      {"TABULATE $drinks /WEIHGT=q1", "WEIHGT", "did you mean WEIGHT?"},
      {"TABULATE $drinks /BY=q1, q2", ",", "separate names and keywords by blanks, not commas"},
      {"TABULATE $drinks /WHERE=q1 IN (1, x)", "x", ""},
      {"TABULATE $drinks /BY=q1\nMRSET /DISPLAY NAME=ALL", "DISPLAY", "line 1 has no period at its end"},
      {"TABULATE $drinks /BY=q1\nTABULATE $drinks", "TABULATE", "line 1 has no period at its end"},
      {"TABULATE $drinks /NET=a\nb: c", "c", ""},
  };
  for (const Row& row : rows) {
    std::vector<Message> messages;
    CommandRunner runner(kFile, false, [&](const Event& event) {
      if (const auto* message = std::get_if<Message>(&event)) {
        messages.push_back(*message);
      }
    });
    runner.Run({row.command, 1});
    ASSERT_EQ(messages.size(), 1U) << row.command;
    EXPECT_EQ(messages[0].level, Level::kError);
    EXPECT_EQ(row.command.substr(messages[0].place->offset, messages[0].place->size), row.place) << row.command;
    EXPECT_EQ(messages[0].hint.value_or(""), row.hint) << row.command;
  }
}

TEST_F(CommandRunnerTest, TheLineOfAnErrorIsThatOfTheScript) {
  Kinds items;
  CommandRunner runner(kFile, false, [&](const Event& event) {
    if (const auto* message = std::get_if<Message>(&event)) {
      items.push_back(message->text);
    }
  });
  EXPECT_FALSE(runner.Run({"MRSET\n /MCGROUP\n LABEL='open", 7}));
  EXPECT_FALSE(runner.Run({std::string(100, 'X'), 3}));
  EXPECT_EQ(items, (Kinds{"Line 9: " + SentenceOf([] { Tokenize("'open"); }),
                          "Line 3: " + std::string(60, 'X') +
                              "... is not a command. The commands here are MRSET and TABULATE."}));
}

}  // namespace
}  // namespace standalone
