#include <gmock/gmock.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <limits>
#include <map>
#include <new>
#include <random>

#include "standalone/check/dataset_check.h"
#include "standalone/check/set_rules.h"
#include "standalone/dataset/dataset.h"
#include "standalone/dataset/dataset_writer.h"
#include "standalone/dataset/history.h"
#include "standalone/dataset/set_positions.h"
#include "standalone/dataset/undo.h"
#include "standalone/storage/database.h"
#include "standalone/storage/limits.h"
#include "tests/host/allocation.h"
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

void MakeDataset(const std::string& path) {
  DatasetWriter writer(path, false);
  writer.SetVariables({{"q1", 0, std::nullopt, {}}, {"q2", 0, std::nullopt, {}}, {"q3", 0, std::nullopt, {}}});
  writer.Commit();
}

StoredSet SetOf(const std::string& name, const std::string& label = "",
                const std::vector<std::string>& variables = {"q1", "q2"}) {
  return {name, SetType::kDichotomy, label, "1", false, true, variables};
}

void Save(Dataset& dataset, const Sets& sets, const std::string& command) {
  dataset.BeginTransaction(Access::kShared);
  ASSERT_NE(dataset.SaveSets(sets, command), Dataset::Saved::kConflict);
}

std::vector<std::string> FindingsOf(const std::string& path) {
  std::vector<std::string> findings;
  CheckReport report;
  report.finding = [&](std::string_view /*kind*/, const std::string& sentence) { findings.push_back(sentence); };
  report.remark = [](std::string_view /*kind*/, const std::string&) {};
  CheckDataset(path, {}, report);
  return findings;
}

std::vector<Change> ChangesOf(Dataset& dataset) {
  std::vector<Change> changes;
  dataset.ForEachChange([&](const Change& change) { changes.push_back(change); });
  return changes;
}

std::string Described(const ChangedSet& set) {
  return std::to_string(static_cast<int>(set.kind)) + " " + set.name;
}

std::int64_t CountOf(std::string_view sql) {
  Database database(kFile, kFile);
  Query query(database, sql);
  query.Step();
  return query.Integer(0);
}

class HistoryTest : public TemporaryFolderTest {
 protected:
  HistoryTest() { MakeDataset(kFile); }
};

TEST_F(HistoryTest, AChangeTellsWhatBecameOfWhichSets) {
  Dataset dataset(kFile);
  Save(dataset, {SetOf("$a"), SetOf("$b"), SetOf("$c")}, "first");
  Save(dataset, {SetOf("$c"), SetOf("$A", "new"), SetOf("$d")}, "second\n  line");
  Save(dataset, {SetOf("$c"), SetOf("$A", "new"), SetOf("$d")}, "nothing");
  Save(dataset, {SetOf("$A", "new"), SetOf("$c"), SetOf("$d")}, "third");
  const std::vector<Change> changes = ChangesOf(dataset);
  ASSERT_EQ(changes.size(), 2U);
  EXPECT_EQ(changes[0].number, 2);
  EXPECT_EQ(changes[0].command, "second\n  line");
  EXPECT_TRUE(changes[0].reordered);
  std::vector<std::string> described;
  for (const ChangedSet& set : changes[0].sets) {
    described.push_back(Described(set));
  }
  EXPECT_THAT(described, ElementsAre("2 $a", "3 $b", "1 $d"));
  EXPECT_FALSE(changes[1].reordered);
  EXPECT_THAT(changes[1].time, ::testing::MatchesRegex("[0-9]{4}-[0-9]{2}-[0-9]{2}T[0-9]{2}:[0-9]{2}:[0-9]{2}Z"));
}

/// Whether a lack of memory from that allocation on was met; it is told as such, and does not end the process.
bool IsToldFrom(std::size_t allocation) {
  Dataset dataset(kFile);
  bool isTold = false;
  scripted::AllocationScope scope(allocation, scripted::FaultMode::kFromThenOn);
  try {
    dataset.SetsOfVersion(1);
  } catch (const std::bad_alloc&) {
    isTold = true;
  }
  scope.Stop();
  EXPECT_EQ(scope.Fired(), isTold) << "allocation " << allocation;
  return isTold;
}

