#include "standalone/run/choice_hints.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "standalone/data/database.h"
#include "tests/standalone/command_run.h"

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

/// A dataset whose variables v0, v1, ... hold their number of the case's values.
void WriteCases(const std::string& path, std::size_t variables, const Texts& values) {
  DatasetWriter writer(path, false);
  std::vector<Variable> dictionary;
  for (std::size_t index = 0; index < variables; ++index) {
    dictionary.push_back({"v" + std::to_string(index), kWidthOfLongestValue, std::nullopt, {}});
  }
  writer.SetVariables(dictionary);
  for (const std::string& value : values) {
    writer.AddCase(std::vector<std::string_view>(variables, value));
  }
  writer.Commit();
}

Texts HintsOn(ChoiceHints& hints, const std::string& path, const std::string& countedValue, std::size_t variables) {
  StoredSet set;
  set.name = "$s";
  set.countedValue = countedValue;
  for (std::size_t index = 0; index < variables; ++index) {
    set.variables.push_back("v" + std::to_string(index));
  }
  Dataset dataset(path);
  return hints.On(dataset, {}, {set});
}

TEST_F(ChoiceHintsTest, ListsAreShortened) {
  WriteCases("many.mrset", 2, {"a", "b", "c", "d", "e", "f", "g", "h"});
  WriteCases("six.mrset", 2, {"a", "b", "c", "d", "e", std::string(50, 'f')});
  WriteCases("wide.mrset", 9, {"a"});
  ChoiceHints hints;
  EXPECT_EQ(HintsOn(hints, "many.mrset", "z", 2),
            Texts{"no case has the counted value z of $s: v0 has 'a', 'b', 'c', 'd', 'e', 'f' and others"});
  EXPECT_EQ(HintsOn(hints, "six.mrset", "z", 2),
            Texts{"no case has the counted value z of $s: v0 has 'a', 'b', 'c', 'd', 'e', '" + std::string(40, 'f') +
                  "...'"});
  EXPECT_EQ(HintsOn(hints, "wide.mrset", "a", 9), Texts{});
}

TEST_F(ChoiceHintsTest, ValuesThatDifferInBlanksAtTheirEndsAreOne) {
  WriteCases("padded.mrset", 2, {"x", "x  ", "y ", "", "  ", " x"});
  ChoiceHints hints;
  EXPECT_EQ(HintsOn(hints, "padded.mrset", "z", 2),
            Texts{"no case has the counted value z of $s: v0 has '', ' x', 'x', 'y'"});
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
  ChoiceHints hints;
  EXPECT_EQ(HintsOn(hints, "some.mrset", "a", 9), Texts{"no case has chosen v1, v2, v3, v4, v5, v6 and 2 more of $s"});
  EXPECT_EQ(HintsOn(hints, "some.mrset", "a", 7), Texts{"no case has chosen v1, v2, v3, v4, v5, v6 of $s"});
}

TEST_F(ChoiceHintsTest, AreSilentWithoutCasesAndWithoutValues) {
  WriteCases("none.mrset", 2, {});
  WriteCases("empty.mrset", 2, {""});
  ChoiceHints hints;
  EXPECT_EQ(HintsOn(hints, "none.mrset", "a", 2), Texts{});
  EXPECT_EQ(HintsOn(hints, "empty.mrset", "a", 2), Texts{"no case has the counted value a of $s: v0 has ''"});
}

TEST_F(ChoiceHintsTest, EndWhereTooMuchWouldBeRead) {
  const std::string large(900000, 'x');
  WriteCases("two.mrset", 2, {large});
  WriteCases("three.mrset", 2, {"x", large});
  WriteCases("found.mrset", 2, {"a", large, large, large});
  ChoiceHints hints;
  EXPECT_EQ(HintsOn(hints, "three.mrset", "a", 2).size(), 1U);
  EXPECT_EQ(HintsOn(hints, "found.mrset", "a", 2), Texts{});
  WriteCases("over.mrset", 2, {large, large});
  EXPECT_EQ(HintsOn(hints, "over.mrset", "a", 2), Texts{});
  int given = 0;
  for (int command = 0; command < 20; ++command) {
    given += static_cast<int>(HintsOn(hints, "two.mrset", "a", 2).size());
  }
  EXPECT_EQ(given, 15);  // what the run has left of its 32 MB, 1.8 MB a command
}

TEST_F(ChoiceHintsTest, CasesOfVeryManyVariablesAreNotRead) {
  WriteCases("wide.mrset", 100'000, {"b"});
  WriteCases("wider.mrset", 100'001, {"b"});
  ChoiceHints hints;
  EXPECT_EQ(HintsOn(hints, "wide.mrset", "a", 2), Texts{"no case has the counted value a of $s: v0 has 'b'"});
  EXPECT_EQ(HintsOn(hints, "wider.mrset", "a", 2), Texts{});
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
