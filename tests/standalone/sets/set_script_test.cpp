#include "standalone/sets/set_script.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "standalone/dataset/dataset_writer.h"
#include "standalone/language/script.h"
#include "standalone/run/command_runner.h"
#include "standalone/sets/command_trial.h"
#include "standalone/text/unicode.h"
#include "tests/properties/dice.h"
#include "tests/properties/property.h"
#include "tests/standalone/temporary_folder.h"

namespace standalone {
namespace {

using properties::Dice;
using ::testing::ElementsAre;
using Sets = std::vector<StoredSet>;
using Dictionary = std::vector<Variable>;

constexpr const char* kSource = "source.mrset";
constexpr const char* kTarget = "target.mrset";

Variable Numeric(const std::string& name, const std::string& labelOfOne = "") {
  Variable variable{name, 0, std::nullopt, {}};
  if (!labelOfOne.empty()) {
    variable.valueLabels.push_back({"1", labelOfOne});
  }
  return variable;
}

Variable String(const std::string& name, int width) {
  return {name, width, std::nullopt, {}};
}

class SetScriptTest : public TemporaryFolderTest {
 protected:
  SetScriptTest() { setenv("MRSET_MODULE", MRSET_TEST_MODULE, 1); }
  ~SetScriptTest() override { unsetenv("MRSET_MODULE"); }

  static void Make(const std::string& path, const Dictionary& dictionary, const Sets& sets = {}) {
    std::filesystem::remove(path);
    DatasetWriter writer(path, false);
    writer.SetVariables(dictionary);
    writer.Commit();
    Dataset(path).SaveSets(sets, "test");
  }

  /// Runs the commands as the program does; returns their errors.
  static std::vector<std::string> Run(const std::string& path, const std::string& script) {
    std::vector<std::string> errors;
    CommandRunner runner(path, false, [&errors](const Event& event) {
      const auto* message = std::get_if<Message>(&event);
      if (message != nullptr && message->level == Level::kError) {
        errors.push_back(message->text);
      }
    });
    for (const ScriptCommand& command : SplitScript(script)) {
      runner.Run(command);
    }
    return errors;
  }

  static std::vector<ScriptedSet> Scripted(const std::string& path) {
    Dataset dataset(path);
    return ScriptSets(dataset, dataset.Sets());
  }

  /// The note on the one set that is stored; "" when there is none.
  static std::string NoteOn(const StoredSet& set) {
    Make(kSource, kDictionary, {set});
    const std::vector<ScriptedSet> scripted = Scripted(kSource);
    return scripted.front().note.value_or("");
  }

