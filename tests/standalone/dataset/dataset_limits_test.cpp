// What a dataset counts, near the greatest number: what a check calls sound can be read and changed, and stays so.

#include <gmock/gmock.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "standalone/check/dataset_check.h"
#include "standalone/dataset/dataset.h"
#include "standalone/dataset/dataset_writer.h"
#include "standalone/dataset/undo.h"
#include "standalone/storage/database.h"
#include "standalone/storage/limits.h"
#include "tests/standalone/temporary_folder.h"

namespace standalone {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* kFile = "survey.mrs";
using Sets = std::vector<StoredSet>;

DatasetOptions Relaxed() {
  DatasetOptions options;
  options.relaxed = true;
  return options;
}

StoredSet SetOf(const std::string& name, const std::string& label = "") {
  return {name, SetType::kDichotomy, label, "1", false, false, {"q1", "q2"}};
}

std::vector<std::string> FindingsOf(const std::string& path) {
  std::vector<std::string> findings;
  CheckReport report;
  report.finding = [&](std::string_view /*kind*/, const std::string& sentence) { findings.push_back(sentence); };
  report.remark = [](std::string_view /*kind*/, const std::string&) {};
  CheckDataset(path, {}, report);
  return findings;
}

void Execute(const std::string& sql) {
  Database(kFile, kFile).Execute(sql.c_str());
}

void MakeDataset(bool replace = false) {
  DatasetWriter writer(kFile, replace, Relaxed());
  writer.SetVariables({{"q1", 0, std::nullopt, {}}, {"q2", 0, std::nullopt, {}}});
  writer.Commit();
}

void Save(const Sets& sets, const std::string& command = "command") {
  Dataset dataset(kFile, Relaxed());
  dataset.BeginTransaction(Access::kShared);
  EXPECT_NE(dataset.SaveSets(sets, command), Dataset::Saved::kConflict);
}

/// A new dataset with three sets, whose ids are 1 to 3, and no history.
void MakeThreeSets() {
  std::filesystem::remove(kFile);
  MakeDataset();
  Save({SetOf("$a"), SetOf("$b"), SetOf("$c")});
  Execute("DELETE FROM history; DELETE FROM history_set");
}

class LimitsTest : public TemporaryFolderTest {
 protected:
  LimitsTest() { MakeThreeSets(); }

