#include "standalone/run/command_runner.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <vector>

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
  constexpr const char* kKinds[] = {"procedure", "item", "restarted", "saves", "done", "failed", "noticed"};
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
    expected.insert(expected.end(), {"procedure", "saves", "done"});
    const std::string name = "$own" + std::to_string(interferences);
    EXPECT_TRUE(runner.Run({"MRSET /MCGROUP NAME=" + name + " VARIABLES=q1 q2", 1}, 0));
    EXPECT_EQ(told, expected);
    EXPECT_EQ(StoredNames().back(), name);
  }
  EXPECT_EQ(StoredNames().size(), 4U + 1U + 2U + 3U);
}

TEST_F(CommandRunnerTest, AnErrorCountsForItsOwnCommandAlone) {
  bool interfered = false;
  CommandRunner runner(kFile, false, [&](const Event& event) {
    if (std::holds_alternative<ItemIssued>(event) && !interfered) {
      interfered = true;
      DefineElsewhere("$other");
    }
  });
  // The value is reported and saved all the same; the second run reports it again.
  EXPECT_FALSE(runner.Run({"MRSET /MDGROUP NAME=$half VARIABLES=q1 q2 VALUE=0.5", 1}, 0));
  EXPECT_TRUE(runner.Run({"MRSET /DELETE NAME=[$half]", 1}, 1));
  EXPECT_EQ(StoredNames(), Kinds{"$other"});
}

TEST_F(CommandRunnerTest, ADryRunKeepsItsSetsToItself) {
  Kinds items;
  CommandRunner runner(kFile, true, [&](const Event& event) {
    if (const auto* issued = std::get_if<ItemIssued>(&event)) {
      items.push_back(std::get<Message>(issued->item).text);
    }
  });
  EXPECT_TRUE(runner.Run({"MRSET /MCGROUP NAME=$a VARIABLES=q1 q2", 1}, 0));
  EXPECT_TRUE(runner.Run({"MRSET /DELETE NAME=[$a $b]", 1}, 1));
  EXPECT_EQ(items, Kinds{"$b MRSET can not be found in the dataset."});
  EXPECT_EQ(StoredNames(), Kinds{});
}

TEST_F(CommandRunnerTest, TheLineOfAnErrorIsThatOfTheScript) {
  Kinds items;
  CommandRunner runner(kFile, false, [&](const Event& event) {
    if (const auto* issued = std::get_if<ItemIssued>(&event)) {
      items.push_back(std::get<Message>(issued->item).text);
    }
  });
  EXPECT_FALSE(runner.Run({"MRSET\n /MCGROUP\n LABEL='open", 7}, 0));
  EXPECT_FALSE(runner.Run({std::string(100, 'X'), 3}, 1));
  EXPECT_EQ(items, (Kinds{"Line 9: A string is not closed on its line.",
                          "Line 3: " + std::string(60, 'X') + "... is not a command. The command here is MRSET."}));
}

}  // namespace
}  // namespace standalone