  static const Dictionary kDictionary;
};

const Dictionary SetScriptTest::kDictionary = {Numeric("q1", "Tea"), Numeric("q2", "Coffee"), Numeric("q3", "Tea"),
                                               Numeric("q4"),        String("t1", 5),         String("t2", 8)};

StoredSet Dichotomy(const std::vector<std::string>& variables, const std::string& value, bool byValueLabels = false) {
  return {"$a", SetType::kDichotomy, "", value, false, byValueLabels, variables};
}

StoredSet Category(const std::string& name, const std::vector<std::string>& variables) {
  return {name, SetType::kCategory, "", "", false, false, variables};
}

TEST_F(SetScriptTest, TheScriptHasItsTitleAndTheSetsInTheirOrder) {
  Make(kSource, kDictionary, {Category("$z", {"t2", "t1"}), Dichotomy({"q1", "q2"}, "1")});
  const std::vector<ScriptedSet> scripted = Scripted(kSource);
  EXPECT_EQ(ScriptOf("Sets.", scripted, false),
            "* Sets.\n\n"
            "MRSET /MCGROUP NAME=$z\n  VARIABLES=t2 t1.\n\n"
            "MRSET /MDGROUP NAME=$a\n  VARIABLES=q1 q2\n  VALUE=1.\n");
  EXPECT_EQ(ScriptOf("Sets.", {}, true), "* Sets.\n\nMRSET /DELETE NAME=ALL.\n");
  EXPECT_EQ(ScriptOf("None.", {}, false), "* None.\n");
}

TEST_F(SetScriptTest, WhatCannotBeWrittenIsLeftOutWithTheReason) {
  const std::string left = "The set $a cannot be written as a command: ";
  const auto errorOf = [](const std::string& variables) {
    Make(kSource, kDictionary);
    return Run(kSource, "MRSET /MDGROUP NAME=$a VARIABLES=" + variables + " VALUE=1.").at(0);
  };
  EXPECT_EQ(NoteOn(Dichotomy({"q1", "gone"}, "1")), left + errorOf("q1 gone"));
  EXPECT_EQ(NoteOn(Dichotomy({"gone", "lost"}, "1")), left + errorOf("gone lost"));
  EXPECT_EQ(NoteOn(Dichotomy({"q1", "Q2"}, "1")), left + "its variable Q2 is q2 in the dictionary.");
  EXPECT_EQ(NoteOn(Dichotomy({"q1", "q1"}, "1")), left + errorOf("q1 q1"));
  EXPECT_EQ(NoteOn(Dichotomy({"q1"}, "1")), left + "Only one variable q1 was found.");
  EXPECT_EQ(NoteOn(Dichotomy({}, "1")), left + "MDGROUP $a has no variable names.");
  EXPECT_EQ(NoteOn(Category("$a", {})), left + "MCGROUP $a has no variable names.");
  EXPECT_EQ(NoteOn(Dichotomy({"q1", "t1"}, "1")), left + "t1 variable has a different type.");
  EXPECT_EQ(NoteOn(Dichotomy({"q1", "q2"}, "one")), left + "$a:variables are numbers and countedval is string.");
  EXPECT_EQ(NoteOn(Dichotomy({"t1", "t2"}, "orange")), left + "CountVal orange is wider than the narrowest variable.");
  EXPECT_EQ(NoteOn(Dichotomy({"q1", "q4"}, "1", true)), left + "No countedval label for variable q4...");
  EXPECT_EQ(NoteOn(Dichotomy({"q1", "q3"}, "1", true)), left + "CountedVal label of variable q3 is not unique...");
  StoredSet byLabel = Dichotomy({"q1", "q2"}, "1");
  byLabel.labelFromVariable = true;
  EXPECT_EQ(NoteOn(byLabel), left + "$a:LABELSOURCE=VARLABEL requires CATEGORYLABELS=COUNTEDVALUES...");
  StoredSet broken = Dichotomy({"q1", "q2"}, "1");
  broken.label = "a\nb";
  EXPECT_EQ(NoteOn(broken), left + "its label holds a line end, which no quoted text can.");
}

TEST_F(SetScriptTest, ACommandThatReportsAnErrorAndMakesTheSetIsWrittenWithANote) {
  Make(kSource, kDictionary, {Dichotomy({"q1", "q2"}, "0.5")});
  const std::vector<ScriptedSet> scripted = Scripted(kSource);
  EXPECT_EQ(ScriptOf("Sets.", scripted, false),
            "* Sets.\n\n"
            "* The command of $a makes the set and reports an error: The counted value 0.5 is not an integer.\n\n"
            "MRSET /MDGROUP NAME=$a\n  VARIABLES=q1 q2\n  VALUE=0.5.\n");
}

TEST_F(SetScriptTest, ANoteNeverEndsLaterThanItsLine) {
  StoredSet hostile = Category("$a /* 'b\nMRSET /DELETE NAME=ALL.\n", {"q1", "q2"});
  const StoredSet good = Category("$good", {"q1", "q2"});
  Make(kSource, kDictionary, {hostile, good});
  const std::string script = ScriptOf("/* 'no end", Scripted(kSource), false);
  EXPECT_EQ(script,
            "* /* 'no end\n\n"
            "* The set $a /* 'b\\nMRSET /DELETE NAME=ALL.\\n cannot be written as a command: its name is not a valid "
            "name of a set.\n\n"
            "MRSET /MCGROUP NAME=$good\n  VARIABLES=q1 q2.\n");
  Make(kTarget, kDictionary);
  EXPECT_THAT(Run(kTarget, script), ElementsAre());
  EXPECT_EQ(Dataset(kTarget).Sets(), Sets{good});
}

TEST_F(SetScriptTest, ATextIsNeverReadAsMoreOfTheCommand) {
  const std::string attack = "1 /MCGROUP NAME=$b VARIABLES=q1 q2 /MDGROUP NAME=$a VARIABLES=q1 q2 VALUE=1";
  EXPECT_EQ(NoteOn(Dichotomy({"q1", "q2"}, attack)),
            "The set $a cannot be written as a command: $a:variables are numbers and countedval is string.");
}

// Properties.

const std::vector<std::string> kNames = {"VALUE",
                                         "NAME",
                                         "LABEL",
                                         "VARIABLES",
                                         "LABELSOURCE",
                                         "CategoryLabels",
                                         "MDGROUP",
                                         "MRSET",
                                         "val",
                                         "by",
                                         "allx",
                                         "TOx",
                                         "q1",
                                         "q2",
                                         "Q3",
                                         "q4",
                                         "@a",
                                         "#b",
                                         "_c",
                                         "a.b",
                                         "a$b",
                                         "x1..y",
                                         "\xC3\x84pfel",
                                         "\xC3\x9F"
                                         "1",
                                         "\xC5\xBFx",
                                         "\xC4\xB1x",
                                         "\xE5\x8F\x98\xE9\x87\x8F",
                                         std::string(64, 'n'),
                                         "DISPLAY",
                                         "t1",
                                         "t2",
                                         "t3"};

const std::vector<std::string> kNumbers = {"1",   "0",  "-1",       "+1",    "1.0",
                                           "1e3", "-0", "007",      "1e400", "12345678901234567890",
                                           "0.5", ".5", "-1.50E-2", "+.0",   "1e-400"};

const std::vector<std::string> kTexts = {"plain",
                                         "it's",
                                         "say \"x\"",
                                         "'\"",
                                         "\"'\"'",
                                         "'",
                                         "''",
                                         "\"",
                                         "ends.",
                                         ".",
                                         "/* not",
                                         "*/",
                                         "* star",
                                         "a\tb",
                                         "\r",
                                         " ",
                                         " padded ",
                                         "VALUE=1",
                                         "/DELETE NAME=ALL",
                                         "\xC3\xA9",
                                         "\xE2\x80\xA8",
                                         "\xEF\xBB\xBF",
                                         "1",
                                         std::string(255, 'x'),
                                         std::string(250, 'x') + "'\"'\".",
                                         std::string(300, 'y'),
                                         "all",
                                         "$a",
                                         "~",
                                         "\x1b[31m"};

const std::vector<std::string> kSetNames = {"$a",        "$A1",  "$b",  "$VALUE", "$LABEL", "$to",
                                            "$\xC3\x84", "$a.b", "$@x", "$_",     "$#",     "$" + std::string(63, 'z')};

Variable RandomVariable(Dice& dice, const std::string& name) {
  Variable variable{name, dice.Percent(50) ? 0 : static_cast<int>(dice.Between(1, 12)), std::nullopt, {}};
  if (dice.Percent(70)) {
    variable.label = dice.Pick(kTexts);
  }
  if (dice.Percent(60)) {
    variable.valueLabels.push_back({variable.width == 0 ? "1" : "it's", name + " was chosen"});
  }
  return variable;
}

Dictionary RandomDictionary(Dice& dice) {
  std::vector<std::string> names = kNames;
  dice.Shuffle(names);
  names.resize(dice.Between(4, 12));
  Dictionary dictionary;
  std::set<std::string> keys;
  for (const std::string& name : names) {
    if (keys.insert(ToUpper(name)).second) {
      dictionary.push_back(RandomVariable(dice, name));
    }
  }
  return dictionary;
}

std::vector<std::string> RandomVariables(Dice& dice, const Dictionary& dictionary, bool numeric) {
  std::vector<std::string> names;
  for (const Variable& variable : dictionary) {
    if ((variable.width == 0) == numeric) {
      names.push_back(variable.name);
    }
  }
  dice.Shuffle(names);
  if (names.size() > 2) {
    names.resize(dice.Between(2, names.size()));
  }
  return names;
}

std::string RandomlyQuoted(Dice& dice, const std::string& text) {
  const char quote = dice.Percent(50) ? '\'' : '"';
  std::string quoted(1, quote);
  for (const char c : text) {
    quoted.append(c == quote ? 2 : 1, c);
  }
  return quoted + quote;
}

std::string RandomList(Dice& dice, const Dictionary& dictionary, bool numeric) {
  if (dice.OneIn(5)) {
    const std::size_t first = dice.Below(dictionary.size());
    return dictionary[first].name + " to " + dictionary[dice.Between(first, dictionary.size() - 1)].name;
  }
  std::string list;
  for (const std::string& name : RandomVariables(dice, dictionary, numeric)) {
    list += (dice.OneIn(4) ? ToUpper(name) : name) + (dice.OneIn(6) ? "\n  " : " ");
  }
  return list;
}

std::string RandomSubcommand(Dice& dice, const Dictionary& dictionary) {
  const bool isDichotomy = dice.Percent(60);
  const bool numeric = dice.Percent(50);
  std::vector<std::string> attributes = {"NAME=" + dice.Pick(kSetNames),
                                         "VARIABLES=" + RandomList(dice, dictionary, numeric)};
  if (dice.Percent(80)) {
    attributes.push_back("LABEL=" + RandomlyQuoted(dice, dice.Pick(kTexts)));
  }
  if (isDichotomy) {
    attributes.push_back("VALUE=" + (numeric ? dice.Pick(kNumbers) : RandomlyQuoted(dice, dice.Pick(kTexts))));
    if (dice.Percent(40)) {
      attributes.push_back("CAT=COUNTED");
      attributes.push_back(dice.Percent(50) ? "LABELS=VARLABEL" : "labels = varl");
    }
  }
  dice.Shuffle(attributes);
  std::string text = isDichotomy ? " /mdg" : " /MCGROUP";
  for (const std::string& attribute : attributes) {
    text += " " + attribute;
  }
  return text;
}

std::string RandomScript(Dice& dice, const Dictionary& dictionary) {
  std::string script;
  for (std::size_t count = dice.Between(3, 12); count > 0; --count) {
    script += "MRSET" + RandomSubcommand(dice, dictionary) + (dice.OneIn(6) ? " /DISPLAY NAME=ALL" : "") + ".\n";
  }
  return script;
}

std::string Shown(const Sets& sets) {
  std::string text;
  for (const StoredSet& set : sets) {
    text += "\n  " + set.name + " [" + set.label + "] [" + set.countedValue + "]";
    for (const std::string& variable : set.variables) {
      text += " " + variable;
    }
  }
  return text;
}

void RequireSame(const Sets& actual, const Sets& expected, const std::string& script) {
  properties::Require(actual == expected, script + "\nmakes:" + Shown(actual) + "\nexpected:" + Shown(expected));
}

/// The dice of one case.
Dice RandomDice() {
  return Dice(rc::Random(*rc::gen::arbitrary<std::uint64_t>()));
}

/// Dictionaries, which are files, and for each of them as many scripts.
std::size_t Cases() {
  return properties::DifferentialCases() / 1500;
}
constexpr std::size_t kScripts = 25;

/// What a script makes of no sets, through the language and the module.
Sets SetsMadeBy(const std::string& script, Dataset& dataset) {
  return CommandTrial(dataset).Run(script).sets;
}

TEST_F(SetScriptTest, EverySetThatACommandMakesIsMadeAgain) {
  std::size_t made = 0;
  properties::Check(Cases(), [&made] {
    Dice dice = RandomDice();
    const Dictionary dictionary = RandomDictionary(dice);
    Dictionary shuffled = dictionary;
    dice.Shuffle(shuffled);
    Make(kSource, dictionary);
    Make(kTarget, shuffled);
    Dataset source(kSource);
    Dataset target(kTarget);
    for (std::size_t count = 0; count < kScripts; ++count) {
      const Sets sets = SetsMadeBy(RandomScript(dice, dictionary), source);
      made += sets.size();
      const std::vector<ScriptedSet> scripted = ScriptSets(source, sets);
      for (const ScriptedSet& set : scripted) {
        properties::Require(!set.command.empty(), set.note.value_or(""));
      }
      const std::string script = ScriptOf("Sets.", scripted, false);
      RequireSame(SetsMadeBy(script, target), sets, script);
    }
  });
  EXPECT_GT(made, Cases() * kScripts);  // else the commands were all refused
}

TEST_F(SetScriptTest, WithDeleteAllTheTargetHasTheseSetsOnly) {
  properties::Check(Cases(), [] {
    Dice dice = RandomDice();
    const Dictionary dictionary = RandomDictionary(dice);
    Make(kSource, dictionary);
    Dataset dataset(kSource);
    for (std::size_t count = 0; count < kScripts; ++count) {
      const Sets sets = SetsMadeBy(RandomScript(dice, dictionary), dataset);
      const std::string script = ScriptOf("Sets.", ScriptSets(dataset, sets), true);
      RequireSame(SetsMadeBy(RandomScript(dice, dictionary) + script, dataset), sets, script);
    }
  });
}

StoredSet RandomSet(Dice& dice, const Dictionary& dictionary, const std::string& name) {
  const bool numeric = dice.Percent(50);
  StoredSet set{dice.OneIn(10) ? name + " /x" : name,
                dice.Percent(70) ? SetType::kDichotomy : SetType::kCategory,
                dice.Pick(kTexts),
                "",
                dice.OneIn(5),
                dice.OneIn(3),
                RandomVariables(dice, dictionary, numeric)};
  set.countedValue = dice.OneIn(3) ? "" : numeric && dice.Percent(70) ? dice.Pick(kNumbers) : dice.Pick(kTexts);
  if (dice.OneIn(10)) {
    set.label += "\nMRSET /DELETE NAME=ALL.\n";
  }
  if (dice.OneIn(10)) {
    set.variables.push_back(dice.Pick(kNames));
  }
  return set;
}

TEST_F(SetScriptTest, OfAnySetsThoseWithACommandAreMadeAgainAndTheOthersAreNamed) {
  std::size_t leftOut = 0;
  std::size_t written = 0;
  properties::Check(Cases(), [&] {
    Dice dice = RandomDice();
    const Dictionary dictionary = RandomDictionary(dice);
    Make(kSource, dictionary);
    Dataset dataset(kSource);
    for (std::size_t count = 0; count < kScripts; ++count) {
      Sets sets;
      for (const std::string& name : kSetNames) {
        sets.push_back(RandomSet(dice, dictionary, name));
      }
      const std::vector<ScriptedSet> scripted = ScriptSets(dataset, sets);
      Sets expected;
      for (std::size_t index = 0; index < sets.size(); ++index) {
        const bool isWritten = !scripted[index].command.empty();
        properties::Require(isWritten || scripted[index].note.has_value(), "a set is left out without a word");
        ++(isWritten ? written : leftOut);
        if (isWritten) {
          expected.push_back(sets[index]);
        }
      }
      const std::string script = ScriptOf("Sets.", scripted, false);
      RequireSame(SetsMadeBy(script, dataset), expected, script);
    }
  });
  EXPECT_GT(written, Cases() * kScripts);
  EXPECT_GT(leftOut, Cases() * kScripts);
}

}  // namespace
}  // namespace standalone
