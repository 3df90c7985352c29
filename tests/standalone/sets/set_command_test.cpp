#include "standalone/sets/set_command.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "standalone/language/script.h"

namespace standalone {
namespace {

StoredSet Dichotomy() {
  return {"$drinks", SetType::kDichotomy, "Drinks", "1", false, false, {"q1", "q2"}};
}

StoredSet Category() {
  return {"$Colours", SetType::kCategory, "", "", false, false, {"t1", "t2"}};
}

TEST(SetCommandTest, ADichotomySetIsWrittenInAFixedOrder) {
  StoredSet set = Dichotomy();
  set.labelFromVariable = true;
  set.categoryLabelsFromCountedValue = true;
  EXPECT_EQ(CommandThatMakes(set, true),
            "MRSET /MDGROUP NAME=$drinks\n"
            "  LABEL='Drinks'\n"
            "  VARIABLES=q1 q2\n"
            "  VALUE=1\n"
            "  CATEGORYLABELS=COUNTEDVALUES\n"
            "  LABELSOURCE=VARLABEL.\n");
}

TEST(SetCommandTest, ACategorySetHasNoMoreThanItsVariables) {
  EXPECT_EQ(CommandThatMakes(Category(), false), "MRSET /MCGROUP NAME=$Colours\n  VARIABLES=t1 t2.\n");
}

TEST(SetCommandTest, LongListsAreWrapped) {
  StoredSet set = Category();
  set.variables.assign(20, "variable_x");
  EXPECT_EQ(CommandThatMakes(set, false),
            "MRSET /MCGROUP NAME=$Colours\n"
            "  VARIABLES=variable_x variable_x variable_x variable_x variable_x variable_x\n"
            "            variable_x variable_x variable_x variable_x variable_x variable_x\n"
            "            variable_x variable_x variable_x variable_x variable_x variable_x\n"
            "            variable_x variable_x.\n");
}

TEST(SetCommandTest, TheLongestNamesHaveLinesOfTheirOwn) {
  StoredSet set = Category();
  set.variables = {std::string(64, 'a'), std::string(64, 'b')};
  EXPECT_EQ(CommandThatMakes(set, false), "MRSET /MCGROUP NAME=$Colours\n  VARIABLES=" + std::string(64, 'a') +
                                              "\n            " + std::string(64, 'b') + ".\n");
}

TEST(SetCommandTest, TextsAreQuotedWithWhatTheyDoNotHold) {
  const std::vector<std::pair<std::string, std::string>> rows = {
      {"plain", "'plain'"},
      {"it's", "\"it's\""},
      {"say \"tea\"", "'say \"tea\"'"},
      {"it's \"tea\"", "'it''s \"tea\"'"},
      {"'", "\"'\""},
      {"/* no comment", "'/* no comment'"},
      {"ends.", "'ends.'"},
      {" ", "' '"},
  };
  for (const auto& [label, written] : rows) {
    StoredSet set = Category();
    set.label = label;
    EXPECT_EQ(CommandThatMakes(set, false),
              "MRSET /MCGROUP NAME=$Colours\n  LABEL=" + written + "\n  VARIABLES=t1 t2.\n");
  }
}

TEST(SetCommandTest, ACountedValueIsANumberOnlyAsOneOfNumericVariables) {
  struct Row {
    std::string value;
    bool numeric;
    std::string written;
  };
  const std::vector<Row> rows = {
      {"1", true, "1"},
      {"1", false, "'1'"},
      {"-1.50", true, "-1.50"},
      {"+1e3", true, "+1e3"},
      {".5", true, ".5"},
      {"1.", true, "'1.'"},
      {"1 2", true, "'1 2'"},
      {" 1", true, "' 1'"},
      {"yes", true, "'yes'"},
      {"$a", true, "'$a'"},
      {"1 /DELETE NAME=ALL", true, "'1 /DELETE NAME=ALL'"},
      {"1 /* open", true, "'1 /* open'"},
      {"1'", true, "\"1'\""},
  };
  for (const Row& row : rows) {
    StoredSet set = Dichotomy();
    set.countedValue = row.value;
    EXPECT_EQ(CommandThatMakes(set, row.numeric),
              "MRSET /MDGROUP NAME=$drinks\n  LABEL='Drinks'\n  VARIABLES=q1 q2\n  VALUE=" + row.written + ".\n");
  }
}

TEST(SetCommandTest, WhatStandsInTheWayOfACommandIsSaid) {
  struct Row {
    void (*change)(StoredSet& set);
    std::string reason;
  };
  const std::vector<Row> rows = {
      {[](StoredSet&) {}, ""},
      {[](StoredSet& set) { set.label = std::string(255, 'x'); }, ""},
      {[](StoredSet& set) { set.label = "a\rb\tc\x1b"; }, ""},
      {[](StoredSet& set) { set.name = "drinks"; }, "its name is not a valid name of a set."},
      {[](StoredSet& set) { set.name = "$a /DELETE NAME=[x]"; }, "its name is not a valid name of a set."},
      {[](StoredSet& set) { set.name = ""; }, "its name is not a valid name of a set."},
      {[](StoredSet& set) { set.name = "$a\xFF"; }, "its name is not a valid name of a set."},
      {[](StoredSet& set) { set.label = std::string(256, 'x'); },
       "its label has 256 bytes, and a command cuts labels after 255."},
      {[](StoredSet& set) { set.label = "a\nb"; }, "its label holds a line end, which no quoted text can."},
      {[](StoredSet& set) { set.label = "a\xFF"; }, "its label is not valid UTF-8."},
      {[](StoredSet& set) { set.label = std::string("a\0b", 3); }, "its label holds a NUL character."},
      {[](StoredSet& set) { set.countedValue = "1\n"; },
       "its counted value holds a line end, which no quoted text can."},
      {[](StoredSet& set) { set.countedValue = ""; }, "it is a dichotomy set without a counted value."},
      {[](StoredSet& set) { set.type = SetType::kCategory; }, "it is a category set with a counted value."},
      {[](StoredSet& set) {
         set = Category();
         set.labelFromVariable = true;
       },
       "it is a category set that takes labels as only a dichotomy set can."},
      {[](StoredSet& set) {
         set = Category();
         set.categoryLabelsFromCountedValue = true;
       },
       "it is a category set that takes labels as only a dichotomy set can."},
      {[](StoredSet& set) {
         set.variables = {"q1", "TO", "q2"};
       },
       "TO is not a valid name of a variable."},
      {[](StoredSet& set) {
         set.variables = {"q1", "q2."};
       },
       "q2. is not a valid name of a variable."},
      {[](StoredSet& set) {
         set.variables = {"q1", "VALUE=1"};
       },
       "VALUE=1 is not a valid name of a variable."},
      {[](StoredSet& set) {
         set.variables = {"q1", "q\xFF"};
       },
       "q\xFF is not a valid name of a variable."},
  };
  for (const Row& row : rows) {
    StoredSet set = Dichotomy();
    row.change(set);
    EXPECT_EQ(WhyNoCommandMakes(set).value_or(""), row.reason);
  }
}

TEST(SetCommandTest, EachIsOneCommandOfAScript) {
  StoredSet set = Dichotomy();
  for (const char* text : {"ends.", "'ends.", "/*", "*/", "* star", "a\r", "''.", "\"'."}) {
    set.label = set.countedValue = text;
    const std::string command = CommandThatMakes(set, false);
    const std::vector<ScriptCommand> read = SplitScript(command + "\n" + command);
    ASSERT_EQ(read.size(), 2U) << command;
    EXPECT_EQ(read.front().text + ".\n", command);
  }
}

}  // namespace
}  // namespace standalone