  /// What saving changed sets comes to; the sets must be as before where it fails.
  static std::string SentenceOfSaving() {
    const Sets before = Dataset(kFile).Sets();
    std::string sentence = SentenceOf([] { Save({SetOf("$a", "other")}); });
    if (!sentence.empty()) {
      EXPECT_EQ(Dataset(kFile).Sets(), before);
    }
    return sentence;
  }
};

void GiveIds(std::int64_t idOfLast) {
  const std::string shift = std::to_string(idOfLast - 3);
  Execute("UPDATE mr_set SET id = id + " + shift + " WHERE id = 3; UPDATE mr_set SET id = id + " + shift +
          " WHERE id = 2; UPDATE mr_set SET id = id + " + shift +
          " WHERE id = 1; UPDATE mr_set_variable SET set_id = set_id + " + shift);
}

void GivePositions(std::int64_t positionOfLast) {
  Execute("UPDATE mr_set SET position = " + std::to_string(positionOfLast - 3) +
          " + rank FROM (SELECT id AS row,"
          " row_number() OVER (ORDER BY position) AS rank FROM mr_set) WHERE row = id");
}

TEST_F(LimitsTest, IdsAreFreeOnesWhereTheGreatestIsUsed) {
  for (const std::int64_t id : {kMaxNumber - 1, kMaxNumber}) {
    const Sets before = {SetOf("$a"), SetOf("$b"), SetOf("$c")};
    MakeThreeSets();
    GiveIds(id);
    EXPECT_THAT(FindingsOf(kFile), IsEmpty());
    const Sets after = {SetOf("$new"), SetOf("$b"), SetOf("$d"), SetOf("$e"), SetOf("$c")};
    Save(after);
    EXPECT_EQ(Dataset(kFile).Sets(), after);
    EXPECT_EQ(Dataset(kFile).SetsOfVersion(0), before);
    EXPECT_THAT(FindingsOf(kFile), IsEmpty());
  }
  MakeThreeSets();
  GiveIds(kMaxNumber + 1);
  EXPECT_EQ(SentenceOf([] { Dataset(kFile).Sets(); }), "survey.mrs is damaged.");
  EXPECT_THAT(FindingsOf(kFile), Not(IsEmpty()));
}

TEST_F(LimitsTest, PositionsAreGivenAnewWhereTheGreatestIsUsed) {
  for (const std::int64_t position : {kMaxNumber - 1, kMaxNumber}) {
    const Sets before = {SetOf("$a"), SetOf("$b"), SetOf("$c")};
    Save(before);
    GivePositions(position);
    Execute("DELETE FROM history; DELETE FROM history_set");
    EXPECT_THAT(FindingsOf(kFile), IsEmpty());
    const Sets after = {SetOf("$a"), SetOf("$b"), SetOf("$c"), SetOf("$d")};
    Save(after);
    EXPECT_EQ(Dataset(kFile).Sets(), after);
    EXPECT_EQ(Dataset(kFile).SetsOfVersion(0), before);
    EXPECT_THAT(FindingsOf(kFile), IsEmpty());
  }
  GivePositions(kMaxNumber + 1);
  EXPECT_EQ(SentenceOf([] { Dataset(kFile).Sets(); }), "survey.mrs is damaged.");
  EXPECT_THAT(FindingsOf(kFile), Not(IsEmpty()));
}

TEST_F(LimitsTest, AnyIdsAndPositionsNearTheLimitLeaveRoomForCommands) {
  const bool holds = rc::check("every version is the sets that were saved", [] {
    MakeThreeSets();
    GiveIds(kMaxNumber - *rc::gen::inRange(0, 4));
    GivePositions(kMaxNumber - *rc::gen::inRange(0, 4));
    std::vector<Sets> versions = {Dataset(kFile).Sets()};
    for (int step = *rc::gen::inRange(1, 8); step > 0; --step) {
      Sets sets = versions.back();
      const auto place = *rc::gen::inRange<std::ptrdiff_t>(0, static_cast<std::ptrdiff_t>(sets.size()) + 1);
      if (place < static_cast<std::ptrdiff_t>(sets.size()) && *rc::gen::arbitrary<bool>()) {
        sets.erase(sets.begin() + place);
      } else {
        sets.insert(sets.begin() + place, SetOf("$s" + std::to_string(versions.size())));
      }
      Save(sets);
      versions.push_back(sets);
    }
    for (std::size_t version = 0; version < versions.size(); ++version) {
      RC_ASSERT(Dataset(kFile).SetsOfVersion(static_cast<std::int64_t>(version)) == versions[version]);
    }
    RC_ASSERT(FindingsOf(kFile).empty());
  });
  EXPECT_TRUE(holds);
}

TEST_F(LimitsTest, AWriteBeyondTheGenerationsIsRefused) {
  const std::string refused = "survey.mrs cannot be changed: its counter of writes is at its limit.";
  const std::string full = "The counter of writes is at its limit: the dataset cannot be changed.";
  Execute("UPDATE meta SET generation = " + std::to_string(kMaxNumber - 1));
  EXPECT_THAT(FindingsOf(kFile), IsEmpty());
  Save({SetOf("$a")});
  EXPECT_EQ(Dataset(kFile).Sets(), Sets{SetOf("$a")});
  EXPECT_THAT(FindingsOf(kFile), ElementsAre(full));
  EXPECT_EQ(SentenceOfSaving(), refused);
  EXPECT_EQ(SentenceOf([] { MakeDataset(true); }), refused);
  EXPECT_EQ(Dataset(kFile).Versions().last, 1);
  for (const std::string number : {"9007199254740993", "9223372036854775807"}) {
    Execute("UPDATE meta SET generation = " + number);
    EXPECT_THAT(FindingsOf(kFile), ElementsAre("The counter of writes is " + number + ", beyond its limits."));
    EXPECT_EQ(SentenceOfSaving(), refused);
  }
  Execute("UPDATE meta SET generation = -1");
  EXPECT_THAT(FindingsOf(kFile), ElementsAre("The counter of writes is -1, beyond its limits."));
}

TEST_F(LimitsTest, AChangeBeyondTheNumbersIsRefused) {
  const auto giveNumber = [](std::int64_t number) {
    Execute("UPDATE history SET number = " + std::to_string(number));
    Execute("UPDATE history_set SET history = " + std::to_string(number));
  };
  Save({SetOf("$a")});
  giveNumber(kMaxNumber - 1);
  EXPECT_THAT(FindingsOf(kFile), IsEmpty());
  Save({SetOf("$a", "new"), SetOf("$b")});
  EXPECT_EQ(Dataset(kFile).Versions().last, kMaxNumber);
  EXPECT_EQ(Dataset(kFile).SetsOfVersion(kMaxNumber - 1), Sets{SetOf("$a")});
  EXPECT_THAT(FindingsOf(kFile), ElementsAre("The counter of changes is at its limit: the sets cannot be changed."));
  EXPECT_EQ(SentenceOfSaving(), "survey.mrs cannot be changed: its counter of changes is at its limit.");
  EXPECT_EQ(SentenceOf([] {
              Dataset dataset(kFile);
              UndoChanges(dataset, std::nullopt);
            }),
            "survey.mrs cannot be changed: its counter of changes is at its limit.");
  MakeDataset(true);
  EXPECT_EQ(Dataset(kFile).Sets(), (Sets{SetOf("$a", "new"), SetOf("$b")}));
}

// A display leaves the sets in another order: it shows them all the same.
TEST_F(LimitsTest, AnOrderThatCannotBeKeptIsNoError) {
  Execute("UPDATE meta SET generation = " + std::to_string(kMaxNumber));
  Save({SetOf("$c"), SetOf("$b"), SetOf("$a")});
  EXPECT_EQ(Dataset(kFile).Sets(), (Sets{SetOf("$a"), SetOf("$b"), SetOf("$c")}));
}

}  // namespace
}  // namespace standalone