TEST_F(HistoryTest, ALackOfMemoryWhileSetsAreRebuiltIsTold) {
  {
    Dataset dataset(kFile);
    Save(dataset, {SetOf("$a", "", {"q1", "a name longer than what a text holds itself", "q3"})}, "define");
    Save(dataset, {}, "delete");
  }
  std::size_t allocation = 1;
  while (IsToldFrom(allocation)) {
    ++allocation;
  }
  EXPECT_GT(allocation, 20U);
}

TEST_F(HistoryTest, AnOrderAloneBelongsToTheLastChange) {
  Dataset dataset(kFile);
  Save(dataset, {SetOf("$b")}, "one");
  Save(dataset, {SetOf("$b"), SetOf("$c"), SetOf("$a")}, "two");
  dataset.BeginTransaction(Access::kShared);
  EXPECT_EQ(dataset.SaveSets(Sets{SetOf("$a"), SetOf("$b"), SetOf("$c")}, "sort"), Dataset::Saved::kReordered);
  Save(dataset, {SetOf("$c"), SetOf("$b"), SetOf("$a")}, "sort again");
  EXPECT_EQ(dataset.Versions().last, 2);
  EXPECT_EQ(Dataset(kFile).Sets(), (Sets{SetOf("$c"), SetOf("$b"), SetOf("$a")}));
  EXPECT_EQ(dataset.SetsOfVersion(2), dataset.Sets());
  EXPECT_EQ(dataset.SetsOfVersion(1), Sets{SetOf("$b")});
  dataset.EndTransaction();
  EXPECT_THAT(FindingsOf(kFile), IsEmpty());
  const auto undone = UndoChanges(dataset, std::nullopt);
  EXPECT_EQ(undone->target, 1);
  EXPECT_EQ(undone->before.size(), 3U);
  EXPECT_EQ(Dataset(kFile).Sets(), Sets{SetOf("$b")});
  ASSERT_TRUE(UndoChanges(dataset, std::nullopt)->written);
  EXPECT_EQ(Dataset(kFile).Sets(), (Sets{SetOf("$c"), SetOf("$b"), SetOf("$a")}));
}

TEST_F(HistoryTest, AnUndoThatBringsBackAnOrderAloneIsNoChange) {
  Dataset dataset(kFile);
  Save(dataset, {SetOf("$b"), SetOf("$a")}, "one");
  Save(dataset, {SetOf("$a"), SetOf("$b"), SetOf("$c")}, "two");
  Save(dataset, {SetOf("$a"), SetOf("$b")}, "three");
  const auto undone = UndoChanges(dataset, 1);
  EXPECT_TRUE(undone->written);
  EXPECT_EQ(Dataset(kFile).Sets(), (Sets{SetOf("$b"), SetOf("$a")}));
  EXPECT_EQ(dataset.Versions().last, 3);
  dataset.EndTransaction();
  EXPECT_THAT(FindingsOf(kFile), IsEmpty());
}

TEST_F(HistoryTest, WithoutAChangeThereIsVersionZeroAlone) {
  Dataset dataset(kFile);
  EXPECT_EQ(dataset.Versions().first, 0);
  EXPECT_EQ(dataset.Versions().last, 0);
  EXPECT_THAT(dataset.SetsOfVersion(0), IsEmpty());
  EXPECT_FALSE(UndoChanges(dataset, std::nullopt).has_value());
  for (const std::int64_t version : {std::int64_t{-1}, std::int64_t{1}}) {
    EXPECT_EQ(
        SentenceOf([&] { dataset.SetsOfVersion(version); }),
        "survey.mrs has no version " + std::to_string(version) + ": its sets were not changed yet, and are version 0.");
  }
}

TEST_F(HistoryTest, UndoingTwiceBringsTheSetsBack) {
  Dataset dataset(kFile);
  const Sets first = {SetOf("$a"), SetOf("$b")};
  const Sets second = {SetOf("$b", "new"), SetOf("$c")};
  Save(dataset, first, "one");
  Save(dataset, second, "two");
  ASSERT_TRUE(UndoChanges(dataset, std::nullopt)->written);
  EXPECT_EQ(Dataset(kFile).Sets(), first);
  ASSERT_TRUE(UndoChanges(dataset, std::nullopt)->written);
  EXPECT_EQ(Dataset(kFile).Sets(), second);
  const auto toNow = UndoChanges(dataset, 4);
  EXPECT_EQ(toNow->before, toNow->after);
  EXPECT_FALSE(toNow->written);
  EXPECT_EQ(SentenceOf([&] { UndoChanges(dataset, 5); }), "survey.mrs has no version 5; it keeps 0 to 4.");
  ASSERT_TRUE(UndoChanges(dataset, 0)->written);
  EXPECT_EQ(ChangesOf(dataset)[0].command, "undo --to 0");
  EXPECT_EQ(ChangesOf(dataset)[1].command, "undo");
}

