#include "standalone/sets/set_copy.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "standalone/text/unicode.h"

namespace standalone {
namespace {

using ::testing::ElementsAre;

using Dictionary = std::vector<Variable>;
using Sets = std::vector<StoredSet>;
using Outcome = CopiedSet::Outcome;

CopySide Side(const Dictionary& dictionary, const std::string& name) {
  return {[&dictionary](const std::string& wanted) -> const Variable* {
            for (const Variable& variable : dictionary) {
              if (CompareNoCase(variable.name, wanted) == 0) {
                return &variable;
              }
            }
            return nullptr;
          },
          name};
}

Variable Of(const std::string& name, int width) {
  return {name, width, std::nullopt, {}};
}

StoredSet Set(const std::string& name, const std::vector<std::string>& variables, const std::string& value = "1") {
  return {name, SetType::kDichotomy, "Label", value, false, false, variables};
}

CopyPlan Plan(const Sets& chosen, const Sets& present, const Dictionary& source, const Dictionary& target) {
  return PlanCopy(chosen, present, Side(source, "S"), Side(target, "T"));
}

std::vector<std::string> ProblemsOf(const StoredSet& set, const Dictionary& source, const Dictionary& target) {
  return Plan({set}, {}, source, target).outcome.front().problems;
}

const Dictionary kNumeric = {Of("q1", 0), Of("q2", 0)};
const Dictionary kStrings = {Of("t1", 5), Of("t2", 8)};

TEST(SetCopyTest, CategoryLabelsNeedThoseOfTheCountedValue) {
  const Variable tea = {"q1", 0, std::nullopt, {{"1", "Tea"}}};
  const Variable milk = {"q2", 0, std::nullopt, {{"0", "No"}, {"1.0", "Milk"}}};
  const Variable alsoTea = {"q2", 0, std::nullopt, {{"1", "TEA"}}};
  StoredSet set = Set("$a", {"q1", "q2"});
  set.categoryLabelsFromCountedValue = true;
  EXPECT_THAT(ProblemsOf(set, {tea, milk}, {tea, milk}), ElementsAre());
  EXPECT_THAT(
      ProblemsOf(set, {tea, milk}, {tea, Of("q2", 0)}),
      ElementsAre("in T it takes its category labels from the counted value 1, which has no label in the variable"
                  " q2"));
  EXPECT_THAT(
      ProblemsOf(set, {tea, milk}, kNumeric),
      ElementsAre("in T it takes its category labels from the counted value 1, which has no label in the variable"
                  " q1 (and 1 more)"));
  EXPECT_THAT(ProblemsOf(set, {tea, milk}, {tea, alsoTea}),
              ElementsAre("in T it takes its category labels from the counted value 1, whose label in the variable q2"
                          " is the same as in another variable"));
  set.categoryLabelsFromCountedValue = false;
  EXPECT_THAT(ProblemsOf(set, {tea, milk}, kNumeric), ElementsAre());
}

TEST(SetCopyTest, ASetReplacesThatOfItsNameAndOthersAreAdded) {
  const StoredSet a = Set("$a", {"q1", "q2"});
  const StoredSet b = Set("$b", {"q1", "q2"});
  const StoredSet otherA = Set("$A", {"q2", "q1"}, "2");
  const StoredSet c = Set("$c", {"q1", "q2"});
  const CopyPlan plan = Plan({b, a, c}, {otherA, c}, kNumeric, kNumeric);
  EXPECT_EQ(plan.sets, (Sets{a, c, b}));
  EXPECT_TRUE(plan.IsComplete());
  ASSERT_EQ(plan.outcome.size(), 3U);
  EXPECT_EQ(plan.outcome[0].outcome, Outcome::kAdded);
  EXPECT_EQ(plan.outcome[1].outcome, Outcome::kReplaced);
  EXPECT_EQ(plan.outcome[2].outcome, Outcome::kUnchanged);
  EXPECT_EQ(plan.outcome[1].name, "$a");
}

TEST(SetCopyTest, VariablesAreSpelledAsInTheTarget) {
  const CopyPlan plan = Plan({Set("$a", {"q1", "q2"})}, {}, kNumeric, {Of("Q2", 0), Of("q1", 0)});
  EXPECT_EQ(plan.sets, Sets{Set("$a", {"q1", "Q2"})});
}

TEST(SetCopyTest, AnIncompleteSetIsLeftOutAndTheOthersAreNot) {
  const StoredSet lost = Set("$lost", {"q1", "q3", "q4"});
  const StoredSet kept = Set("$kept", {"q1", "q2"});
  const CopyPlan plan = Plan({lost, kept}, {Set("$LOST", {"q1", "q2"})}, kNumeric, kNumeric);
  EXPECT_FALSE(plan.IsComplete());
  EXPECT_EQ(plan.sets, (Sets{Set("$LOST", {"q1", "q2"}), kept}));
  EXPECT_EQ(plan.outcome[0].outcome, Outcome::kIncomplete);
  EXPECT_THAT(plan.outcome[0].problems, ElementsAre("T lacks q3, q4"));
}

TEST(SetCopyTest, TypesMustBeThoseOfTheSource) {
  const Dictionary target = {Of("q1", 3), Of("q2", 0), Of("t1", 0), Of("t2", 8)};
  EXPECT_THAT(ProblemsOf(Set("$a", {"q1", "q2", "q9"}), kNumeric, target),
              ElementsAre("q1 is a string in T, unlike in S", "T lacks q9"));
  EXPECT_THAT(ProblemsOf(Set("$a", {"t1", "t2"}), kStrings, target), ElementsAre("t1 is numeric in T, unlike in S"));
}

TEST(SetCopyTest, AVariableThatTheSourceLacksIsComparedWithTheOthers) {
  const Dictionary target = {Of("q1", 0), Of("q2", 0), Of("x", 4)};
  EXPECT_THAT(ProblemsOf(Set("$a", {"x", "q1", "q2"}), kNumeric, target),
              ElementsAre("x is a string in T, unlike others of the set"));
  EXPECT_THAT(ProblemsOf(Set("$a", {"q1", "x"}), {}, target),
              ElementsAre("x is a string in T, unlike others of the set"));
  EXPECT_THAT(ProblemsOf(Set("$a", {"q1", "q2"}), {}, target), ElementsAre());
}

TEST(SetCopyTest, TheCountedValueMustFit) {
  const Dictionary target = {Of("t1", 5), Of("t2", 4)};
  EXPECT_THAT(ProblemsOf(Set("$a", {"t1", "t2"}, " green "), kStrings, target),
              ElementsAre("t2 has width 4 in T, too narrow for the counted value"));
  EXPECT_THAT(ProblemsOf(Set("$a", {"t1", "t2"}, " blue "), kStrings, target), ElementsAre());
  EXPECT_THAT(ProblemsOf(Set("$a", {"t1", "t2"}, "  "), kStrings, target), ElementsAre());
}

TEST(SetCopyTest, ANarrowerVariableThatDoesNoHarmIsRemarked) {
  const CopyPlan plan = Plan({Set("$a", {"t1", "t2"}, "blue")}, {}, kStrings, {Of("t1", 6), Of("t2", 4)});
  EXPECT_THAT(plan.outcome.front().remarks, ElementsAre("t2 has width 4 in T and 8 in S"));
  EXPECT_EQ(plan.outcome.front().outcome, Outcome::kAdded);
}

}  // namespace
}  // namespace standalone
