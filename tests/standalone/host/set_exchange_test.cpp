#include "standalone/host/set_exchange.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <string>
#include <vector>

namespace standalone {
namespace {

using Sets = std::vector<StoredSet>;

StoredSet SetOf(const std::string& name, const std::string& label = "") {
  return {name, SetType::kDichotomy, label, "1", true, false, {"q1", "Q2"}};
}

/// The forms of the sets, as they come from an exchange that knows nothing.
VARIABLESETS FormsOf(const Sets& sets) {
  SetExchange exchange;
  return exchange.Give(Shared(sets));
}

TEST(SetExchange, EveryAttributeGoesThereAndBack) {
  const Sets sets = {
      {"$a", SetType::kDichotomy, "A", "1", true, false, {"q1", "Q2"}},
      {"$B", SetType::kDichotomy, "", "x y", false, true, {}},
      {"$c", SetType::kCategory, "C", "", false, false, {"q3"}},
  };
  SetExchange exchange;
  const VARIABLESETS forms = exchange.Give(Shared(sets));
  ASSERT_EQ(forms.size(), 3U);
  EXPECT_EQ(forms[0].GetType(), VariableSet::kMDSet);
  EXPECT_EQ(forms[2].GetType(), VariableSet::kMCSet);
  EXPECT_EQ(Copies(SetExchange().Take(forms)), sets);
  EXPECT_EQ(Copies(exchange.Take(forms)), sets);
}

TEST(SetExchange, EachAttributeTellsSetsApart) {
  const StoredSet set = SetOf("$a");
  std::vector<StoredSet> others(7, set);
  others[0].name = "$A";
  others[1].type = SetType::kCategory;
  others[2].label = "L";
  others[3].countedValue = "2";
  others[4].labelFromVariable = false;
  others[5].categoryLabelsFromCountedValue = true;
  others[6].variables = {"q1", "q2"};
  for (const StoredSet& other : others) {
    SetExchange exchange;
    exchange.Give(Shared({set}));
    EXPECT_EQ(Copies(exchange.Take(FormsOf({other}))), Sets{other});
    EXPECT_EQ(Copies(exchange.Take(FormsOf({set}))), Sets{set});
  }
}

TEST(SetExchange, SetsThatStayAreShared) {
  const SetList given = Shared({SetOf("$a"), SetOf("$b"), SetOf("$c")});
  const std::vector<Sets> edits = {{SetOf("$a"), SetOf("$b"), SetOf("$c"), SetOf("$d")},
                                   {SetOf("$new"), SetOf("$a"), SetOf("$b"), SetOf("$c")},
                                   {SetOf("$a"), SetOf("$b", "other"), SetOf("$c")},
                                   {SetOf("$b"), SetOf("$c")},
                                   {SetOf("$a"), SetOf("$c")},
                                   {SetOf("$a"), SetOf("$b")},
                                   {SetOf("$c")},
                                   {SetOf("$c"), SetOf("$b"), SetOf("$a")},
                                   {SetOf("$c"), SetOf("$new"), SetOf("$a")},
                                   {}};
  for (const Sets& edited : edits) {
    SetExchange exchange;
    exchange.Give(given);
    const SetList taken = exchange.Take(FormsOf(edited));
    ASSERT_EQ(Copies(taken), edited);
    for (const SharedSet& set : taken) {
      for (const SharedSet& before : given) {
        EXPECT_EQ(set == before, *set == *before) << set->name;
      }
    }
  }
}

Sets RandomSets() {
  const auto set = rc::gen::map(rc::gen::inRange(0, 12), [](int number) {
    return SetOf("$" + std::string(1, static_cast<char>('a' + number % 6)), number < 6 ? "" : "label");
  });
  return *rc::gen::container<Sets>(set);
}

TEST(SetExchange, WhatIsKeptChangesNothing) {
  const bool holds = rc::check("an exchange gives and takes as a fresh one does", [] {
    SetExchange exchange;
    SetList stored;
    for (int command = 0; command < 6; ++command) {
      const Sets before = Copies(stored);
      RC_ASSERT(Copies(SetExchange().Take(exchange.Give(stored))) == before);
      const Sets after = RandomSets();
      const SetList taken = exchange.Take(FormsOf(after));
      RC_ASSERT(Copies(taken) == after);
      stored = *rc::gen::arbitrary<bool>() ? taken : Shared(RandomSets());  // another process may write, too
    }
  });
  EXPECT_TRUE(holds);
}

}  // namespace
}  // namespace standalone
