#include "standalone/language/variable_list.h"

#include <gtest/gtest.h>

#include <numeric>
#include <string>
#include <utility>
#include <vector>

#include "standalone/text/unicode.h"

namespace standalone {
namespace {

/// A dictionary of the variables q1 to q5 and total, in this order.
VariableLookup Dictionary() {
  static const std::vector<std::string> kNames = {"q1", "q2", "q3", "q4", "q5", "Total"};
  VariableLookup lookup;
  lookup.find = [](const std::string& name) {
    for (std::size_t i = 0; i < kNames.size(); ++i) {
      if (CompareNoCase(kNames[i], name) == 0) {
        return static_cast<int>(i);
      }
    }
    return -1;
  };
  lookup.name = [](int position) { return kNames.at(static_cast<std::size_t>(position)); };
  return lookup;
}

struct Row {
  std::string list;
  std::string sentence;  ///< empty on success
  std::vector<int> positions;
};

void ExpectLists(const std::vector<Row>& rows) {
  for (const Row& row : rows) {
    SCOPED_TRACE(row.list);
    const std::vector<Token> tokens = Tokenize(row.list);
    std::vector<int> positions;
    const std::optional<ListProblem> problem = ReadVariableList(tokens, 0, tokens.size() - 1, Dictionary(), positions);
    EXPECT_EQ(problem ? problem->sentence : "", row.sentence);
    EXPECT_EQ(problem.has_value(), !row.sentence.empty());
    EXPECT_EQ(positions, row.positions);
  }
}

TEST(VariableList, IsSplitIntoItemsRightOrWrong) {
  const std::vector<std::pair<std::string, std::vector<std::pair<std::size_t, std::size_t>>>> rows = {
      {"", {}},
      {"q1 q2", {{0, 0}, {1, 1}}},
      {"q1 TO q3 q5", {{0, 2}, {3, 3}}},
      {"q1 q2 to nosuch", {{0, 0}, {1, 3}}},
      {"q1 TO", {{0, 0}, {1, 1}}},
      {"TO q1 TO q2", {{0, 0}, {1, 3}}},
      {"TO TO q1", {{0, 0}, {1, 1}, {2, 2}}},
  };
  for (const auto& [list, expected] : rows) {
    const std::vector<Token> tokens = Tokenize(list);
    std::vector<std::pair<std::size_t, std::size_t>> items;
    for (const ListItem& item : ListItems(tokens, 0, tokens.size() - 1)) {
      items.emplace_back(item.first, item.last);
    }
    EXPECT_EQ(items, expected) << list;
  }
}

TEST(VariableList, HoldsNamesAndRanges) {
  ExpectLists({
      {"q1", "", {0}},
      {"q3 q1 q2", "", {2, 0, 1}},
      {"Q1 tOTAL", "", {0, 5}},
      {"q1 TO q3", "", {0, 1, 2}},
      {"q2 to q4", "", {1, 2, 3}},
      {"q1 To total", "", {0, 1, 2, 3, 4, 5}},
      {"q2 TO q2", "", {1}},
      {"total q1 TO q2 q5 q3 TO q4", "", {5, 0, 1, 4, 2, 3}},
      {"q1 TO q2 q3 TO q4", "", {0, 1, 2, 3}},
  });
}

TEST(VariableList, WithoutWordsIsAcceptedAndEmpty) {
  ExpectLists({{"", "", {}}});
}

TEST(VariableList, IsEmptyWhenItsEndIsNotAfterItsBeginning) {
  const std::vector<Token> tokens = Tokenize("nosuch nosuch");
  for (const std::size_t end : {0U, 1U}) {
    std::vector<int> positions;
    EXPECT_FALSE(ReadVariableList(tokens, 1, end, Dictionary(), positions));
    EXPECT_EQ(positions, std::vector<int>{});
  }
}

TEST(VariableList, ReadsOnlyItsOwnTokensAndAppends) {
  const std::vector<Token> tokens = Tokenize("nosuch q1 q2 TO q3");
  std::vector<int> positions = {1};
  EXPECT_FALSE(ReadVariableList(tokens, 1, 3, Dictionary(), positions));
  EXPECT_EQ(positions, (std::vector<int>{1, 0, 1}));
}

TEST(VariableList, ARangeEndsWithTheList) {
  const std::vector<Token> tokens = Tokenize("q1 TO q3");
  std::vector<int> positions;
  const std::optional<ListProblem> problem = ReadVariableList(tokens, 0, 2, Dictionary(), positions);
  ASSERT_TRUE(problem);
  EXPECT_EQ(problem->sentence, "The range q1 TO has no end.");
}

TEST(VariableList, AnUnknownNameIsAnErrorThatNamesIt) {
  ExpectLists({
      {"nosuch", "The variable nosuch is not in the dataset.", {}},
      {"q2 NoSuch q1", "The variable NoSuch is not in the dataset.", {1}},
      {"q1 TO nosuch", "The variable nosuch is not in the dataset.", {}},
      {"nosuch TO q1", "The variable nosuch is not in the dataset.", {}},
      {"q1 $likes", "The variable $likes is not in the dataset.", {0}},
      {"q1.", "The variable q1. is not in the dataset.", {}},
  });
}

TEST(VariableList, AVariableListedTwiceIsAnErrorThatNamesIt) {
  ExpectLists({
      {"q1 q1", "The variable q1 is listed twice.", {0}},
      {"q1 TOTAL total", "The variable Total is listed twice.", {0, 5}},
      {"q2 q1 TO q3", "The variable q2 is listed twice.", {1, 0}},
      {"q1 TO q3 q3 TO q5", "The variable q3 is listed twice.", {0, 1, 2}},
      {"q1 TO q5 q2 TO q3", "The variable q2 is listed twice.", {0, 1, 2, 3, 4}},
  });
}

TEST(VariableList, AReversedRangeIsAnErrorThatNamesIt) {
  ExpectLists({
      {"q3 TO q1", "The range q3 TO q1 is reversed: q3 comes after q1 in the dataset.", {}},
      {"q4 TOTAL to Q5", "The range TOTAL TO Q5 is reversed: TOTAL comes after Q5 in the dataset.", {3}},
  });
}

TEST(VariableList, AnOpenRangeIsAnErrorThatNamesIt) {
  ExpectLists({
      {"q1 TO", "The range q1 TO has no end.", {}},
      {"q2 q1 to", "The range q1 TO has no end.", {1}},
      {"q1 TO TO q2", "The range q1 TO has no end.", {}},
      {"TO q1", "The range TO q1 has no beginning.", {}},
      {"q1 TO q2 TO q3", "The range TO q3 has no beginning.", {0, 1}},
      {"TO", "The range TO has neither a beginning nor an end.", {}},
      {"TO TO", "The range TO has neither a beginning nor an end.", {}},
  });
}

TEST(VariableList, OtherTokensAreReportedAndDoNoHarm) {
  ExpectLists({
      {"q1 = q2", "= is not allowed in a list of variables.", {0}},
      {"ALL", "ALL is not allowed in a list of variables.", {}},
      {"q1 5", "5 is not allowed in a list of variables.", {0}},
      {"q1 TO 5", "The range q1 TO has no end.", {}},
      {"'TO'", "TO is not allowed in a list of variables.", {}},
  });
}

TEST(VariableList, AProblemTellsItsToken) {
  struct TokenRow {
    std::string list;
    std::string culprit;
    std::size_t token;
    bool isUnknown;
  };
  const std::vector<TokenRow> rows = {
      {"q1 nosuch q2", "nosuch", 1, true},    {"q2 nosuch TO q3", "nosuch", 1, true},
      {"q1 q2 TO nosuch", "nosuch", 3, true}, {"q1 q2 Q1", "Q1", 2, false},
      {"q2 q1 TO q3", "q1", 1, false},        {"q1 TO q2 q1", "q1", 3, false},
      {"q1 q3 TO q2", "q3", 1, false},        {"q1 q3 TO", "TO", 2, false},
      {"q1 TO q2 TO q3", "TO", 3, false},     {"q1 5", "5", 1, false},
  };
  for (const TokenRow& row : rows) {
    const std::vector<Token> tokens = Tokenize(row.list);
    std::vector<int> positions;
    const std::optional<ListProblem> problem = ReadVariableList(tokens, 0, tokens.size() - 1, Dictionary(), positions);
    ASSERT_TRUE(problem) << row.list;
    EXPECT_EQ(problem->token, row.token) << row.list;
    EXPECT_EQ(tokens.at(problem->token).text, row.culprit) << row.list;
    EXPECT_EQ(problem->isUnknown, row.isUnknown) << row.list;
  }
}

TEST(VariableList, AnEndAfterTheTokensDoesNoHarm) {
  const std::vector<Token> tokens = Tokenize("q1");
  std::vector<int> positions;
  const std::optional<ListProblem> problem = ReadVariableList(tokens, 0, 99, Dictionary(), positions);
  ASSERT_TRUE(problem);
  EXPECT_EQ(problem->sentence, "end of command is not allowed in a list of variables.");
  EXPECT_EQ(problem->token, 1U);
  EXPECT_EQ(positions, std::vector<int>{0});
}

// Ends in time only when the work grows with the list and not with its square.
TEST(VariableList, LongListsTakeTimeInProportion) {
  constexpr int kVariables = 100'000;
  VariableLookup lookup;
  lookup.find = [](const std::string& name) { return std::stoi(name.substr(1)); };
  lookup.name = [](int position) { return "v" + std::to_string(position); };
  std::string list = "v0 TO v" + std::to_string(kVariables - 1);
  for (int i = kVariables; i < 2 * kVariables; ++i) {
    list += " v" + std::to_string(i);
  }
  const std::vector<Token> tokens = Tokenize(list);
  std::vector<int> positions;
  EXPECT_FALSE(ReadVariableList(tokens, 0, tokens.size() - 1, lookup, positions));
  std::vector<int> expected(2 * kVariables);
  std::iota(expected.begin(), expected.end(), 0);
  EXPECT_EQ(positions, expected);
}

}  // namespace
}  // namespace standalone
