#include "standalone/hints/choice_hints.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "standalone/dataset/dataset_writer.h"
#include "standalone/dataset/variable.h"
#include "standalone/storage/database.h"
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

/// The hints on a set of the first variables.
Texts HintsOn(ChoiceHints& hints, const std::string& countedValue, std::size_t variables) {
  StoredSet set;
  set.name = "$s";
  set.countedValue = countedValue;
  for (std::size_t index = 0; index < variables; ++index) {
    set.variables.push_back("v" + std::to_string(index));
  }
  return hints.HintsOnChange({}, Shared({set}));
}

/// The hints of a run's first command and those of the next ones, which are the same.
Texts HintsOn(const std::string& path, const std::string& countedValue, std::size_t variables) {
  Dataset dataset(path);
  ChoiceHints hints(dataset);
  const Texts first = HintsOn(hints, countedValue, variables);
  for (int command = 2; command < 5; ++command) {
    EXPECT_EQ(HintsOn(hints, countedValue, variables), first) << path << ", command " << command;
  }
  return first;
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
  EXPECT_EQ(HintsOn("padded.mrset", "z", 2), Texts{"no case has the counted value z of $s: v0 has '', ' x', 'x', 'y'"});
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
  EXPECT_EQ(HintsOn("empty.mrset", "a", 2), Texts{"no case has the counted value a of $s: v0 has ''"});
}

TEST_F(ChoiceHintsTest, EndWhereTooMuchWouldBeRead) {
  const std::string large(900000, 'x');
  WriteEvenCases("three.mrset", 2, {"x", large});
  WriteEvenCases("found.mrset", 2, {"a", large, large, large});
  EXPECT_EQ(HintsOn("three.mrset", "a", 2).size(), 1U);
  EXPECT_EQ(HintsOn("found.mrset", "a", 2), Texts{});
  WriteEvenCases("over.mrset", 2, {large, large});
  EXPECT_EQ(HintsOn("over.mrset", "a", 2), Texts{});
}

TEST_F(ChoiceHintsTest, AreTheSameInEveryCommandHoweverMuchThereIsToRead) {
  const std::string quarter(250000, 'x');
  Texts many;  // values, in 1.3 MB
  for (char letter = 'a'; letter < 'o'; ++letter) {
    many.push_back(letter + std::string(45000, 'x'));
  }
  const auto shown = [](char letter) { return std::string("'") + letter + std::string(39, 'x') + "...'"; };
  WriteEvenCases("values.mrset", 2, many);
  EXPECT_EQ(HintsOn("values.mrset", "a", 2),
            Texts{"no case has the counted value a of $s: v0 has " + shown('a') + ", " + shown('b') + ", " +
                  shown('c') + ", " + shown('d') + ", " + shown('e') + ", " + shown('f') + " and others"});
  EXPECT_EQ(HintsOn("values.mrset", many.back(), 2), Texts{});
  WriteEvenCases("over.mrset", 2, Texts(5, "b" + quarter));
  EXPECT_EQ(HintsOn("over.mrset", "a", 2), Texts{});
  EXPECT_EQ(HintsOn("over.mrset", "b" + quarter, 2), Texts{});
  WriteEvenCases("within.mrset", 2, Texts(3, "b" + quarter));
  EXPECT_EQ(HintsOn("within.mrset", "a", 2), Texts{"no case has the counted value a of $s: v0 has " + shown('b')});
}

TEST_F(ChoiceHintsTest, AreSilentOnVariablesThatAreNotThere) {
  WriteEvenCases("two.mrset", 2, {"b"});
  EXPECT_EQ(HintsOn("two.mrset", "a", 3), Texts{});
}

TEST_F(ChoiceHintsTest, ARunReadsNoMoreThan32Megabytes) {
  WriteEvenCases("large.mrset", 2, {std::string(900000, 'x')});
  Dataset dataset("large.mrset");
  ChoiceHints hints(dataset);
  int given = 0;
  for (int command = 0; command < 20; ++command) {
    Dataset("large.mrset")
        .SaveSets({{"$" + std::to_string(command), SetType::kCategory, "", "", false, false, {}}}, "");
    given += static_cast<int>(HintsOn(hints, "a", 2).size());
    dataset.EndTransaction();
  }
  EXPECT_EQ(given, 17);  // 1.8 MB for each, since the cases were read again after each change
}

