#include "standalone/dataset/dataset.h"
#include "standalone/dataset/dataset_writer.h"
#include "standalone/dataset/variable.h"

#include <gmock/gmock.h>
#include <signal.h>
#include <sys/resource.h>

#include <chrono>
#include <future>
#include <random>
#include <thread>

#include "standalone/storage/commit.h"
#include "standalone/storage/database.h"
#include "standalone/storage/file_format.h"
#include "standalone/storage/interrupt.h"
#include "tests/standalone/stored_cases.h"
#include "tests/standalone/temporary_folder.h"

namespace standalone {
namespace {

using ::testing::ElementsAre;
using ::testing::UnorderedElementsAre;

constexpr const char* kFile = "survey.mrs";
constexpr const char* kCommand = "MRSET /TEST";

std::vector<Variable> ThreeVariables() {
  return {{"q1", 0, "Tea", {{"0", "No"}, {"1", "Yes"}}},
          {"Q2", 0, std::nullopt, {}},
          {"\xC3\xB6l_art", 5, "\xC3\x96l \"und\" Essig", {{"roh", "raw"}}}};
}

void MakeDataset(const std::string& path, bool replace = false,
                 const std::vector<Variable>& variables = ThreeVariables()) {
  DatasetWriter writer(path, replace);
  writer.SetVariables(variables);
  std::vector<std::string_view> cells(variables.size(), "1");
  writer.AddCase(cells);
  writer.Commit();
}

StoredSet SetOf(const std::string& name, const std::vector<std::string>& variables = {"q1", "Q2"}) {
  StoredSet set;
  set.name = name;
  set.label = "Label of " + name;
  set.countedValue = "1";
  set.categoryLabelsFromCountedValue = true;
  set.variables = variables;
  return set;
}

std::vector<std::string> NamesOf(const std::vector<StoredSet>& sets) {
  std::vector<std::string> names;
  for (const StoredSet& set : sets) {
    names.push_back(set.name);
  }
  return names;
}

/// Changes a file behind the back of the program, checks of the schema apart.
void Tamper(const std::string& sql) {
  Database database(kFile, kFile);
  database.Execute(("PRAGMA ignore_check_constraints = ON;" + sql).c_str());
}

std::int64_t NumberOf(std::string_view sql) {
  Database database(kFile, kFile);
  Query query(database, sql);
  query.Step();
  return query.Integer(0);
}

void ReadEverything(const std::string& path) {
  Dataset dataset(path);
  dataset.BeginTransaction(Access::kShared);
  for (int position = 0; position < dataset.VariableCount(); ++position) {
    dataset.FindVariable(dataset.VariableAt(position).name);
  }
  dataset.Sets();
  dataset.EndTransaction();
}

class DatasetTest : public TemporaryFolderTest {
 protected:
  static std::string SentenceOfReading() {
    return SentenceOf([] { ReadEverything(kFile); });
  }

