#include "standalone/run/command_runner.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "standalone/dataset/dataset_writer.h"
#include "standalone/language/tokenizer.h"
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
  constexpr const char* kKinds[] = {"procedure", "message", "table", "hint", "dry run", "saves", "restarted"};
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
                          "Line 3: " + std::string(60, 'X') + "... is not a command. The command here is MRSET."}));
}

}  // namespace
}  // namespace standalone