void ImportAgain(const std::string& command) {
  DatasetWriter writer(kFile, true, Relaxed());
  writer.SetVariables({{"q1", 0, std::nullopt, {}}});
  writer.AddCase({"1"});
  writer.SetCommand(command);
  writer.Commit();
}

TEST_F(HistoryTest, ImportsAreKeptBesideTheChanges) {
  EXPECT_THAT(Dataset(kFile).Imports(), IsEmpty());  // this one had no command
  {
    DatasetWriter writer("other.mrs", false);
    writer.SetCommand("import first");
    writer.Commit();
  }
  EXPECT_EQ(Dataset("other.mrs").Imports().at(0).command, "import first");
  ImportAgain("import second");
  Dataset dataset(kFile);
  Save(dataset, {SetOf("$a")}, "one");
  ImportAgain("import third");
  const std::vector<LoggedImport> imports = dataset.Imports();
  dataset.EndTransaction();
  ASSERT_EQ(imports.size(), 2U);
  EXPECT_EQ(imports[0].command, "import third");
  EXPECT_EQ(imports[0].afterChange, 1);
  EXPECT_EQ(imports[0].variables, 1);
  EXPECT_EQ(imports[0].cases, 1);
  EXPECT_EQ(imports[1].command, "import second");
  EXPECT_EQ(imports[1].afterChange, 0);
  EXPECT_EQ(dataset.Versions().last, 1);
  dataset.EndTransaction();
  EXPECT_THAT(FindingsOf(kFile), IsEmpty());
}

TEST_F(HistoryTest, TheOldestImportsAreDropped) {
  Database(kFile, kFile)
      .Execute(
          "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 1005)"
          " INSERT INTO imported SELECT i, 0, '2024-05-01T12:33:01Z', 'import ' || i, 1, 1 FROM n");
  ImportAgain("import last");
  const std::vector<LoggedImport> imports = Dataset(kFile).Imports();
  ASSERT_EQ(imports.size(), static_cast<std::size_t>(kMaxKeptChanges));
  EXPECT_EQ(imports.front().command, "import last");
  EXPECT_EQ(imports.back().command, "import 7");
}

TEST_F(HistoryTest, ALogOfImportsThatCannotBeIsFound) {
  ImportAgain("import");
  const std::string sound = Read(kFile);
  const std::vector<std::pair<const char*, const char*>> rows = {
      {"UPDATE imported SET time = 'noon'", "An import has the invalid time noon."},
      {"UPDATE imported SET after_change = 4", "An import came after change 4, which does not exist."},
      {"UPDATE imported SET command = CAST(x'FF' AS TEXT)", "The log of imports cannot be read to the end."},
      {"UPDATE imported SET case_count = 9223372036854775807", "The log of imports cannot be read to the end."}};
  for (const auto& [attack, finding] : rows) {
    Write(kFile, sound);
    Database(kFile, kFile).Execute(attack);
    EXPECT_THAT(FindingsOf(kFile), ElementsAre(finding)) << attack;
  }
}

TEST_F(HistoryTest, TheOldestChangesAreDropped) {
  constexpr int kChanges = 1005;
  Dataset dataset(kFile, Relaxed());
  for (int number = 1; number <= kChanges; ++number) {
    Save(dataset, {SetOf("$a", std::to_string(number))}, "command " + std::to_string(number));
  }
  EXPECT_EQ(dataset.Versions().first, 5);
  EXPECT_EQ(dataset.Versions().last, kChanges);
  EXPECT_EQ(ChangesOf(dataset).size(), static_cast<std::size_t>(kMaxKeptChanges));
  EXPECT_EQ(CountOf("SELECT count(*) FROM history_set"), kMaxKeptChanges);
  EXPECT_EQ(dataset.SetsOfVersion(5), Sets{SetOf("$a", "5")});
  EXPECT_EQ(SentenceOf([&] { dataset.SetsOfVersion(4); }), "survey.mrs has no version 4; it keeps 5 to 1005.");
  EXPECT_THAT(FindingsOf(kFile), IsEmpty());
}

