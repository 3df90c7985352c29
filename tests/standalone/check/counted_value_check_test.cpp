#include "standalone/check/counted_value_check.h"

#include <gmock/gmock.h>

#include <string>
#include <string_view>
#include <vector>

namespace standalone {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

StoredSet Counting(const std::string& value) {
  return {"$a", SetType::kDichotomy, "", value, false, false, {"q1", "q2"}};
}

Block Numbers(const std::vector<double>& values) {
  Block block;
  block.cases = 2;
  block.numbers = values;
  return block;
}

Block Texts(const std::vector<std::string_view>& values) {
  Block block;
  block.cases = 2;
  block.isNumeric = false;
  block.texts = values;
  return block;
}

/// A check of one set on the variables at positions 0 and 2, after a block of each variable from position 0 on.
std::vector<std::string> SentencesAfter(const std::string& value, bool isNumeric, const std::vector<Block>& blocks) {
  const StoredSet set = Counting(value);
  CountedValueCheck check;
  check.Add(set, isNumeric, {2, 0});
  for (std::size_t position = 0; position < blocks.size(); ++position) {
    check.Look(position, blocks[position]);
  }
  return check.Sentences();
}

TEST(CountedValueCheck, AValueThatAnyCaseHasIsFound) {
  EXPECT_THAT(SentencesAfter("1.0", true, {Numbers({0}), Numbers({7}), Numbers({0, 1})}), IsEmpty());
  EXPECT_THAT(SentencesAfter(" 1", false, {Texts({"1 ", "2"}), Texts({"1"}), Texts({})}), IsEmpty());
}

TEST(CountedValueCheck, AValueIsFoundInBlocksWithoutCodes) {
  Block numbers = Numbers({});
  numbers.form = BlockForm::kNumbers;
  numbers.cellNumbers = {0, 1};
  EXPECT_THAT(SentencesAfter("1", true, {numbers}), IsEmpty());
  Block texts = Texts({});
  texts.form = BlockForm::kTexts;
  texts.cellTexts = {"", "1 "};
  EXPECT_THAT(SentencesAfter("1", false, {texts}), IsEmpty());
}

TEST(CountedValueCheck, AValueThatNoCaseHasIsASentence) {
  EXPECT_THAT(SentencesAfter("1", true, {Numbers({0}), Numbers({1}), Numbers({})}),
              ElementsAre("The set $a counts the number 1, which no case has in its variables."));
  EXPECT_THAT(SentencesAfter("1", false, {Texts({"yes"}), Texts({"1"}), Texts({"1.0"})}),
              ElementsAre("The set $a counts the text 1, which no case has in its variables."));
}

TEST(CountedValueCheck, ABlankValueIsOneThatNoCaseHas) {
  EXPECT_THAT(SentencesAfter(" ", false, {Texts({" ", "  "}), Texts({}), Texts({" "})}),
              ElementsAre("The set $a counts the text  , which no case has in its variables."));
}

TEST(CountedValueCheck, WithoutCasesNothingIsSaid) {
  EXPECT_THAT(SentencesAfter("1", true, {}), IsEmpty());
}

TEST(CountedValueCheck, NothingIsSaidOfASetSomeOfWhoseCellsCannotBeRead) {
  const StoredSet set = Counting("1");
  CountedValueCheck check;
  check.Add(set, true, {0, 1});
  check.Look(0, Numbers({2}));
  check.PassOver(1);
  EXPECT_THAT(check.Sentences(), IsEmpty());
}

TEST(CountedValueCheck, SetsAreToldApart) {
  const StoredSet one = Counting("1");
  const StoredSet two = Counting("2");
  CountedValueCheck check;
  check.Add(one, true, {0});
  check.Add(two, true, {0});
  check.Look(0, Numbers({1}));
  check.Look(0, Numbers({1}));
  EXPECT_THAT(check.Sentences(), ElementsAre("The set $a counts the number 2, which no case has in its variables."));
}

}  // namespace
}  // namespace standalone
