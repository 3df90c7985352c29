#include "standalone/hints/choice_hints.h"

#include <fmt/format.h>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "standalone/dataset/dataset_writer.h"
#include "standalone/dataset/variable.h"
#include "standalone/storage/database.h"
#include "standalone/text/trim.h"
#include "tests/standalone/hints/command_run.h"

namespace standalone {
namespace {

using Texts = std::vector<std::string>;

class ChoiceHintsTest : public CommandRunTest {};

TEST_F(ChoiceHintsTest, TellWhatTheCasesHold) {
  struct Row {
    std::string definition;
    Texts hints;
  };
  const std::vector<Row> rows = {
      {"VARIABLES=q1 q3 VALUE=1", {}},
      {"VARIABLES=q1 q2 q3 VALUE=1", {"no case has chosen q2 of $a"}},
      {"VARIABLES=satisfaction q1 q2 VALUE=1", {"no case has chosen satisfaction, q2 of $a"}},
      {"VARIABLES=q1 q2 VALUE=9", {"no case has the counted value 9 of $a: q1 has 0, 1"}},
      {"VARIABLES=satisfaction region VALUE=9", {"no case has the counted value 9 of $a: region has 1, 2"}},
      {"VARIABLES=q1 region VALUE=+1", {}},
      {"VARIABLES=t1 t2 VALUE='blue'", {}},
      {"VARIABLES=t1 t2 VALUE=' blue'", {}},
      {"VARIABLES=t1 t2 VALUE='red'", {"no case has chosen t2 of $a"}},
      {"VARIABLES=t1 t2 VALUE='Red'", {"no case has the counted value Red of $a: t1 has 'blue', 'red'"}},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(Run("MRSET /MDGROUP NAME=$a " + row.definition).hints, row.hints) << row.definition;
  }
}

TEST_F(ChoiceHintsTest, AreGivenForSetsThatTheCommandMadeAlone) {
  Run("MRSET /MDGROUP NAME=$z VARIABLES=q1 q2 VALUE=1 /MDGROUP NAME=$a VARIABLES=q1 q2 VALUE=1", false);
  EXPECT_EQ(Run("MRSET /DISPLAY NAME=ALL").hints, Texts{});  // which sorts them
  EXPECT_EQ(Run("MRSET /MDGROUP NAME=$a VARIABLES=q1 q2 VALUE=1").hints, Texts{});
  EXPECT_EQ(Run("MRSET /MCGROUP NAME=$b VARIABLES=q1 q2").hints, Texts{});
  EXPECT_EQ(Run("MRSET /MDGROUP NAME=$b VARIABLES=q1 q2 VALUE=1 /DELETE NAME=[$b]").hints, Texts{});
  EXPECT_EQ(Run("MRSET /MDGROUP NAME=$b VARIABLES=q1 q2 VALUE=1 /DISPLAY").hints, Texts{});
  EXPECT_EQ(Run("MRSET /MDGROUP NAME=$a VARIABLES=q2 q3 VALUE=1 /DISPLAY NAME=ALL").hints,
            Texts{"no case has chosen q2 of $a"});
  EXPECT_EQ(Run("MRSET /DELETE NAME=[$z] /MDGROUP NAME=$b VARIABLES=q1 q2 VALUE=8 /MDGROUP NAME=$c VARIABLES=q3 "
                "q2 VALUE=1")
                .hints,
            (Texts{"no case has the counted value 8 of $b: q1 has 0, 1", "no case has chosen q2 of $c"}));
}

TEST_F(ChoiceHintsTest, ChangeNeitherTheSetsNorTheStatus) {
  const Told told = Run("MRSET /MDGROUP NAME=$a VARIABLES=q2 q3 VALUE=9", false);
  EXPECT_EQ(told.hints.size(), 1U);
  EXPECT_TRUE(told.items.empty());
  EXPECT_EQ(Dataset(kFile).Sets().size(), 1U);
}

/// A dataset with the variables v0, v1, ..., in place of one that may be there.
void WriteCases(const std::string& path, std::size_t variables, const std::vector<Texts>& cases) {
  DatasetWriter writer(path, std::filesystem::exists(path));
  std::vector<Variable> dictionary;
  for (std::size_t index = 0; index < variables; ++index) {
    dictionary.push_back({"v" + std::to_string(index), kWidthOfLongestValue, std::nullopt, {}});
  }
  writer.SetVariables(dictionary);
  for (const Texts& cells : cases) {
    writer.AddCase({cells.begin(), cells.end()});
  }
  writer.Commit();
}

/// In which all variables of a case have the same value.
void WriteEvenCases(const std::string& path, std::size_t variables, const Texts& values) {
  std::vector<Texts> cases;
  for (const std::string& value : values) {
    cases.emplace_back(variables, value);
  }
  WriteCases(path, variables, cases);
}

/// A set of the first variables.
StoredSet SetOf(const std::string& countedValue, std::size_t variables) {
  StoredSet set;
  set.name = "$s";
  set.countedValue = countedValue;
  for (std::size_t index = 0; index < variables; ++index) {
    set.variables.push_back("v" + std::to_string(index));
  }
  return set;
}

/// The hints on a set of the first variables.
Texts HintsOn(const std::string& path, const std::string& countedValue, std::size_t variables) {
  Dataset dataset(path);
  return HintsOnChoices(dataset, {}, Shared({SetOf(countedValue, variables)}));
}

TEST_F(ChoiceHintsTest, ListsAreShortened) {
  WriteEvenCases("many.mrset", 2, {"a", "b", "c", "d", "e", "f", "g", "h"});
  WriteEvenCases("six.mrset", 2, {"a", "b", "c", "d", "e", std::string(50, 'f')});
  WriteEvenCases("wide.mrset", 9, {"a"});
  EXPECT_EQ(HintsOn("many.mrset", "z", 2),
            Texts{"no case has the counted value z of $s: v0 has 'a', 'b', 'c', 'd', 'e', 'f' and others"});
  EXPECT_EQ(HintsOn("six.mrset", "z", 2),
            Texts{"no case has the counted value z of $s: v0 has 'a', 'b', 'c', 'd', 'e', '" + std::string(40, 'f') +
                  "...'"});
  EXPECT_EQ(HintsOn("wide.mrset", "a", 9), Texts{});
}

TEST_F(ChoiceHintsTest, ValuesThatDifferInBlanksAtTheirEndsAreOne) {
  WriteEvenCases("padded.mrset", 2, {"x", "x  ", "y ", "", "  ", " x"});
  EXPECT_EQ(HintsOn("padded.mrset", "z", 2), Texts{"no case has the counted value z of $s: v0 has 'x', 'y'"});
  EXPECT_EQ(HintsOn("padded.mrset", " y", 2), Texts{});
}

TEST_F(ChoiceHintsTest, ManyVariablesThatNobodyChoseAreCounted) {
  DatasetWriter writer("some.mrset", false);
  std::vector<Variable> dictionary;
  for (int index = 0; index < 9; ++index) {
    dictionary.push_back({"v" + std::to_string(index), 1, std::nullopt, {}});
  }
  writer.SetVariables(dictionary);
  writer.AddCase({"a", "b", "b", "b", "b", "b", "b", "b", ""});
  writer.Commit();
  EXPECT_EQ(HintsOn("some.mrset", "a", 9), Texts{"no case has chosen v1, v2, v3, v4, v5, v6 and 2 more of $s"});
  EXPECT_EQ(HintsOn("some.mrset", "a", 7), Texts{"no case has chosen v1, v2, v3, v4, v5, v6 of $s"});
}

TEST_F(ChoiceHintsTest, AreSilentWithoutCasesAndWithoutValues) {
  WriteEvenCases("none.mrset", 2, {});
  WriteEvenCases("empty.mrset", 2, {""});
  EXPECT_EQ(HintsOn("none.mrset", "a", 2), Texts{});
  EXPECT_EQ(HintsOn("empty.mrset", "a", 2),
            Texts{"no case has the counted value a of $s: its variables have no values"});
}

TEST_F(ChoiceHintsTest, LookAtEveryCaseHoweverMuchThereIs) {
  const std::string large(900'000, 'x');
  WriteEvenCases("large.mrset", 2, {large, large, large, large, "a"});
  EXPECT_EQ(HintsOn("large.mrset", "a", 2), Texts{});
  Texts many;
  for (int number = 100'000; number < 170'000; ++number) {
    many.push_back(std::to_string(number));
  }
  WriteEvenCases("many.mrset", 2, many);
  EXPECT_EQ(HintsOn("many.mrset", "169999", 2), Texts{});
  EXPECT_EQ(HintsOn("many.mrset", "170000", 2),
            Texts{"no case has the counted value 170000 of $s: v0 has '100000', '100001', '100002', '100003', '100004',"
                  " '100005' and others"});
}

TEST_F(ChoiceHintsTest, AreSilentOnVariablesThatAreNotThere) {
  WriteEvenCases("two.mrset", 2, {"b"});
  EXPECT_EQ(HintsOn("two.mrset", "a", 3), Texts{});
}

TEST_F(ChoiceHintsTest, AreGivenInDictionariesOfAnySize) {
  WriteEvenCases("wide.mrset", 100'001, {"b"});
  EXPECT_EQ(HintsOn("wide.mrset", "a", 2), Texts{"no case has the counted value a of $s: v0 has 'b'"});
}

std::size_t FirstWithValues(const std::vector<Texts>& cases) {
  for (std::size_t index = 0; index < cases.front().size(); ++index) {
    if (std::any_of(cases.begin(), cases.end(), [&](const Texts& cells) { return !Trimmed(cells[index]).empty(); })) {
      return index;
    }
  }
  return cases.front().size();
}

/// The hint that a reading of all cells gives.
Texts NaiveHints(const std::vector<Texts>& cases, const StoredSet& set) {
  const auto trimmed = [](const std::string& text) { return std::string(Trimmed(text)); };
  Texts neverChosen;
  std::set<std::string> values;  // of the first variable that has any
  for (std::size_t index = 0; index < set.variables.size(); ++index) {
    std::set<std::string> own;
    for (const Texts& cells : cases) {
      own.insert(trimmed(cells[index]));
    }
    own.erase("");
    if (own.count(trimmed(set.countedValue)) == 0) {
      neverChosen.push_back(set.variables[index]);
    }
    values = values.empty() ? own : values;
  }
  if (neverChosen.empty() || cases.empty()) {
    return {};
  }
  if (neverChosen.size() < set.variables.size()) {
    return {fmt::format("no case has chosen {} of $s", fmt::join(neverChosen, ", "))};
  }
  Texts shown;
  for (const std::string& value : values) {
    if (shown.size() < 6) {
      shown.push_back("'" + value + "'");
    }
  }
  return {fmt::format("no case has the counted value {} of $s: {}", set.countedValue,
                      values.empty() ? "its variables have no values"
                                     : fmt::format("v{} has {}{}", FirstWithValues(cases), fmt::join(shown, ", "),
                                                   values.size() > 6 ? " and others" : ""))};
}

TEST_F(ChoiceHintsTest, AreThoseOfAReadingOfAllCells) {
  const bool holds = rc::check("hints are those of a reading of all cells", [] {
    const std::size_t variables = *rc::gen::inRange<std::size_t>(1, 6);
    const auto value = rc::gen::map(rc::gen::inRange(0, 20), [](int number) {
      return number < 4 ? std::string(static_cast<std::size_t>(number), ' ') : std::to_string(number % 17);
    });
    const auto cases = *rc::gen::container<std::vector<Texts>>(rc::gen::container<Texts>(variables, value));
    WriteCases("random.mrset", variables, cases);
    const StoredSet set = SetOf(*value, *rc::gen::inRange<std::size_t>(1, variables + 1));
    RC_ASSERT(HintsOn("random.mrset", set.countedValue, set.variables.size()) == NaiveHints(cases, set));
  });
  EXPECT_TRUE(holds);
}

TEST_F(ChoiceHintsTest, AreSilentWhereTheCasesCannotBeRead) {
  for (const char* damage : {"UPDATE block SET head = x'00'", "DELETE FROM block"}) {
    Database(kFile, kFile).Execute(damage);
    const Told told = Run("MRSET /MDGROUP NAME=$a VARIABLES=q2 t1 VALUE=9 /MDGROUP NAME=$b VARIABLES=q2 q3 VALUE=9");
    EXPECT_EQ(told.hints, Texts{}) << damage;
    EXPECT_EQ(Run("MRSET /MDGROUP NAME=$b VARIABLES=q2 q3 VALUE=9").hints, Texts{}) << damage;
  }
}

}  // namespace
}  // namespace standalone