TEST_F(HistoryTest, WhatIsKeptOfAChangeFollowsWhatItTouches) {
  constexpr int kSets = 2000;
  Dataset dataset(kFile, Relaxed());
  Sets sets;
  for (int number = 0; number < kSets; ++number) {
    sets.push_back(SetOf("$set" + std::to_string(10000 + 2 * number)));
  }
  Save(dataset, sets, "all");
  // Each new set comes between others, as where sets are displayed in the order of their names.
  std::mt19937 random(4);
  for (int number = 0; number < 200; ++number) {
    const auto place = random() % sets.size();
    const std::string name = sets[place].name + "_" + std::to_string(number);
    sets.insert(sets.begin() + static_cast<std::ptrdiff_t>(place) + 1, SetOf(name));
    Save(dataset, sets, "define " + name);
  }
  EXPECT_EQ(CountOf("SELECT count(*) FROM history_set"), kSets + 200);
  // One that was appended and is then put in its place.
  sets.push_back(SetOf("$first"));
  Save(dataset, sets, "append");
  std::rotate(sets.begin(), sets.end() - 1, sets.end());
  Save(dataset, sets, "sort");
  EXPECT_EQ(CountOf("SELECT count(*) FROM history_set"), kSets + 200 + 1);
  EXPECT_EQ(dataset.SetsOfVersion(1).size(), static_cast<std::size_t>(kSets));
}

// So often between the same two that the room between their positions does not suffice.
TEST_F(HistoryTest, SetsFindRoomBetweenOthers) {
  Dataset dataset(kFile, Relaxed());
  for (const std::ptrdiff_t place : {0, 1, 2}) {
    Sets sets = {SetOf("$a"), SetOf("$b"), SetOf("$c")};
    Save(dataset, {}, "none");
    Save(dataset, sets, "three");
    const std::int64_t version = dataset.Versions().last;
    for (int count = 0; count < 50; ++count) {
      sets.insert(sets.begin() + place, SetOf("$new" + std::to_string(count)));
      Save(dataset, sets, "one more");
      ASSERT_EQ(Dataset(kFile).Sets(), sets) << place << ", " << count;
    }
    for (int count = 50; count > 0; --count) {
      EXPECT_EQ(dataset.SetsOfVersion(version + count), sets) << place << ", " << count;
      sets.erase(sets.begin() + place);
    }
    dataset.EndTransaction();
    EXPECT_THAT(FindingsOf(kFile), IsEmpty());
  }
}

TEST_F(HistoryTest, AHistoryThatCannotBeIsOneSentence) {
  Dataset dataset(kFile);
  Save(dataset, {SetOf("$a"), SetOf("$b")}, "one");
  Save(dataset, {SetOf("$a", "new")}, "two");
  dataset.EndTransaction();
  const std::string sound = Read(kFile);
  const std::vector<std::string> attacks = {"UPDATE history SET number = -number",
                                            "UPDATE history SET number = 9223372036854775807 WHERE number = 2",
                                            "UPDATE history_set SET kind = 9",
                                            "UPDATE history_set SET kind = 3 WHERE kind = 2",
                                            "UPDATE history_set SET set_id = set_id + 10",
                                            "UPDATE history_set SET position = -1 WHERE kind > 1",
                                            "UPDATE history_set SET position = NULL",
                                            "UPDATE history_set SET name = NULL",
                                            "UPDATE history_set SET name = NULL WHERE kind = 1 AND history = 1",
                                            "UPDATE history_set SET name = CAST(x'24FF' AS TEXT) WHERE kind = 1",
                                            "UPDATE history SET command = CAST(x'FF' AS TEXT) WHERE number = 1",
                                            "UPDATE history SET command = CAST(x'FF' AS TEXT) WHERE number = 2",
                                            "UPDATE history_set SET name = '$same' WHERE history = 2",
                                            "UPDATE history_set SET type = 7 WHERE history = 2",
                                            "UPDATE history_set SET label = char(0) WHERE history = 2",
                                            "UPDATE history_set SET variables = '[[]]' WHERE history = 2",
                                            "UPDATE history_set SET variables = '[\"\\u0000\"]' WHERE history = 2",
                                            "UPDATE history_set SET variables = '{' WHERE history = 2"};
  for (const std::string& attack : attacks) {
    Write(kFile, sound);
    Database(kFile, kFile).Execute(("PRAGMA ignore_check_constraints = ON;" + attack).c_str());
    const std::string sentence = SentenceOf([] {
      Dataset damaged(kFile);
      for (std::int64_t version = 1; version >= 0; --version) {
        damaged.SetsOfVersion(version);
      }
      damaged.ForEachChange([](const Change&) {});
    });
    EXPECT_EQ(sentence, "survey.mrs is damaged.") << attack;
    EXPECT_THAT(FindingsOf(kFile), Not(IsEmpty())) << attack;
  }
}

