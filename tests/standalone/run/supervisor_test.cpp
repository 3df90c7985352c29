#include <gtest/gtest.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "standalone/dataset/dataset.h"
#include "standalone/language/tokenizer.h"
#include "standalone/run/supervisor.h"
#include "tests/standalone/shell/shell_dataset.h"

namespace standalone {
namespace {

constexpr const char* kDefine = "MRSET /MCGROUP NAME=$a VARIABLES=q1 q2";
constexpr const char* kAborts = "MRSET /DELETE NAME=[]";

class SupervisorTest : public ShellDatasetTest {
 protected:
  CommandResult Run(const std::string& text) { return fRun.Run({text, ++fLine}); }

  std::string SentenceOfRun(const std::string& text) {
    return SentenceOf([&] { Run(text); });
  }

  static std::size_t SetCount() { return Dataset(kFile).Sets().size(); }

  Supervisor fRun{RunRequest{kFile, false, {}}};
  int fLine = 0;
};

TEST_F(SupervisorTest, RunsCommandsAsTheyCome) {
  EXPECT_EQ(Run(kDefine).status, Status::kOk);
  EXPECT_EQ(SetCount(), 1U);
  const CommandResult second = Run("MRSET /DISPLAY NAME=ALL");
  EXPECT_EQ(second.number, 2U);
  EXPECT_EQ(second.line, 2);
  EXPECT_EQ(second.text, "MRSET /DISPLAY NAME=ALL");
  ASSERT_EQ(second.items.size(), 1U);
  EXPECT_EQ(std::get<Table>(second.items[0]).rows.size(), 1U);
  EXPECT_EQ(Run("MRSET").status, Status::kError);
  fRun.Finish();
}

TEST_F(SupervisorTest, LosesNothingButTheCommandThatIsAborted) {
  EXPECT_EQ(Run(kAborts).status, Status::kAborted);
  EXPECT_EQ(Run(kDefine).status, Status::kOk);
  const CommandResult third = Run(kAborts);
  EXPECT_EQ(third.status, Status::kAborted);
  EXPECT_EQ(third.number, 3U);
  EXPECT_EQ(Run("MRSET /DELETE NAME=ALL").status, Status::kOk);
  EXPECT_EQ(SetCount(), 0U);
}

TEST_F(SupervisorTest, SeesWhatOthersChanged) {
  EXPECT_EQ(Run("MRSET /DISPLAY NAME=ALL").items.size(), 1U);
  Dataset other(kFile);
  other.SaveSets({{"$b", SetType::kCategory, "", "", false, false, {"q1", "q2"}}}, "elsewhere");
  const CommandResult result = Run("MRSET /DISPLAY NAME=ALL");
  EXPECT_EQ(std::get<Table>(result.items.at(0)).rows.at(0).name, "$b");
}

TEST_F(SupervisorTest, SaysThatTheDatasetIsGoneAndGoesOn) {
  Run(kDefine);
  unlink(kFile);
  EXPECT_EQ(SentenceOfRun("MRSET /DISPLAY NAME=ALL"), "survey.mrset was moved or deleted by another program.");
  EXPECT_EQ(SentenceOfRun("MRSET /DISPLAY NAME=ALL"), SentenceOf([] { Dataset dataset(kFile); }));
  Make(kFile);
  const CommandResult result = Run(kDefine);
  EXPECT_EQ(result.status, Status::kOk);
  EXPECT_EQ(result.number, 2U) << "those that were not run do not count";
  EXPECT_EQ(SetCount(), 1U);
}

TEST_F(SupervisorTest, NeverWritesIntoADatasetThatTookTheOthersPlaceUnsaid) {
  Run(kDefine);
  Make("other.mrset");
  std::rename("other.mrset", kFile);
  EXPECT_EQ(SentenceOfRun(kDefine), "survey.mrset was moved or deleted by another program.");
  EXPECT_EQ(SetCount(), 0U);
  EXPECT_EQ(Run(kDefine).status, Status::kOk);
  EXPECT_EQ(SetCount(), 1U);
}

TEST_F(SupervisorTest, RehearsesWhatADryRunHasComeTo) {
  Supervisor dry(RunRequest{kFile, true, {}});
  dry.Run({kDefine, 1});
  EXPECT_EQ(dry.Run({kAborts, 2}).status, Status::kAborted);
  const CommandResult result = dry.Run({"MRSET /DISPLAY NAME=ALL", 3});
  EXPECT_EQ(std::get<Table>(result.items.at(0)).rows.at(0).name, "$a");
  EXPECT_EQ(SetCount(), 0U);
}

TEST_F(SupervisorTest, RunsNoCommandOfADryRunWhereTheOnesBeforeItCannotBeRehearsed) {
  Supervisor dry(RunRequest{kFile, true, {}});
  dry.Run({kDefine, 1});
  dry.Run({kAborts, 2});
  setenv("MRSET_MODULE", MRSET_ENDING_MODULE, 1);
  EXPECT_EQ(SentenceOf([&] {
              dry.Run({"MRSET /DISPLAY NAME=ALL", 3});
            }),
            "The command's process was ended by signal 9 (Killed).");
  setenv("MRSET_MODULE", MRSET_TEST_MODULE, 1);
  const CommandResult result = dry.Run({"MRSET /DISPLAY NAME=ALL", 3});
  EXPECT_EQ(std::get<Table>(result.items.at(0)).rows.at(0).name, "$a");
}

TEST_F(SupervisorTest, KeepsNobodyFromSavingBetweenItsCommands) {
  DatasetOptions patient;
  patient.lockTimeout = std::chrono::seconds(10);  // the dry run may still be ending its command
  for (const bool dryRun : {false, true}) {
    Supervisor run(RunRequest{kFile, dryRun, {}});
    run.Run({kDefine, 1});
    Dataset other(kFile, patient);
    EXPECT_NO_THROW(
        other.SaveSets({{dryRun ? "$b" : "$c", SetType::kCategory, "", "", false, false, {"q1", "q2"}}}, "x"));
  }
}

TEST_F(SupervisorTest, TakesCommandsOfAnySizeAndBytes) {
  Run(kDefine);
  const std::string long_ = "MRSET /MCGROUP NAME=$long VARIABLES=q1 q2 /* " + std::string(5000000, 'x');
  const CommandResult result = Run(long_);
  EXPECT_EQ(result.status, Status::kOk);
  EXPECT_EQ(result.text, long_);
  const CommandResult invalid = Run("MRSET \xFF");
  ASSERT_EQ(invalid.items.size(), 1U);
  EXPECT_EQ(std::get<Message>(invalid.items[0]).text, "Line 3: " + SentenceOf([] { Tokenize("MRSET \xFF"); }));
}

}  // namespace
}  // namespace standalone
