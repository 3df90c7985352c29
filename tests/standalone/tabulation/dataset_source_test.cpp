#include "standalone/tabulation/dataset_source.h"

#include <gmock/gmock.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "standalone/import/importer.h"
#include "standalone/tabulation/tabulate.h"
#include "tests/standalone/temporary_folder.h"

namespace standalone {
namespace {

using ::testing::ElementsAre;

constexpr const char* kFile = "survey.mrset";
constexpr std::size_t kCases = 65'536 + 3;  // a block, and a few cases more

class DatasetSourceTest : public TemporaryFolderTest {
 protected:
  static const char* Make() {
    std::string survey = "tea,Region,odd\n";
    for (std::size_t place = 0; place < kCases; ++place) {
      survey += std::to_string(place % 2) + (place < 4 ? ",N," : ",,") + std::to_string(place) + "\n";
    }
    Write("survey.csv", survey);
    ImportSurvey({"survey.csv", std::nullopt, kFile});
    Dataset dataset(kFile);
    dataset.SaveSets({{"$stored", SetType::kDichotomy, "", "1", false, false, {"tea", "odd"}}}, "set-up");
    return kFile;
  }

  /// Those that are handed over, as in a dry run.
  static SetList OtherSets() {
    return Shared({{"$Drinks", SetType::kDichotomy, "", "1", false, false, {"tea"}},
                   {"$food", SetType::kCategory, "", "", false, false, {"tea", "odd"}}});
  }

  Dataset fDataset{Make()};
  DatasetSource fSource{fDataset, OtherSets()};
};

TEST_F(DatasetSourceTest, SetsAreThoseThatItIsGivenWithoutRegardToCase) {
  ASSERT_NE(fSource.FindSet("$DRINKS"), nullptr);
  EXPECT_EQ(fSource.FindSet("$DRINKS")->name, "$Drinks");
  EXPECT_EQ(fSource.FindSet("$stored"), nullptr);
  std::vector<std::string> names;
  fSource.VisitSetNames([&names](std::string_view name) { names.emplace_back(name); });
  EXPECT_THAT(names, ElementsAre("$Drinks", "$food"));
}

TEST_F(DatasetSourceTest, VariablesAreThoseOfTheDataset) {
  EXPECT_EQ(fSource.FindVariable("REGION"), 1);
  EXPECT_EQ(fSource.FindVariable("$Drinks"), -1);
  EXPECT_EQ(fSource.VariableAt(1).name, "Region");
  std::vector<std::string> names;
  fSource.VisitVariableNames([&names](std::string_view name) { names.emplace_back(name); });
  EXPECT_THAT(names, testing::UnorderedElementsAre("tea", "Region", "odd"));
}

TEST_F(DatasetSourceTest, CasesComeInBlocksOfAllVariables) {
  ASSERT_EQ(fSource.BlockCount(), 2U);
  EXPECT_EQ(fSource.CasesOfBlock(0), 65'536U);
  EXPECT_EQ(fSource.CasesOfBlock(1), 3U);
  Block block;
  fSource.ReadBlock(2, 0, block);
  EXPECT_EQ(block.cases, 65'536U);
  fSource.ReadBlock(1, 1, block);
  EXPECT_EQ(block.cases, 3U);
  EXPECT_FALSE(block.isNumeric);
  EXPECT_EQ(block.form, BlockForm::kConstant);
  EXPECT_TRUE(block.texts.empty());
}

TEST_F(DatasetSourceTest, ItsCasesAreCounted) {
  TabulationRequest request;
  request.sets = {{"$drinks", false, 0, 7}};
  request.by = {{{"region", false, 8, 6}, std::nullopt}};
  const Tabulation table = Tabulate(request, fSource).at(0);
  ASSERT_EQ(table.columns.size(), 2U);
  EXPECT_EQ(table.columns[0].cases.all, static_cast<std::int64_t>(kCases));
  EXPECT_EQ(table.columns[1].cases.all, 4);
  EXPECT_EQ(table.rows.at(0).cells.at(0).cases, static_cast<std::int64_t>(kCases / 2));
  EXPECT_EQ(table.rows[0].cells.at(1).cases, 2);
}

}  // namespace
}  // namespace standalone