TEST_F(ChoiceHintsTest, WhatTheCasesHoldIsReadOnceForARun) {
  WriteEvenCases("large.mrset", 2, {std::string(900000, 'x')});
  Dataset dataset("large.mrset");
  ChoiceHints hints(dataset);
  for (int command = 0; command < 40; ++command) {
    EXPECT_EQ(HintsOn(hints, "a", 2).size(), 1U) << command;
  }
}

TEST_F(ChoiceHintsTest, WhatWasReadIsForgottenWhenTheCasesAreReplaced) {
  WriteEvenCases("replaced.mrset", 2, {"b"});
  Dataset dataset("replaced.mrset");
  ChoiceHints hints(dataset);
  for (int command = 0; command < 3; ++command) {
    EXPECT_EQ(HintsOn(hints, "a", 2), Texts{"no case has the counted value a of $s: v0 has 'b'"});
  }
  dataset.EndTransaction();
  WriteEvenCases("replaced.mrset", 2, {"c"});
  for (int command = 0; command < 3; ++command) {
    EXPECT_EQ(HintsOn(hints, "a", 2), Texts{"no case has the counted value a of $s: v0 has 'c'"});
  }
}

// The first command of a run reads the cases for its sets alone, the others those values that are known.
TEST_F(ChoiceHintsTest, ARunGivesTheHintsOfItsCommandsAlone) {
  const bool holds = rc::check("a run gives the hints of its commands alone", [] {
    const std::size_t variables = *rc::gen::inRange<std::size_t>(1, 6);
    const auto value = rc::gen::map(rc::gen::inRange(0, 20), [](int number) {
      return number < 4 ? std::string(static_cast<std::size_t>(number), ' ') : std::to_string(number % 17);
    });
    const auto cases = *rc::gen::container<std::vector<Texts>>(rc::gen::container<Texts>(variables, value));
    WriteCases("random.mrset", variables, cases);
    Dataset dataset("random.mrset");
    ChoiceHints run(dataset);
    for (int command = 0; command < 8; ++command) {
      const std::string counted = *value;
      const std::size_t used = *rc::gen::inRange<std::size_t>(1, variables + 1);
      ChoiceHints alone(dataset);
      RC_ASSERT(HintsOn(run, counted, used) == HintsOn(alone, counted, used));
    }
  });
  EXPECT_TRUE(holds);
}

TEST_F(ChoiceHintsTest, CasesOfVeryManyVariablesAreNotRead) {
  WriteEvenCases("wide.mrset", 100'000, {"b"});
  WriteEvenCases("wider.mrset", 100'001, {"b"});
  EXPECT_EQ(HintsOn("wide.mrset", "a", 2), Texts{"no case has the counted value a of $s: v0 has 'b'"});
  EXPECT_EQ(HintsOn("wider.mrset", "a", 2), Texts{});
}

TEST_F(ChoiceHintsTest, AreSilentWhereTheCasesCannotBeRead) {
  for (const std::string cells : {"[1,2]", "nonsense", "{}"}) {
    {
      Database database(kFile, kFile);
      Query(database, "UPDATE cases SET cells = ? WHERE position = 2").Bind(cells).Run();
    }
    const Told told = Run("MRSET /MDGROUP NAME=$a VARIABLES=q2 t1 VALUE=9 /MDGROUP NAME=$b VARIABLES=q2 q3 VALUE=9");
    EXPECT_EQ(told.hints, Texts{}) << cells;
    EXPECT_EQ(Run("MRSET /MDGROUP NAME=$b VARIABLES=q2 q3 VALUE=9").hints, Texts{}) << cells;
  }
}

}  // namespace
}  // namespace standalone
