#include "standalone/check/set_rules.h"

#include <gmock/gmock.h>

#include <map>
#include <string>
#include <vector>

#include "standalone/text/unicode.h"

namespace standalone {
namespace {

using ::testing::ElementsAreArray;
using ::testing::IsEmpty;
using Texts = std::vector<std::string>;

StoredSet Dichotomy() {
  return {"$a", SetType::kDichotomy, "Likes", "1", false, false, {"q1", "q2"}};
}

StoredSet Category() {
  return {"$b", SetType::kCategory, "", "", false, false, {"q1", "q2"}};
}

Texts SentencesOf(const StoredSet& set, const std::vector<SetProblem>& problems) {
  Texts sentences;
  for (const SetProblem& problem : problems) {
    EXPECT_FALSE(problem.kind.empty());
    sentences.push_back(Sentence(set, problem));
  }
  return sentences;
}

template <typename Edit>
Texts FaultsAfter(StoredSet set, Edit edit) {
  edit(set);
  return SentencesOf(set, FaultsOf(set));
}

TEST(SetRules, WhatCommandsMakeHasNoFaults) {
  StoredSet set = Dichotomy();
  set.label = std::string(255, 'x');
  set.categoryLabelsFromCountedValue = true;
  set.labelFromVariable = true;
  set.name = "$" + std::string(63, 'n');
  EXPECT_THAT(FaultsOf(set), IsEmpty());
  EXPECT_THAT(FaultsOf(Category()), IsEmpty());
}

TEST(SetRules, EachFaultIsASentence) {
  EXPECT_THAT(FaultsAfter(Category(), [](StoredSet& set) { set.name = "a"; }),
              ElementsAreArray(Texts{"The set a has an invalid name."}));
  EXPECT_THAT(FaultsAfter(Category(), [](StoredSet& set) { set.name = "$all"; }),
              ElementsAreArray(Texts{"The set $all has an invalid name."}));
  EXPECT_THAT(FaultsAfter(Category(), [](StoredSet& set) { set.label = std::string(256, 'x'); }),
              ElementsAreArray(Texts{"The set $b has a label of 256 bytes; the limit is 255."}));
  EXPECT_THAT(FaultsAfter(Category(), [](StoredSet& set) { set.label = "a\nb"; }),
              ElementsAreArray(Texts{"The set $b has a label with a line end."}));
  EXPECT_THAT(FaultsAfter(Category(), [](StoredSet& set) { set.countedValue = "1"; }),
              ElementsAreArray(Texts{"The set $b is a category set with a counted value."}));
  EXPECT_THAT(
      FaultsAfter(Category(), [](StoredSet& set) { set.labelFromVariable = true; }),
      ElementsAreArray(Texts{"The set $b is a category set with label options that only a dichotomy set can have."}));
  EXPECT_THAT(
      FaultsAfter(Category(), [](StoredSet& set) { set.categoryLabelsFromCountedValue = true; }),
      ElementsAreArray(Texts{"The set $b is a category set with label options that only a dichotomy set can have."}));
  EXPECT_THAT(FaultsAfter(Dichotomy(), [](StoredSet& set) { set.countedValue.clear(); }),
              ElementsAreArray(Texts{"The set $a is a dichotomy set without a counted value."}));
  EXPECT_THAT(FaultsAfter(Dichotomy(), [](StoredSet& set) { set.countedValue = "1\n"; }),
              ElementsAreArray(Texts{"The set $a has a counted value with a line end."}));
  EXPECT_THAT(FaultsAfter(Dichotomy(), [](StoredSet& set) { set.labelFromVariable = true; }),
              ElementsAreArray(Texts{"The set $a takes its label from a variable but not its category labels from the"
                                     " counted value."}));
  EXPECT_THAT(FaultsAfter(Dichotomy(), [](StoredSet& set) { set.variables.clear(); }),
              ElementsAreArray(Texts{"The set $a has no variables."}));
  EXPECT_THAT(FaultsAfter(Dichotomy(), [](StoredSet& set) { set.variables = {"q1"}; }),
              ElementsAreArray(Texts{"The set $a has only one variable."}));
  EXPECT_THAT(FaultsAfter(Dichotomy(),
                          [](StoredSet& set) {
                            set.variables = {"q1", "", "1st"};
                          }),
              ElementsAreArray(Texts{"The set $a has a variable with an invalid name: .",
                                     "The set $a has a variable with an invalid name: 1st."}));
  EXPECT_THAT(FaultsAfter(Dichotomy(),
                          [](StoredSet& set) {
                            set.variables = {"q1", "q2", "Q1", "q1"};
                          }),
              ElementsAreArray(Texts{"The set $a has the variable Q1 more than once."}));
}

std::optional<Variable> Find(const std::string& name, bool withLabels) {
  static const std::map<std::string, Variable> kDictionary = {
      {"Q1", {"q1", 0, std::nullopt, {{"1", "Yes"}, {"2", "No"}}}},
      {"Q2", {"q2", 0, std::nullopt, {{"1", "Often"}}}},
      {"Q3", {"q3", 0, std::nullopt, {{"1", "YES"}}}},
      {"T1", {"t1", 8, std::nullopt, {{"x", "X"}}}},
      {"T2", {"t2", 3, std::nullopt, {{"x", "Y"}}}},
      {"T3", {"t3", 3, std::nullopt, {{"x ", "Z"}}}}};
  const auto found = kDictionary.find(ToUpper(name));
  if (found == kDictionary.end()) {
    return std::nullopt;
  }
  Variable variable = found->second;
  if (!withLabels) {
    variable.valueLabels.clear();
  }
  return variable;
}

template <typename Edit>
Texts MisfitsAfter(StoredSet set, Edit edit) {
  edit(set);
  return SentencesOf(set, MisfitsOf(set, Find));
}

TEST(SetRules, WhatFitsTheDictionaryHasNoMisfits) {
  EXPECT_THAT(MisfitsOf(Category(), Find), IsEmpty());
  EXPECT_THAT(MisfitsOf(Dichotomy(), Find), IsEmpty());
  EXPECT_THAT(MisfitsAfter(Dichotomy(), [](StoredSet& set) { set.categoryLabelsFromCountedValue = true; }), IsEmpty());
  EXPECT_THAT(MisfitsAfter(Dichotomy(),
                           [](StoredSet& set) {
                             set.countedValue = "1.0";
                             set.categoryLabelsFromCountedValue = true;
                           }),
              IsEmpty());
  EXPECT_THAT(MisfitsAfter(Dichotomy(),
                           [](StoredSet& set) {
                             set.variables = {"t1", "t2"};
                             set.countedValue = "  abc ";
                           }),
              IsEmpty());
}

TEST(SetRules, EachMisfitIsASentence) {
  EXPECT_THAT(MisfitsAfter(Category(),
                           [](StoredSet& set) {
                             set.variables = {"gone", "q1", "lost"};
                           }),
              ElementsAreArray(Texts{"The set $b has the variable gone, which no longer exists.",
                                     "The set $b has the variable lost, which no longer exists."}));
  EXPECT_THAT(MisfitsAfter(Category(),
                           [](StoredSet& set) {
                             set.variables = {"q1", "t1", "q2", "t2"};
                           }),
              ElementsAreArray(Texts{"The set $b has both numeric and string variables."}));
  EXPECT_THAT(MisfitsAfter(Dichotomy(), [](StoredSet& set) { set.countedValue = "yes"; }),
              ElementsAreArray(Texts{"The set $a counts yes in numeric variables, which is not a number."}));
  EXPECT_THAT(MisfitsAfter(Dichotomy(),
                           [](StoredSet& set) {
                             set.variables = {"t1", "t2", "t3"};
                             set.countedValue = "long";
                           }),
              ElementsAreArray(Texts{"The set $a counts long, which is wider than the variable t2."}));
  EXPECT_THAT(MisfitsAfter(Dichotomy(),
                           [](StoredSet& set) {
                             set.variables = {"q1", "q2", "q3"};
                             set.categoryLabelsFromCountedValue = true;
                           }),
              ElementsAreArray(Texts{"The set $a takes its category labels from the counted value 1, whose label in the"
                                     " variable q3 is the same as in another variable."}));
  EXPECT_THAT(MisfitsAfter(Dichotomy(),
                           [](StoredSet& set) {
                             set.variables = {"t1", "t2", "t3"};
                             set.countedValue = "x";
                             set.categoryLabelsFromCountedValue = true;
                           }),
              ElementsAreArray(Texts{"The set $a takes its category labels from the counted value x, which has no label"
                                     " in the variable t3."}));
}

}  // namespace
}  // namespace standalone
