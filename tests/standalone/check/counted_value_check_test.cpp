#include "standalone/check/counted_value_check.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace standalone {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

StoredSet Counting(const std::string& value) {
  return {"$a", SetType::kDichotomy, "", value, false, false, {"q1", "q2"}};
}

/// A check of one set on the variables at positions 0 and 2.
std::vector<std::string> SentencesAfter(const std::string& value, bool isNumeric,
                                        const std::vector<std::string>& cases) {
  const StoredSet set = Counting(value);
  CountedValueCheck check;
  check.Add(set, isNumeric, {2, 0});
  for (const std::string& cells : cases) {
    check.Look(cells);
  }
  return check.Sentences();
}

TEST(CountedValueCheck, AValueThatAnyCaseHasIsFound) {
  EXPECT_THAT(SentencesAfter("1.0", true, {"[0,7,null]", "[0,7,1]"}), IsEmpty());
  EXPECT_THAT(SentencesAfter(" 1", false, {R"(["","1",""])", R"(["1 ","",""])"}), IsEmpty());
}

TEST(CountedValueCheck, AValueThatNoCaseHasIsASentence) {
  EXPECT_THAT(SentencesAfter("1", true, {"[0,1,null]"}),
              ElementsAre("The set $a counts the number 1, which no case has in its variables."));
  EXPECT_THAT(SentencesAfter("1", false, {R"(["yes","1","1.0"])"}),
              ElementsAre("The set $a counts the text 1, which no case has in its variables."));
}

TEST(CountedValueCheck, WithoutCasesNothingIsSaid) {
  EXPECT_THAT(SentencesAfter("1", true, {}), IsEmpty());
}

TEST(CountedValueCheck, SetsAreToldApart) {
  const StoredSet one = Counting("1");
  const StoredSet two = Counting("2");
  CountedValueCheck check;
  check.Add(one, true, {0});
  check.Add(two, true, {0});
  check.Look("[1]");
  check.Look("[1]");
  EXPECT_THAT(check.Sentences(), ElementsAre("The set $a counts the number 2, which no case has in its variables."));
}

}  // namespace
}  // namespace standalone