  static void SaveSets(const std::vector<StoredSet>& sets) {
    Dataset dataset(kFile);
    dataset.BeginTransaction(Access::kShared);
    ASSERT_NE(dataset.SaveSets(sets, kCommand), Dataset::Saved::kConflict);
  }
};

TEST_F(DatasetTest, VariablesAreReadAsWritten) {
  MakeDataset(kFile);
  Dataset dataset(kFile);
  dataset.BeginTransaction(Access::kShared);
  ASSERT_EQ(dataset.VariableCount(), 3);
  EXPECT_EQ(dataset.VariableAt(0).name, "q1");
  EXPECT_EQ(dataset.VariableAt(0).width, 0);
  EXPECT_EQ(dataset.VariableAt(0).label, "Tea");
  ASSERT_EQ(dataset.VariableAt(0).valueLabels.size(), 2U);
  EXPECT_EQ(dataset.VariableAt(0).valueLabels[1].value, "1");
  EXPECT_EQ(dataset.VariableAt(0).valueLabels[1].label, "Yes");
  EXPECT_EQ(dataset.VariableAt(1).label, std::nullopt);
  EXPECT_EQ(dataset.VariableAt(2).width, 5);
  EXPECT_EQ(dataset.VariableAt(2).label, "\xC3\x96l \"und\" Essig");
}

TEST_F(DatasetTest, VariablesAreFoundWithoutRegardToCase) {
  MakeDataset(kFile);
  Dataset dataset(kFile);
  dataset.BeginTransaction(Access::kShared);
  EXPECT_EQ(dataset.FindVariable("Q1"), 0);
  EXPECT_EQ(dataset.FindVariable("q2"), 1);
  EXPECT_EQ(dataset.FindVariable("\xC3\x96L_ART"), 2);
  EXPECT_EQ(dataset.FindVariable("q3"), -1);
  EXPECT_EQ(dataset.FindVariable("'; DROP TABLE variable; --"), -1);
  EXPECT_EQ(dataset.FindVariable(""), -1);
}

/// "position name" of the variables that are visited, `most` at most.
std::vector<std::string> Visited(Dataset& dataset, std::string_view beginning, int from, std::size_t most = 100) {
  std::vector<std::string> visited;
  dataset.VisitVariables(beginning, from, [&](int position, const std::string& name) {
    visited.push_back(std::to_string(position) + " " + name);
    return visited.size() < most;
  });
  return visited;
}

TEST_F(DatasetTest, VariablesAreVisitedByTheBeginningsOfTheirNames) {
  using Names = std::vector<std::string>;
  DatasetWriter writer(kFile, false);
  std::vector<Variable> variables;
  for (const char* name : {"q10", "Q2", "p", "q", "\xC3\xB6l", "\xC3\x96le", "q\xF0\x90\x90\x80", "r"}) {
    variables.push_back({name, 0, std::nullopt, {}});
  }
  writer.SetVariables(variables);
  writer.Commit();
  Dataset dataset(kFile);
  EXPECT_EQ(Visited(dataset, "q", 0), (Names{"3 q", "0 q10", "1 Q2", "6 q\xF0\x90\x90\x80"}));
  EXPECT_EQ(Visited(dataset, "Q1", 0), Names{"0 q10"});
  EXPECT_EQ(Visited(dataset, "q", 1), (Names{"3 q", "1 Q2", "6 q\xF0\x90\x90\x80"}));
  EXPECT_EQ(Visited(dataset, "q", 0, 2), (Names{"3 q", "0 q10"}));
  EXPECT_EQ(Visited(dataset, "\xC3\x96", 0), (Names{"4 \xC3\xB6l", "5 \xC3\x96le"}));
  EXPECT_EQ(Visited(dataset, "x", 0), Names{});
  EXPECT_EQ(Visited(dataset, "%", 0), Names{});
  EXPECT_EQ(Visited(dataset, "", 5), (Names{"5 \xC3\x96le", "6 q\xF0\x90\x90\x80", "7 r"}));
  EXPECT_EQ(Visited(dataset, "", 0, 2), (Names{"0 q10", "1 Q2"}));
}

TEST_F(DatasetTest, AFileThatIsNoLongerAtItsPathIsNotReadOn) {
  MakeDataset(kFile);
  Dataset dataset(kFile);
  dataset.BeginTransaction(Access::kShared);
  EXPECT_EQ(dataset.VariableCount(), 3);
  std::filesystem::rename(kFile, "elsewhere");
  EXPECT_EQ(SentenceOf([&] { dataset.BeginTransaction(Access::kShared); }),
            "survey.mrs was moved or deleted by another program.");
  MakeDataset(kFile);
  EXPECT_EQ(SentenceOf([&] { dataset.BeginTransaction(Access::kShared); }),
            "survey.mrs was moved or deleted by another program.");
  std::filesystem::rename("elsewhere", kFile);
  dataset.BeginTransaction(Access::kShared);
  EXPECT_EQ(dataset.VariableCount(), 3);
}

TEST_F(DatasetTest, AStringVariableHasItsWidthOrThatOfItsLongestValue) {
  DatasetWriter writer(kFile, false);
  writer.SetVariables({{"open", kWidthOfLongestValue, std::nullopt, {}},
                       {"blank", kWidthOfLongestValue, std::nullopt, {}},
                       {"wide", 9, std::nullopt, {}},
                       {"narrow", 1, std::nullopt, {}},
                       {"n", 0, std::nullopt, {}}});
  writer.AddCase({"abc", "", "abc", "\xC3\x96", "123456"});
  writer.AddCase({"", "", "", "", ""});
  writer.Commit();
  Dataset dataset(kFile);
  EXPECT_EQ(dataset.VariableAt(0).width, 3);
  EXPECT_EQ(dataset.VariableAt(1).width, 1);
  EXPECT_EQ(dataset.VariableAt(2).width, 9);
  EXPECT_EQ(dataset.VariableAt(3).width, 1);
  EXPECT_EQ(dataset.VariableAt(4).width, 0);
}

TEST_F(DatasetTest, CasesAreReadAsTheyWereWritten) {
  DatasetWriter writer(kFile, false);
  writer.SetVariables({{"n", 0, std::nullopt, {}}, {"s", 1, std::nullopt, {}}});
  writer.AddCase({"-1.50", "a \"quoted\" \\ text\n\x01\xC3\xB6"});
  writer.AddCase({"", ""});
  writer.AddCase({"9007199254740993", " "});
  writer.Commit();
  EXPECT_THAT(StoredCases(kFile),
              ElementsAre(nlohmann::json({-1.5, "a \"quoted\" \\ text\n\x01\xC3\xB6"}),
                          nlohmann::json({nullptr, nullptr}), nlohmann::json({9007199254740992.0, " "})));
  Dataset dataset(kFile);
  EXPECT_EQ(dataset.BlockCount(), 1U);
  EXPECT_EQ(dataset.CasesOfBlock(0), 3U);
  EXPECT_EQ(dataset.ReadHead(0, 0).missing, 1U);
  EXPECT_EQ(SentenceOf([&] { dataset.ReadHead(0, 1); }), "survey.mrs is damaged.");
}

TEST_F(DatasetTest, CasesAreCutIntoBlocksThatAreTheSameForAllVariables) {
  DatasetWriter writer(kFile, false);
  writer.SetVariables({{"n", 0, std::nullopt, {}}, {"s", 1, std::nullopt, {}}});
  for (int number = 0; number < 70'000; ++number) {
    writer.AddCase({std::to_string(number % 300), number % 2 == 0 ? "a" : ""});
  }
  writer.Commit();
  Dataset dataset(kFile);
  ASSERT_EQ(dataset.BlockCount(), 2U);
  EXPECT_EQ(dataset.CasesOfBlock(0), 65'536U);
  EXPECT_EQ(dataset.CasesOfBlock(1), 70'000U - 65'536U);
  EXPECT_EQ(dataset.ReadHead(1, 0).counts, std::vector<std::size_t>({32'768}));
  const std::vector<nlohmann::json> cases = StoredCases(dataset);
  for (std::size_t number = 0; number < cases.size(); ++number) {
    const nlohmann::json text = number % 2 == 0 ? nlohmann::json("a") : nlohmann::json();
    ASSERT_EQ(cases[number], nlohmann::json({static_cast<double>(number % 300), text})) << number;
  }
}

TEST_F(DatasetTest, LongCellsMakeShorterBlocks) {
  DatasetWriter writer(kFile, false);
  writer.SetVariables({{"n", 0, std::nullopt, {}}, {"s", kWidthOfLongestValue, std::nullopt, {}}});
  constexpr std::size_t kCases = 80;
  for (std::size_t number = 0; number < kCases; ++number) {
    writer.AddCase({"1", std::to_string(number) + std::string(1'000'000, 'x')});
  }
  writer.Commit();
  Dataset dataset(kFile);
  EXPECT_GE(dataset.BlockCount(), 2U);
  EXPECT_LE(dataset.BlockCount(), 8U);
  std::size_t cases = 0;
  for (std::size_t number = 0; number < dataset.BlockCount(); ++number) {
    cases += dataset.CasesOfBlock(number);
  }
  EXPECT_EQ(cases, kCases);
}

TEST_F(DatasetTest, CasesOfVeryManyVariablesAreCutIntoBlocksOfMany) {
  constexpr std::size_t kVariables = 20'000;
  constexpr std::size_t kCases = 100;
  std::vector<Variable> variables;
  for (std::size_t number = 0; number < kVariables; ++number) {
    variables.push_back({"v" + std::to_string(number), 0, std::nullopt, {}});
  }
  DatasetWriter writer(kFile, true);
  writer.SetVariables(variables);
  for (std::size_t number = 0; number < kCases; ++number) {
    const std::string cell = std::to_string(10 + number % 90);
    writer.AddCase(std::vector<std::string_view>(kVariables, cell));
  }
  writer.Commit();
  EXPECT_EQ(Dataset(kFile).BlockCount(), 1U);
}

TEST_F(DatasetTest, SetsAreReadAsSavedAndInTheirOrder) {
  MakeDataset(kFile);
  StoredSet category = SetOf("$Zoo", {"gone"});
  category.type = SetType::kCategory;
  category.countedValue = "";
  category.labelFromVariable = true;
  const std::vector<StoredSet> sets = {category, SetOf("$a"), SetOf("$none", {})};
  SaveSets(sets);
  Dataset dataset(kFile);
  EXPECT_EQ(dataset.Sets(), sets);
}

TEST_F(DatasetTest, EditsOfSetsAreKept) {
  MakeDataset(kFile);
  const std::vector<std::vector<StoredSet>> lists = {
      {SetOf("$a"), SetOf("$b"), SetOf("$c")},
      {SetOf("$a"), SetOf("$c")},
      {SetOf("$c"), SetOf("$a")},
      {SetOf("$new"), SetOf("$c", {"Q2"}), SetOf("$A", {"q1"})},
      {SetOf("$a", {"q1"}), SetOf("$b"), SetOf("$c", {"Q2"}), SetOf("$d"), SetOf("$new")},
      {},
      {SetOf("$b")}};
  Dataset dataset(kFile);
  for (const auto& sets : lists) {
    dataset.BeginTransaction(Access::kShared);
    const bool isReordered = &sets == &lists[2];
    ASSERT_EQ(dataset.SaveSets(sets, kCommand), isReordered ? Dataset::Saved::kReordered : Dataset::Saved::kDone);
    EXPECT_EQ(dataset.Sets(), sets);
    dataset.EndTransaction();
    EXPECT_EQ(Dataset(kFile).Sets(), sets);
  }
}

TEST_F(DatasetTest, UnchangedSetsAreNotWritten) {
  MakeDataset(kFile);
  SaveSets({SetOf("$a"), SetOf("$b")});
  const std::string before = Read(kFile);
  SaveSets({SetOf("$a"), SetOf("$b")});
  EXPECT_EQ(Read(kFile), before);
}

TEST_F(DatasetTest, RemovingASetLeavesTheOthersWhereTheyAre) {
  MakeDataset(kFile);
  SaveSets({SetOf("$a"), SetOf("$b"), SetOf("$c")});
  const std::int64_t position = NumberOf("SELECT position FROM mr_set WHERE name = '$c'");
  SaveSets({SetOf("$b"), SetOf("$c")});
  EXPECT_EQ(NumberOf("SELECT position FROM mr_set WHERE name = '$c'"), position);
  EXPECT_EQ(NumberOf("SELECT count(*) FROM mr_set_variable"), 4);
}

TEST_F(DatasetTest, ListsShareTheSetsThatStay) {
  MakeDataset(kFile);
  SaveSets({SetOf("$a"), SetOf("$b")});
  Dataset dataset(kFile);
  SetList sets = dataset.SharedSets();
  sets[0] = std::make_shared<StoredSet>(SetOf("$a", {"q1"}));
  ASSERT_EQ(dataset.SaveSets(sets, kCommand), Dataset::Saved::kDone);
  EXPECT_EQ(dataset.SharedSets(), sets);
  EXPECT_EQ(dataset.Sets(), (std::vector<StoredSet>{SetOf("$a", {"q1"}), SetOf("$b")}));
}

// As a damaged file may hold them.
TEST_F(DatasetTest, SetsAtOnePositionComeApartWhenOneIsPutBetweenThem) {
  MakeDataset(kFile);
  SaveSets({SetOf("$a"), SetOf("$b")});
  Database(kFile, kFile).Execute("UPDATE mr_set SET position = 5");
  SaveSets({SetOf("$a"), SetOf("$x"), SetOf("$b")});
  EXPECT_EQ(NamesOf(Dataset(kFile).Sets()), (std::vector<std::string>{"$a", "$x", "$b"}));
}

TEST_F(DatasetTest, CasesThatAnotherProcessReplacedAreReadAnew) {
  MakeDataset(kFile);
  Dataset dataset(kFile);
  EXPECT_EQ(dataset.BlockCount(), 1U);
  dataset.EndTransaction();
  DatasetWriter writer(kFile, true);
  writer.SetVariables(ThreeVariables());
  writer.Commit();
  EXPECT_EQ(dataset.BlockCount(), 0U);
}

TEST_F(DatasetTest, BlocksThatDoNotFitTogetherAreDamage) {
  struct Row {
    const char* damage;
    const char* what;
  };
  const std::vector<Row> rows = {
      {"UPDATE block SET cells = x'00'", "cells"},
      {"UPDATE block SET head = x'00'", "head"},
      {"DELETE FROM block WHERE id = 0", "the first variable's block"},
      {"UPDATE block SET head = (SELECT head FROM block WHERE id = 2), cells = (SELECT cells FROM block WHERE id = 2)"
       " WHERE id = 0",
       "of another type"},
      {"UPDATE block SET id = id + (1 << 32)", "of another number"},
      {"DELETE FROM block WHERE id = 1", "a block"},
      {"DELETE FROM block", "all blocks"},
      {"UPDATE meta SET case_count = case_count + 1", "another number of cases"},
  };
  for (const Row& row : rows) {
    std::filesystem::remove(kFile);
    MakeDataset(kFile);
    Tamper(row.damage);
    EXPECT_EQ(SentenceOf([] { StoredCases(kFile); }), "survey.mrs is damaged.") << row.what;
  }
}

TEST_F(DatasetTest, EveryWriteRaisesTheGeneration) {
  MakeDataset(kFile);
  EXPECT_EQ(NumberOf("SELECT generation FROM meta"), 1);
  SaveSets({SetOf("$a")});
  EXPECT_EQ(NumberOf("SELECT generation FROM meta"), 2);
  MakeDataset(kFile, true);
  EXPECT_EQ(NumberOf("SELECT generation FROM meta"), 3);
}

TEST_F(DatasetTest, AnEndedCommandChangesNothing) {
  MakeDataset(kFile);
  const std::string before = Read(kFile);
  Dataset dataset(kFile);
  dataset.EndTransaction();
  dataset.BeginTransaction(Access::kExclusive);
  dataset.EndTransaction();
  dataset.EndTransaction();
  EXPECT_EQ(Read(kFile), before);
}

TEST_F(DatasetTest, OfTwoCommandsOnOneStateTheSecondToSaveConflicts) {
  MakeDataset(kFile);
  Dataset first(kFile);
  Dataset second(kFile);
  first.BeginTransaction(Access::kShared);
  second.BeginTransaction(Access::kShared);
  auto firstSaved = std::async(std::launch::async, [&first] { return first.SaveSets({SetOf("$first")}, kCommand); });
  const Dataset::Saved secondSaved = second.SaveSets({SetOf("$second")}, kCommand);
  const bool firstWon = firstSaved.get() == Dataset::Saved::kDone;
  EXPECT_EQ(secondSaved, firstWon ? Dataset::Saved::kConflict : Dataset::Saved::kDone);
  EXPECT_THAT(NamesOf(Dataset(kFile).Sets()), ElementsAre(firstWon ? "$first" : "$second"));
}

TEST_F(DatasetTest, AfterAConflictTheCommandSeesWhatTheOtherWrote) {
  MakeDataset(kFile);
  Dataset loser(kFile);
  loser.BeginTransaction(Access::kShared);
  EXPECT_TRUE(loser.Sets().empty());
  auto saved = std::async(std::launch::async, [] { SaveSets({SetOf("$other")}); });
  while (!std::filesystem::exists("survey.mrs-journal")) {
    std::this_thread::yield();
  }  // until the other one holds the right to write and waits for this one to end reading
  EXPECT_EQ(loser.SaveSets({SetOf("$mine")}, kCommand), Dataset::Saved::kConflict);
  saved.get();
  loser.BeginTransaction(Access::kShared);
  std::vector<StoredSet> sets = loser.Sets();
  EXPECT_THAT(NamesOf(sets), ElementsAre("$other"));
  sets.push_back(SetOf("$mine"));
  EXPECT_EQ(loser.SaveSets(sets, kCommand), Dataset::Saved::kDone);
  EXPECT_THAT(NamesOf(Dataset(kFile).Sets()), ElementsAre("$other", "$mine"));
}

TEST_F(DatasetTest, ACommandSeesOneStateThoughNothingWasRead) {
  MakeDataset(kFile);
  Dataset reader(kFile);
  reader.BeginTransaction(Access::kShared);
  auto saved = std::async(std::launch::async, [] { SaveSets({SetOf("$later")}); });
  EXPECT_EQ(saved.wait_for(std::chrono::milliseconds(200)), std::future_status::timeout);
  EXPECT_TRUE(reader.Sets().empty());
  reader.EndTransaction();
  saved.get();
  reader.BeginTransaction(Access::kShared);
  EXPECT_THAT(NamesOf(reader.Sets()), ElementsAre("$later"));
}

TEST_F(DatasetTest, AnExclusiveCommandKeepsOthersFromWritingUntilItSaved) {
  MakeDataset(kFile);
  Dataset holder(kFile);
  holder.BeginTransaction(Access::kExclusive);
  auto waiter = std::async(std::launch::async, [] {
    Dataset dataset(kFile);
    dataset.BeginTransaction(Access::kExclusive);
    std::vector<StoredSet> sets = dataset.Sets();
    sets.push_back(SetOf("$second"));
    return dataset.SaveSets(sets, kCommand);
  });
  EXPECT_EQ(waiter.wait_for(std::chrono::milliseconds(200)), std::future_status::timeout);
  EXPECT_TRUE(Dataset(kFile).Sets().empty());  // reading does not wait
  EXPECT_EQ(holder.SaveSets({SetOf("$first")}, kCommand), Dataset::Saved::kDone);
  EXPECT_EQ(waiter.get(), Dataset::Saved::kDone);
  EXPECT_THAT(NamesOf(Dataset(kFile).Sets()), ElementsAre("$first", "$second"));
}

TEST_F(DatasetTest, AReplacingImportConflictsWithACommandAndLosesNoSet) {
  MakeDataset(kFile);
  SaveSets({SetOf("$kept")});
  Dataset dataset(kFile);
  EXPECT_EQ(dataset.VariableCount(), 3);
  dataset.EndTransaction();
  MakeDataset(kFile, true, {{"other", 0, std::nullopt, {}}});
  dataset.BeginTransaction(Access::kShared);
  EXPECT_EQ(dataset.VariableCount(), 1);
  EXPECT_EQ(dataset.FindVariable("q1"), -1);
  EXPECT_EQ(dataset.FindVariable("OTHER"), 0);
  EXPECT_EQ(dataset.VariableAt(0).name, "other");
  EXPECT_THAT(NamesOf(dataset.Sets()), ElementsAre("$kept"));
}

TEST_F(DatasetTest, AnEditDuringAReplacingImportIsKept) {
  MakeDataset(kFile);
  DatasetWriter writer(kFile, true);
  writer.SetVariables({{"other", 0, std::nullopt, {}}});
  SaveSets({SetOf("$meanwhile")});
  writer.Commit();
  Dataset dataset(kFile);
  EXPECT_EQ(dataset.VariableCount(), 1);
  EXPECT_THAT(NamesOf(dataset.Sets()), ElementsAre("$meanwhile"));
  EXPECT_EQ(NumberOf("SELECT case_count FROM meta"), 0);
  EXPECT_EQ(NumberOf("SELECT count(*) FROM block"), 0);
}

TEST_F(DatasetTest, ALockThatIsNotReleasedIsOneSentence) {
  MakeDataset(kFile);
  Database holder(kFile, kFile);
  holder.Execute("BEGIN EXCLUSIVE");
  Database waiter(kFile, kFile);
  waiter.SetLockTimeout(std::chrono::milliseconds(20));
  EXPECT_EQ(SentenceOf([&] { waiter.Execute("BEGIN IMMEDIATE"); }),
            "survey.mrs is locked by another process and did not become free within 0.02 seconds (--lock-timeout).");
}

TEST_F(DatasetTest, WhatIsNoDatasetIsRefusedInOneSentence) {
  EXPECT_EQ(SentenceOfReading(), "survey.mrs does not exist.");
  EXPECT_TRUE(Files().empty());
  std::filesystem::create_directory(kFile);
  EXPECT_EQ(SentenceOfReading(), "survey.mrs is a directory.");
  std::filesystem::remove(kFile);
  Write(kFile, "");
  EXPECT_EQ(SentenceOfReading(), "survey.mrs is not a dataset.");
  Write(kFile, "q1,q2\n1,2\n");
  EXPECT_EQ(SentenceOfReading(), "survey.mrs is not a dataset.");
  EXPECT_EQ(Read(kFile), "q1,q2\n1,2\n");
  EXPECT_EQ(SentenceOf([] { Dataset("survey.mrs/x"); }), "survey.mrs/x cannot be read: Not a directory.");
  EXPECT_EQ(SentenceOf([] { Dataset("/dev/null"); }), "/dev/null is not a dataset.");
  EXPECT_EQ(SentenceOf([] { Dataset(":memory:"); }), ":memory: does not exist.");
}

TEST_F(DatasetTest, AHeaderThatForbidsWritingIsDamage) {
  MakeDataset(kFile);
  std::string bytes = Read(kFile);
  bytes[18] = 16;  // the format of what may write the file
  Write(kFile, bytes);
  EXPECT_EQ(SentenceOfReading(), "survey.mrs is damaged.");
}

TEST_F(DatasetTest, AnotherKindOfDatabaseIsRefused) {
  Write(kFile, "");
  Tamper("CREATE TABLE meta(generation)");
  EXPECT_EQ(SentenceOfReading(), "survey.mrs is not a dataset.");
}

TEST_F(DatasetTest, ANewerVersionIsRefused) {
  MakeDataset(kFile);
  Tamper("PRAGMA user_version = 4");
  EXPECT_EQ(SentenceOfReading(), "survey.mrs was made by a newer version of the program.");
}

TEST_F(DatasetTest, AnOlderFormatIsRefusedWithWhatToDo) {
  MakeDataset(kFile);
  Tamper("PRAGMA user_version = 2; DROP TABLE block; CREATE TABLE cases(position INTEGER PRIMARY KEY)");
  EXPECT_EQ(SentenceOfReading(),
            "survey.mrs is of format 2, which this program no longer reads; import the survey again, and carry its sets"
            " over with `mrset script` of the build that made the file.");
  EXPECT_EQ(SentenceOf([] { DatasetWriter(kFile, true); }), SentenceOfReading());
}

TEST_F(DatasetTest, AFileThatLooksLikeAUriIsAFile) {
  MakeDataset("file:x?mode=memory");
  EXPECT_THAT(Files(), ElementsAre("file:x?mode=memory"));
  EXPECT_EQ(Dataset("file:x?mode=memory").VariableCount(), 3);
}

TEST_F(DatasetTest, HostileContentsAreOneSentence) {
  const std::vector<std::string> attacks = {
      "DELETE FROM meta",
      "PRAGMA user_version = 0",
      "PRAGMA user_version = -5",
      "UPDATE meta SET variable_count = -1",
      "UPDATE meta SET variable_count = 4",
      "UPDATE meta SET variable_count = 1 << 40",
      "UPDATE variable SET position = 9 WHERE position = 1",
      "UPDATE variable SET width = -3",
      "UPDATE variable SET width = 1 << 33",
      "UPDATE variable SET name = 'a' || char(0)",
      "UPDATE variable SET label = CAST(X'C3' AS TEXT)",
      "UPDATE mr_set SET type = 0",
      "UPDATE mr_set SET id = -1",
      "UPDATE mr_set SET position = 9223372036854775807",
      "UPDATE mr_set SET name = CAST(X'24FF' AS TEXT)",
      "INSERT INTO mr_set SELECT 2, 2, '$A', '$B', type, label, counted_value, 0, 0 FROM mr_set",
      "UPDATE mr_set_variable SET set_id = 77",
      "UPDATE mr_set_variable SET name = char(0)"};
  for (const std::string& attack : attacks) {
    std::filesystem::remove(kFile);
    MakeDataset(kFile);
    SaveSets({SetOf("$a")});
    Tamper(attack);
    EXPECT_EQ(SentenceOfReading(), "survey.mrs is damaged.") << attack;
  }
}

TEST_F(DatasetTest, TheNumberOfVariablesIsThatOfTheDictionary) {
  for (const char* damage :
       {"UPDATE meta SET variable_count = 2147483647", "UPDATE meta SET variable_count = 2",
        "UPDATE meta SET variable_count = 0", "DELETE FROM variable WHERE position = 2", "DELETE FROM variable"}) {
    std::filesystem::remove(kFile);
    MakeDataset(kFile);
    EXPECT_EQ(Dataset(kFile).VariableCount(), 3);
    Tamper(damage);
    EXPECT_EQ(SentenceOf([] { Dataset(kFile).VariableCount(); }), "survey.mrs is damaged.") << damage;
  }
}

TEST_F(DatasetTest, AForeignSchemaIsRefusedByName) {
  const std::vector<std::pair<std::string, std::string>> attacks = {
      {"DROP TABLE meta", "the table meta is missing."},
      {"DROP TABLE mr_set; DROP TABLE history", "the table history is missing."},
      {"DROP TABLE history_set", "the table history_set is missing."},
      {"DROP TABLE meta; CREATE VIEW meta AS SELECT 1 AS generation, 3 AS variable_count",
       "the view meta does not belong to a dataset."},
      {"DROP TABLE variable; CREATE TABLE variable(position, name, name_key, width, label)",
       "the table variable is not defined as it should be."},
      {"CREATE UNIQUE INDEX sqlit ON variable(name)", "the index sqlit does not belong to a dataset."},
      {"CREATE TRIGGER t AFTER INSERT ON mr_set BEGIN UPDATE mr_set SET name = '$hijacked'; END",
       "the trigger t does not belong to a dataset."}};
  for (const auto& [attack, what] : attacks) {
    std::filesystem::remove(kFile);
    MakeDataset(kFile);
    SaveSets({SetOf("$a")});
    Tamper(attack);
    EXPECT_EQ(SentenceOfReading(), "survey.mrs is damaged: " + what) << attack;
  }
}

// Pages that are the children of several others make a schema as long as one likes.
TEST_F(DatasetTest, ASchemaThatTakesTooMuchWorkIsDamage) {
  MakeDataset(kFile);
  Database database(kFile, kFile);
  database.LimitWork(true);
  EXPECT_EQ(SentenceOf([&] {
              Query(database, "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n) SELECT count(*) FROM n")
                  .Step();
            }),
            "survey.mrs is damaged.");
}

TEST_F(DatasetTest, AnInterruptionEndsWhatReadsAndWhatWaits) {
  MakeDataset(kFile);
  isInterruptRequested = true;
  EXPECT_EQ(SentenceOf([] {
              Database database(kFile, kFile);
              Query(database, "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n) SELECT count(*) FROM n")
                  .Step();
            }),
            "survey.mrs: interrupted.");
  Database holder(kFile, kFile);
  holder.Execute("BEGIN EXCLUSIVE");
  EXPECT_EQ(SentenceOfReading(), "survey.mrs: interrupted.");
  holder.Rollback();
  isInterruptRequested = false;
  EXPECT_EQ(SentenceOfReading(), "");
}

// What is under way when the user interrupts it is saved whole or not at all, and never told wrongly.
TEST_F(DatasetTest, AnInterruptionDoesNotCutACommitOff) {
  MakeDataset(kFile);
  Database database(kFile, kFile);
  database.Execute("BEGIN IMMEDIATE; UPDATE meta SET generation = 77");
  isInterruptRequested = true;
  EXPECT_EQ(SentenceOf([&] { database.Commit(); }), "");
  isInterruptRequested = false;
  EXPECT_EQ(GenerationOf(database), 77);
}

TEST_F(DatasetTest, AKeyThatIsNotThatOfItsNameFindsNothing) {
  MakeDataset(kFile);
  Tamper("UPDATE variable SET name = 'other' WHERE position = 1");
  EXPECT_EQ(SentenceOf([] { Dataset(kFile).FindVariable("q2"); }), "survey.mrs is damaged.");
}

TEST_F(DatasetTest, ATruncatedOrGarbledFileIsReadOrRefused) {
  MakeDataset(kFile);
  SaveSets({SetOf("$a"), SetOf("$b")});
  const std::string whole = Read(kFile);
  std::mt19937 random(20);
  int refused = 0;
  for (int round = 0; round < 400; ++round) {
    std::string bytes = whole;
    if (round % 4 == 0) {
      bytes.resize(random() % bytes.size());
    }
    for (int change = 0; change < 8 && !bytes.empty(); ++change) {
      bytes[random() % bytes.size()] = static_cast<char>(random());
    }
    Write(kFile, bytes);
    const std::string sentence = SentenceOfReading();
    refused += sentence.empty() ? 0 : 1;
    EXPECT_THAT(sentence, ::testing::AnyOf("", "survey.mrs is damaged.", "survey.mrs is not a dataset.",
                                           "survey.mrs was made by a newer version of the program.",
                                           ::testing::MatchesRegex("survey\\.mrs is damaged: the table [a-z_]+ is not "
                                                                   "defined as it should be\\."),
                                           ::testing::MatchesRegex("survey\\.mrs is damaged: the [^ ]+ [a-z_0-9]+ does "
                                                                   "not belong to a dataset\\.")))
        << "round " << round;
  }
  EXPECT_GT(refused, 100);
}

TEST_F(DatasetTest, NothingOfASaveThatFailedIsKept) {
  MakeDataset(kFile);
  Dataset dataset(kFile);
  dataset.SaveSets({SetOf("$a"), SetOf("$b")}, kCommand);
  std::vector<StoredSet> sets = dataset.Sets();
  sets.insert(sets.begin() + 1, SetOf("$long", std::vector<std::string>(10000, "q1")));

  signal(SIGXFSZ, SIG_IGN);
  rlimit before{};
  getrlimit(RLIMIT_FSIZE, &before);
  const rlimit small{Read(kFile).size(), before.rlim_max};
  setrlimit(RLIMIT_FSIZE, &small);
  EXPECT_EQ(SentenceOf([&] { dataset.SaveSets(sets, kCommand); }),
            "survey.mrs cannot be read or written: File too large.");
  setrlimit(RLIMIT_FSIZE, &before);
  EXPECT_THAT(NamesOf(dataset.Sets()), ElementsAre("$a", "$b"));
  EXPECT_EQ(dataset.SaveSets(sets, kCommand), Dataset::Saved::kDone);
  EXPECT_EQ(Dataset(kFile).Sets(), sets);
  EXPECT_EQ(Dataset(kFile).Versions().last, 2);
}

TEST_F(DatasetTest, AFileWithoutPermissionToReadIsOneSentence) {
  MakeDataset(kFile);
  chmod(kFile, 0);
  EXPECT_EQ(WithoutPrivileges(SentenceOfReading), "survey.mrs cannot be read: Permission denied.");
}

class ReadOnlyDatasetTest : public DatasetTest {
 protected:
  ReadOnlyDatasetTest() {
    MakeDataset(kFile);
    SaveSets({SetOf("$b"), SetOf("$a")});
    chmod(kFile, 0444);
    chmod(".", 0555);
  }

  static std::string SentenceOfSaving(const std::vector<StoredSet>& sets, bool exclusive) {
    return SentenceOf([&] {
      Dataset dataset(kFile);
      dataset.BeginTransaction(exclusive ? Access::kExclusive : Access::kShared);
      if (NamesOf(dataset.Sets()) != std::vector<std::string>{"$b", "$a"}) {
        throw std::runtime_error("other sets");
      }
      if (dataset.SaveSets(sets, kCommand) == Dataset::Saved::kConflict) {
        throw std::runtime_error("conflict");
      }
    });
  }
};

TEST_F(ReadOnlyDatasetTest, OnlyAnotherOrderIsSilentlyNotWritten) {
  for (const bool exclusive : {false, true}) {
    EXPECT_EQ(WithoutPrivileges([=] { return SentenceOfSaving({SetOf("$a"), SetOf("$b")}, exclusive); }), "");
  }
  EXPECT_THAT(NamesOf(Dataset(kFile).Sets()), ElementsAre("$b", "$a"));
}

TEST_F(ReadOnlyDatasetTest, AChangeIsOneSentence) {
  const std::vector<std::vector<StoredSet>> changes = {
      {SetOf("$a")}, {SetOf("$a"), SetOf("$b", {"q1"})}, {SetOf("$b"), SetOf("$a"), SetOf("$c")}};
  for (const auto& sets : changes) {
    for (const bool exclusive : {false, true}) {
      EXPECT_EQ(WithoutPrivileges([&] { return SentenceOfSaving(sets, exclusive); }),
                "survey.mrs cannot be written: there is no permission to write it or its folder.");
    }
  }
}

TEST_F(ReadOnlyDatasetTest, AFolderThatCannotBeWrittenCountsAsReadOnly) {
  chmod(kFile, 0666);
  EXPECT_EQ(WithoutPrivileges([] { return SentenceOfSaving({SetOf("$a"), SetOf("$b")}, false); }), "");
  EXPECT_EQ(WithoutPrivileges([] { return SentenceOfSaving({SetOf("$a")}, false); }),
            "survey.mrs cannot be written: there is no permission to write it or its folder.");
  EXPECT_THAT(NamesOf(Dataset(kFile).Sets()), ElementsAre("$b", "$a"));
}

TEST_F(ReadOnlyDatasetTest, ReplacingIsRefusedAtOnce) {
  EXPECT_EQ(WithoutPrivileges([] { return SentenceOf([] { DatasetWriter writer(kFile, true); }); }),
            "survey.mrs cannot be written: there is no permission to write it or its folder.");
}

class DatasetWriterTest : public DatasetTest {};

TEST_F(DatasetWriterTest, ADatasetThatExistsIsKept) {
  MakeDataset(kFile);
  const std::string before = Read(kFile);
  EXPECT_EQ(SentenceOf([] { MakeDataset(kFile); }),
            "survey.mrs already exists; --replace replaces its variables and cases and keeps its sets.");
  EXPECT_EQ(Read(kFile), before);
}

TEST_F(DatasetWriterTest, WhatIsNotCommittedLeavesNothing) {
  {
    DatasetWriter writer(kFile, false);
    writer.SetVariables(ThreeVariables());
    writer.AddCase({"1", "2", "x"});
    EXPECT_FALSE(std::filesystem::exists(kFile));
  }
  EXPECT_TRUE(Files().empty());
}

TEST_F(DatasetWriterTest, AReplacementThatIsNotCommittedChangesNothing) {
  MakeDataset(kFile);
  const std::string before = Read(kFile);
  {
    DatasetWriter writer(kFile, true);
    writer.SetVariables({{"other", 0, std::nullopt, {}}});
    writer.AddCase({"1"});
  }
  EXPECT_EQ(Read(kFile), before);
  EXPECT_THAT(Files(), ElementsAre(kFile));
}

TEST_F(DatasetWriterTest, AFileThatAppearedMeanwhileIsKept) {
  DatasetWriter writer(kFile, false);
  writer.SetVariables(ThreeVariables());
  Write(kFile, "mine");
  EXPECT_EQ(SentenceOf([&] { writer.Commit(); }), "survey.mrs already exists.");
  EXPECT_EQ(Read(kFile), "mine");
}

TEST_F(DatasetWriterTest, ReplacingWhatIsNoDatasetIsRefused) {
  Write(kFile, "something else");
  EXPECT_EQ(SentenceOf([] { MakeDataset(kFile, true); }), "survey.mrs is not a dataset.");
  EXPECT_EQ(Read(kFile), "something else");
  EXPECT_THAT(Files(), ElementsAre(kFile));
}

TEST_F(DatasetWriterTest, ReplacingWhereThereIsNothingMakesADataset) {
  MakeDataset(kFile, true);
  EXPECT_EQ(Dataset(kFile).VariableCount(), 3);
  EXPECT_THAT(Files(), ElementsAre(kFile));
}

TEST_F(DatasetWriterTest, AFolderThatDoesNotExistIsOneSentence) {
  EXPECT_EQ(SentenceOf([] { MakeDataset("no/survey.mrs"); }),
            "no/survey.mrs cannot be written: No such file or directory.");
}

TEST_F(DatasetWriterTest, AFolderThatCannotBeWrittenIsOneSentence) {
  chmod(".", 0555);
  EXPECT_EQ(WithoutPrivileges([] { return SentenceOf([] { MakeDataset(kFile); }); }),
            "survey.mrs cannot be written: there is no permission to write it or its folder.");
}

TEST_F(DatasetWriterTest, ANewDatasetHasThePermissionsOfAnyNewFile) {
  const mode_t before = umask(027);
  MakeDataset(kFile);
  umask(before);
  struct stat status = {};
  ASSERT_EQ(stat(kFile, &status), 0);
  EXPECT_EQ(status.st_mode & 0777U, 0640U);
}

}  // namespace
}  // namespace standalone