/// Sets as random commands leave them: some replaced, removed, added or moved, all of a small range of names.
Sets Edited(Sets sets) {
  const int edits = *rc::gen::inRange(0, 6);
  for (int edit = 0; edit < edits; ++edit) {
    const std::string letter(1, static_cast<char>('a' + *rc::gen::inRange(0, 12)));
    const std::string name = "$" + letter;
    const auto same = std::find_if(sets.begin(), sets.end(), [&](const StoredSet& set) {
      return set.name == name || set.name == "$" + std::string(1, static_cast<char>(letter[0] - 'a' + 'A'));
    });
    const int kind = *rc::gen::inRange(0, 4);
    if (same == sets.end()) {
      sets.insert(sets.begin() + *rc::gen::inRange(0, static_cast<int>(sets.size()) + 1), SetOf(name));
    } else if (kind == 0) {
      sets.erase(same);
    } else if (kind == 1) {
      std::rotate(sets.begin(), same, sets.end());
    } else if (kind == 2) {
      std::sort(sets.begin(), sets.end(), [](const auto& one, const auto& other) { return one.name < other.name; });
    } else {
      same->name = *rc::gen::element(same->name, "$" + std::string(1, static_cast<char>(letter[0] - 'a' + 'A')), name);
      same->label = *rc::gen::element<std::string>("", "L\"\\\n\xC3\xB6", "other");
      same->type = *rc::gen::element(SetType::kCategory, SetType::kDichotomy);
      same->labelFromVariable = *rc::gen::arbitrary<bool>();
      same->variables = *rc::gen::elementOf(std::vector<std::vector<std::string>>{{}, {"q1"}, {"q2", "q1", "q\"3\\"}});
    }
  }
  return sets;
}

/// The sets with all that no command makes replaced.
Sets AsCommandsMake(Sets sets) {
  for (StoredSet& set : sets) {
    const bool isDichotomy = set.type == SetType::kDichotomy;
    std::replace(set.label.begin(), set.label.end(), '\n', ' ');
    set.countedValue = isDichotomy ? "1" : "";
    set.categoryLabelsFromCountedValue = isDichotomy;
    set.labelFromVariable = set.labelFromVariable && isDichotomy;
    if (set.variables.size() != 2) {
      set.variables = {"q3", "q1"};
    }
  }
  return sets;
}

bool HasFaults(const std::vector<Sets>& versions) {
  return std::any_of(versions.begin(), versions.end(), [](const Sets& sets) {
    return std::any_of(sets.begin(), sets.end(), [](const StoredSet& set) { return !FaultsOf(set).empty(); });
  });
}

/// Of sets in another order alone, the last version takes it over.
void AddVersion(const Sets& sets, std::vector<Sets>& versions) {
  if (versions.size() > 1 &&
      std::is_permutation(sets.begin(), sets.end(), versions.back().begin(), versions.back().end())) {
    versions.back() = sets;
  } else if (sets != versions.back()) {
    versions.push_back(sets);
  }
}

class VersionsTest : public TemporaryFolderTest {};

