#include "standalone/sets/copy_transaction.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "standalone/dataset/dataset_writer.h"
#include "tests/standalone/elsewhere.h"
#include "tests/standalone/temporary_folder.h"

namespace standalone {
namespace {

using ::testing::ElementsAre;

constexpr const char* kTarget = "target.mrset";

class CopyTransactionTest : public TemporaryFolderTest {
 protected:
  CopyTransactionTest() {
    DatasetWriter writer(kTarget, false);
    writer.SetVariables({{"q1", 0, std::nullopt, {}}, {"q2", 0, std::nullopt, {}}});
    writer.Commit();
  }

  static std::vector<std::string> StoredNames() {
    std::vector<std::string> names;
    for (const StoredSet& set : Dataset(kTarget).Sets()) {
      names.push_back(set.name);
    }
    return names;
  }
};

const std::vector<StoredSet> kChosen = {{"$a", SetType::kCategory, "", "", false, false, {"q1", "q2"}}};

/// A source that has no variables and calls `meanwhile` whenever it is asked for one.
CopySide Source(const std::function<void()>& meanwhile) {
  return {[meanwhile](const std::string&) -> const Variable* {
            meanwhile();
            return nullptr;
          },
          "source.mrset"};
}

TEST_F(CopyTransactionTest, ACopyIsPlannedAgainWhereAnotherProcessCameFirst) {
  for (int interferences = 0; interferences <= 3; ++interferences) {
    Elsewhere elsewhere;
    int plans = 0;
    int left = interferences;
    bool isNewPlan = true;
    const CopySide source = Source([&] {
      if (isNewPlan && left > 0) {
        elsewhere.Define(kTarget, "$other" + std::to_string(interferences) + std::to_string(--left));
      }
      isNewPlan = false;
    });
    Dataset target(kTarget);
    std::vector<StoredSet> chosen = kChosen;
    chosen.front().name += std::to_string(interferences);
    CopySets(chosen, source, target, kTarget, [&](const CopyPlan&) {
      isNewPlan = true;
      ++plans;
      return std::make_optional<std::string>("copy");
    });
    EXPECT_EQ(plans, interferences + 1);
    EXPECT_EQ(StoredNames().back(), "$a" + std::to_string(interferences));
  }
  EXPECT_EQ(StoredNames().size(), 4U + 1U + 2U + 3U);
}

TEST_F(CopyTransactionTest, APlanThatIsNotWantedWritesNothing) {
  Dataset target(kTarget);
  const CopyPlan plan = CopySets(kChosen, Source([] {}), target, kTarget, [](const CopyPlan&) { return std::nullopt; });
  EXPECT_EQ(plan.sets, kChosen);
  EXPECT_THAT(StoredNames(), ElementsAre());
}

}  // namespace
}  // namespace standalone
