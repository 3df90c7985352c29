#include "standalone/sets/set_diff.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "standalone/sets/diff_report.h"

namespace standalone {
namespace {

using Sets = std::vector<StoredSet>;

StoredSet Set(const std::string& name) {
  return {name, SetType::kDichotomy, "Label", "1", false, false, {"q1", "q2", "q3"}};
}

/// The difference as text without the heading of the two names, which is looked at where it is there.
std::string TextOf(const Sets& a, const Sets& b, std::size_t width = 80) {
  const std::string text = DiffText(CompareSets(a, b), "a.mrset", "b.mrset", width);
  const std::string heading = "A: a.mrset\nB: b.mrset\n\n";
  return text.substr(0, heading.size()) == heading ? text.substr(heading.size()) : text;
}

/// $a as it is and as `change` makes it.
template <typename Change>
std::string TextOfChange(Change change) {
  StoredSet changed = Set("$a");
  change(changed);
  return TextOf({Set("$a")}, {changed});
}

TEST(SetDiffTest, TheSameSetsHaveNoDifference) {
  EXPECT_TRUE(CompareSets({}, {}).IsNone());
  EXPECT_TRUE(CompareSets({Set("$a"), Set("$b")}, {Set("$a"), Set("$b")}).IsNone());
  EXPECT_EQ(TextOf({Set("$a")}, {Set("$a")}), "The multiple response sets are the same.\n");
}

TEST(SetDiffTest, SetsThatOnlyOneHasAreNamed) {
  EXPECT_EQ(TextOf({Set("$a"), Set("$b"), Set("$c")}, {Set("$b"), Set("$d")}), "Only in A: $a $c\nOnly in B: $d\n");
  EXPECT_EQ(TextOf({}, {Set("$d")}), "Only in B: $d\n");
}

TEST(SetDiffTest, EachFieldIsCompared) {
  EXPECT_EQ(TextOfChange([](StoredSet& set) { set.name = "$A"; }), "$a\n  name\n    A: \"$a\"\n    B: \"$A\"\n");
  EXPECT_EQ(TextOfChange([](StoredSet& set) { set.type = SetType::kCategory; }),
            "$a\n  type\n    A: \"dichotomy\"\n    B: \"category\"\n");
  EXPECT_EQ(TextOfChange([](StoredSet& set) { set.label = ""; }), "$a\n  label\n    A: \"Label\"\n    B: none\n");
  EXPECT_EQ(TextOfChange([](StoredSet& set) { set.countedValue = "1.0"; }),
            "$a\n  counted value\n    A: \"1\"\n    B: \"1.0\"\n");
  EXPECT_EQ(TextOfChange([](StoredSet& set) { set.labelFromVariable = true; }),
            "$a\n  label from the variables\n    A: no\n    B: yes\n");
  EXPECT_EQ(TextOfChange([](StoredSet& set) { set.categoryLabelsFromCountedValue = true; }),
            "$a\n  category labels from the counted value\n    A: no\n    B: yes\n");
}

TEST(SetDiffTest, VariablesAreComparedAsLists) {
  EXPECT_EQ(TextOfChange([](StoredSet& set) {
              set.variables = {"q1", "q3", "q4", "q5"};
            }),
            "$a\n  variables\n    only in A: q2\n    only in B: q4 q5\n");
  EXPECT_EQ(TextOfChange([](StoredSet& set) {
              set.variables = {"q4", "Q3", "q1"};
            }),
            "$a\n  variables\n    only in A: q2\n    only in B: q4\n    order in A: q1 q3\n    order in B: Q3 q1\n");
  EXPECT_EQ(TextOfChange([](StoredSet& set) { set.variables[1] = "Q2"; }),
            "$a\n  variables\n    spelled in A: q2\n    spelled in B: Q2\n");
  EXPECT_EQ(TextOfChange([](StoredSet& set) {
              set.variables = {"q1", "q2", "q2", "q3"};
            }),
            "$a\n  variables\n    only in B: q2\n");
}

TEST(SetDiffTest, TheOrderOfTheSetsIsCompared) {
  EXPECT_EQ(
      TextOf({Set("$a"), Set("$b"), Set("$c")}, {Set("$c"), Set("$d"), Set("$a")}),
      "Only in A: $b\nOnly in B: $d\nThe sets that both have are in another order.\n    A: $a $c\n    B: $c $a\n");
  // A set in between that only one has is no other order.
  EXPECT_FALSE(CompareSets({Set("$a"), Set("$c")}, {Set("$a"), Set("$b"), Set("$c")}).names.reordered);
}

TEST(SetDiffTest, SeveralDifferencesFollowOneAnother) {
  StoredSet changed = Set("$A");
  changed.label = "New";
  EXPECT_EQ(DiffText(CompareSets({Set("$a"), Set("$b")}, {changed}), "a\x1b", "b", 80),
            "A: a\\x1b\nB: b\n\nOnly in A: $b\n$a\n  name\n    A: \"$a\"\n    B: \"$A\"\n"
            "  label\n    A: \"Label\"\n    B: \"New\"\n");
}

TEST(SetDiffTest, ListsAreWrappedAndHostileTextIsShown) {
  EXPECT_EQ(TextOf({Set("$set1"), Set("$set2"), Set("$set3")}, {}, 24), "Only in A: $set1 $set2\n           $set3\n");
  EXPECT_EQ(TextOf({Set("$set1"), Set("$set2")}, {}, 1), "Only in A: $set1\n           $set2\n");
  EXPECT_EQ(TextOfChange([](StoredSet& set) { set.label = "a\nb\x1b[31m"; }),
            "$a\n  label\n    A: \"Label\"\n    B: \"a\\nb\\x1b[31m\"\n");
}

std::string DiffJson(const SetsDifference& difference, const std::string& a, const std::string& b) {
  std::ostringstream stream;
  JsonWriter json(stream);
  WriteDiffJson(json, difference, a, b);
  return stream.str();
}

TEST(SetDiffTest, TheJsonFormIsStable) {
  StoredSet changed = Set("$A");
  changed.labelFromVariable = true;
  changed.variables = {"q3", "q1", "x"};
  EXPECT_EQ(
      DiffJson(CompareSets({Set("$a"), Set("$b"), Set("$c")}, {Set("$b"), changed, Set("$d")}), "1.mrset", "2.mrset"),
      R"({"a":"1.mrset","b":"2.mrset","same":false,)"
      R"("onlyInA":[{"name":"$c","type":"dichotomy","label":"Label","countedValue":"1",)"
      R"("labelFromVariable":false,"categoryLabelsFromCountedValue":false,"variables":["q1","q2","q3"]}],)"
      R"("onlyInB":[{"name":"$d","type":"dichotomy","label":"Label","countedValue":"1",)"
      R"("labelFromVariable":false,"categoryLabelsFromCountedValue":false,"variables":["q1","q2","q3"]}],)"
      R"("changed":[{"name":"$a","fields":[{"field":"name","a":"$a","b":"$A"},)"
      R"({"field":"labelFromVariable","a":false,"b":true},)"
      R"({"field":"variables","a":["q1","q2","q3"],"b":["q3","q1","x"],)"
      R"("onlyInA":["q2"],"onlyInB":["x"],"reordered":true}]}],)"
      R"("order":{"same":false,"a":["$a","$b"],"b":["$b","$A"]}})");
  EXPECT_EQ(DiffJson(CompareSets({}, {}), "1", "2"),
            R"({"a":"1","b":"2","same":true,"onlyInA":[],"onlyInB":[],"changed":[],)"
            R"("order":{"same":true,"a":[],"b":[]}})");
}

}  // namespace
}  // namespace standalone