TEST_F(VersionsTest, EveryVersionIsTheSetsThatWereSaved) {
  const bool holds = rc::check("every version is the sets that were saved", [] {
    std::filesystem::remove(kFile);
    MakeDataset(kFile);
    Dataset dataset(kFile, Relaxed());
    std::vector<Sets> versions = {{}};
    const int steps = *rc::gen::inRange(1, 25);
    const bool asCommandsMake = *rc::gen::arbitrary<bool>();
    for (int step = 0; step < steps; ++step) {
      if (*rc::gen::inRange(0, 4) == 0 && versions.size() > 1) {
        const auto target = *rc::gen::inRange<std::int64_t>(0, static_cast<std::int64_t>(versions.size()));
        const auto undone = UndoChanges(dataset, target);
        RC_ASSERT(undone->written == (undone->before != undone->after));
        AddVersion(versions[static_cast<std::size_t>(target)], versions);
      } else {
        const Sets sets = asCommandsMake ? AsCommandsMake(Edited(versions.back())) : Edited(versions.back());
        dataset.BeginTransaction(*rc::gen::element(Access::kShared, Access::kExclusive));
        RC_ASSERT(dataset.SaveSets(sets, "edit") != Dataset::Saved::kConflict);
        AddVersion(sets, versions);
      }
      RC_ASSERT(dataset.Sets() == versions.back());
    }
    Dataset again(kFile);
    RC_ASSERT(again.Versions().first == 0);
    RC_ASSERT(again.Versions().last == static_cast<std::int64_t>(versions.size()) - 1);
    for (std::size_t version = 0; version < versions.size(); ++version) {
      RC_ASSERT(again.SetsOfVersion(static_cast<std::int64_t>(version)) == versions[version]);
    }
    RC_ASSERT(FindingsOf(kFile).empty() == !HasFaults(versions));
    RC_ASSERT(!asCommandsMake || !HasFaults(versions));
  });
  EXPECT_TRUE(holds);
}

TEST(Positions, AscendAndKeepAsManyAsCanBe) {
  using Before = std::vector<std::optional<std::int64_t>>;
  using After = std::vector<std::int64_t>;
  constexpr std::int64_t kStep = std::int64_t{1} << 20;
  const auto none = std::nullopt;
  const std::vector<std::pair<Before, After>> rows = {
      {{}, {}},
      {{none, none}, {kStep - 1, 2 * kStep - 1}},
      {{0, 7, 9}, {0, 7, 9}},
      {{10, none, 20}, {10, 15, 20}},
      {{10, none, none, 40}, {10, 20, 30, 40}},
      {{10, none, 11, 12, 20}, {10, 11, 12, 16, 20}},
      {{40, 10, 20, 30}, {4, 10, 20, 30}},
      {{20, 30, 40, 10}, {20, 30, 40, 40 + kStep}},
      {{5, 5}, {2, 5}},
      {{none, 0}, {0, kStep}},
      {{kMaxNumber}, {kMaxNumber}},
      {{none, kMaxNumber}, {kStep - 1, kMaxNumber}},
      {{kMaxNumber, none}, {kStep, 2 * kStep}},
      {{kMaxNumber - kStep, none}, {kMaxNumber - kStep, kMaxNumber}},
      {{5, kMaxNumber, kMaxNumber - 1, none}, {kStep, 2 * kStep, 3 * kStep, 4 * kStep}}};
  for (const auto& [before, after] : rows) {
    EXPECT_EQ(PlanPositions(before), after) << ::testing::PrintToString(after);
  }
}

// A position of 0 stands for none.
RC_GTEST_PROP(PositionsProperty, OfAnyListAscend, (const std::vector<std::uint8_t>& list, bool atLimit)) {
  const std::int64_t shift = atLimit ? kMaxNumber - std::numeric_limits<std::uint8_t>::max() : 0;
  std::vector<std::optional<std::int64_t>> before;
  for (const std::uint8_t position : list) {
    before.push_back(position == 0 ? std::nullopt : std::make_optional<std::int64_t>(position + shift));
  }
  const std::vector<std::int64_t> planned = PlanPositions(before);
  RC_ASSERT((planned.empty() || planned.back() <= kMaxNumber));
  RC_ASSERT(planned.size() == list.size());
  RC_ASSERT(std::adjacent_find(planned.begin(), planned.end(), std::greater_equal<>()) == planned.end());
  RC_ASSERT(std::all_of(planned.begin(), planned.end(), [](std::int64_t position) { return position >= 0; }));
}

}  // namespace
}  // namespace standalone
