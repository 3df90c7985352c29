#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "standalone/dataset/dataset.h"
#include "standalone/dataset/dataset_writer.h"
#include "tests/standalone/hints/command_run.h"

namespace standalone {
namespace {

class Hints : public CommandRunTest {
 protected:
  /// The hint on the first message of a command, "" where there is none.
  static std::string HintOn(const std::string& command) {
    const std::vector<Message> messages = MessagesOf(command);
    EXPECT_FALSE(messages.empty()) << command;
    return messages.empty() ? "" : messages.front().hint.value_or("");
  }

  struct Row {
    std::string command;
    std::string hint;
  };

  static void Expect(const std::vector<Row>& rows) {
    for (const Row& row : rows) {
      EXPECT_EQ(HintOn(row.command), row.hint) << row.command;
    }
  }
};

TEST_F(Hints, ProposeTheNearestKeyword) {
  Expect({
      {"MRSTE /DISPLAY NAME=ALL", "did you mean MRSET?"},
      {"mrsets /DISPLAY NAME=ALL", "did you mean MRSET?"},
      {"MRSET /DISLPAY NAME=ALL", "did you mean DISPLAY?"},
      {"MRSET /delte NAME=[$a]", "did you mean DELETE?"},
      {"MRSET /DI NAME=ALL", "did you mean DISPLAY?"},
      {"MRSET /MDGRUOP NAME=$a", "did you mean MDGROUP?"},
      {"MRSET /MDGROUP VARAIBLES=q1 q2", "did you mean VARIABLES?"},
      {"MRSET /MCGROUP NME=$a", "did you mean NAME?"},
      {"MRSET /MCGROUP NME=", "did you mean NAME?"},
      {"MRSET /MDGROUP VALEU=1", "did you mean VALUE?"},
      {"MRSET /MGCROUP NAME=$a VARIABLES=q1 q2", "did you mean MCGROUP?"},
      {"MRSET /MDGRUOP NMAE=$a VALUE=1 /DISPLAY NAME=ALL", "did you mean MDGROUP?"},
      {"MRSET /MCGROUP VA=q1 q2", "did you mean VARIABLES?"},
      {"MRSET /MDGROUP CATEGORYLABELS=VARLABLES", "did you mean VARLABELS?"},
      {"MRSET /MDGROUP CATEGORYLABELS=CONTEDVALUE", "did you mean COUNTEDVALUES?"},
      {"MRSET /MDGROUP LABELSOURCE=VARLABLE", "did you mean VARLABEL?"},
  });
}

TEST_F(Hints, ProposeNoKeywordWhereNoneIsClearlyMeant) {
  Expect({
      {"FREQUENCIES q1", ""},
      {"'MRSTE' q1", ""},
      {"MRSET /SHOW NAME=ALL", ""},
      {"MRSET /D NAME=ALL", ""},
      {"MRSET /DE5LETE NAME=ALL", ""},
      {"MRSET /MGROUP NAME=$a", ""},  // as near to MDGROUP as to MCGROUP
      {"MRSET /MDGROUP VA=1", ""},
      {"MRSET /MGCROUP NAME=$a VARIABLES=q1 q2 VALUE=1", ""},  // MCGROUP has no VALUE
      {"MRSET /DISLPAY VARIABLES=q1 q2", ""},
      {"MRSET /MDGROUP VALEU=q1 q2", ""},
      {"MRSET /MDGROUP LABLE=$a", ""},
      {"MRSET /DISPLAY 'NAEM'=ALL", ""},
      {"MRSET /DISPLAY LABEL=ALL", ""},
      {"MRSET /MCGROUP NAME=$a VALUE=1", ""},
      {"MRSET /MDGROUP LABELSOURCE='VARLABLE'", ""},
  });
}

TEST_F(Hints, TellWhereEqualsIsMissing) {
  Expect({
      {"MRSET /MDGROUP NAME $a", "the keyword NAME must be followed by \"=\""},
      {"MRSET /MDGROUP nam", "the keyword NAME must be followed by \"=\""},
      {"MRSET /MDGROUP NAME=$a LABEL 'x'", "the keyword LABEL must be followed by \"=\""},
      {"MRSET /MDGROUP LABELSOURCE VARLABEL", "the keyword LABELSOURCE must be followed by \"=\""},
      {"MRSET /DISPLAY NAME [$a]", "the keyword NAME must be followed by \"=\""},
      {"MRSET /MCGROUP NAME=$a VARIABLES q1 q2", "the keyword VARIABLES must be followed by \"=\""},
      {"MRSET /MDGROUP NAME=$a VARIABLES=q1 q2 VALUE 1", "the keyword VALUE must be followed by \"=\""},
      {"MRSET /MDGROUP VARIABLES=q1 q2 val 1 NAME=$a", "the keyword VALUE must be followed by \"=\""},
      {"MRSET /MCGROUP VARIABLES=q1 q2 NAME $a", "the keyword NAME must be followed by \"=\""},
      {"MRSET /MCGROUP VARIABLES=q1 q2 NAME $a LABEL='x'", "the keyword NAME must be followed by \"=\""},
      {"MRSET /MDGROUP VARIABLES=t1 t2 VALUE 'red' NAME=$a", "the keyword VALUE must be followed by \"=\""},
      {"MRSET /MDGROUP NAME=$a VARIABLES=q1 q2 CAT COUNTED VALUE=1",
       "the keyword CATEGORYLABELS must be followed by \"=\""},
      {"MRSET /MDGROUP NAME=$a VARIABLES=q1 q2 LABELSOURCE VARLABEL",
       "the keyword LABELSOURCE must be followed by \"=\""},
      {"MRSET /MDGROUP NAME=$b VARIABLES=q2 q3 VALUE=1 /MDGROUP NAME=$a VARIABLES=q1 q2 VALUE 1",
       "the keyword VALUE must be followed by \"=\""},
  });
}

TEST_F(Hints, TellOfNoEqualsWhereNoneIsMissing) {
  Expect({
      {"MRSET /MDGROUP", ""},
      {"MRSET /DISPLAY", ""},
      {"MRSET /MDGROUP NAME==", ""},
      {"MRSET /MDGROUP LABELSOURCE=VAR )", ""},  // the value, not VARIABLES
      {"MRSET /DISPLAY NAME=[$a NAME )", ""},
      {"MRSET /DISPLAY NAME=$a", ""},
      {"MRSET /MCGROUP NAME=$a VARIABLES=q1 q2 VALUE 1", ""},    // MCGROUP has no VALUE
      {"MRSET /MCGROUP NAME=$a VARIABLES=q1 q2 LABEL 'x'", ""},  // the variable labels may be meant
      {"MRSET /MDGROUP NAME=$a VARIABLES=q1 value q2 VALUE=1", ""},
      {"MRSET /MDGROUP VALUE=1 NAME=$a VARIABLES=q1 q2 val 1", ""},
      {"MRSET /MDGROUP NAME=$a LABEL='a' VARIABLES=q1 q2 lab VALUE=1", ""},
      {"MRSET /MDGROUP NAME=$a VARIABLES=q1 q2 lab VALUE=1", ""},
      {"MRSET /MDGROUP NAME=$a VARIABLES=cat q1 VALUE=1", ""},
      {"MRSET /MDGROUP NAME=$a VARIABLES=lab q1 VALUE=1", ""},
      {"MRSET /MDGROUP NAME=$a VARIABLES=q1 val VALUE=1", ""},
      {"MRSET /MDGROUP VARIABLES=q1 q2 NAME q3 VALUE=1", ""},
      {"MRSET /MDGROUP VARIABLES=q1 q2 NAME $a=1", ""},
      {"MRSET /MDGROUP NAME=$a VARIABLES=q1 TO VALUE 1", ""},
      {"MRSET /MDGROUP NAME=$a VARIABLES=q1 CAT VARLABELS q2 VALUE=1", ""},
      {"MRSET /MDGROUP NAME=$a VARIABLES=q1 q2 CAT 'x' VALUE=1", ""},
      {"MRSET /MDGROUP NAME NAME=$a VARIABLES=q1 q2 VALUE=1", ""},
      {"MRSET /MDGROUP NAME=$a VALUE VARIABLES=q1 q2 VALUE=1", ""},
  });
}

TEST_F(Hints, ProposeTheNearestVariable) {
  Expect({
      {"MRSET /MCGROUP NAME=$a VARIABLES=q1 regoin", "did you mean region?"},
      {"MRSET /MCGROUP NAME=$a VARIABLES=REGIONS q1", "did you mean region?"},
      {"MRSET /MCGROUP NAME=$a VARIABLES=q1 TO satisfactoin", "did you mean satisfaction?"},
      {"MRSET /MCGROUP NAME=$a VARIABLES=q1 q4", ""},
      {"MRSET /MCGROUP NAME=$a VARIABLES=q1 qq1", ""},
      {"MRSET /MCGROUP NAME=$a VARIABLES=q1 religion", "did you mean region?"},
      {"MRSET /MCGROUP NAME=$a VARIABLES=q1 reason", ""},
      {"MRSET /MCGROUP NAME=$a VARIABLES=q1 q1", ""},
  });
}

/// The dataset with numeric drink1 to drink5, then strings topping1 to topping4, then numeric minutes and deletes.
class HintsOnLists : public Hints {
 protected:
  HintsOnLists() {
    DatasetWriter writer(kFile, true);
    std::vector<Variable> variables;
    for (const char* name : {"drink1", "drink2", "drink3", "drink4", "drink5"}) {
      variables.push_back({name, 0, std::nullopt, {}});
    }
    for (const char* name : {"topping1", "topping2", "topping3", "topping4"}) {
      variables.push_back({name, 5, std::nullopt, {}});
    }
    variables.push_back({"minutes", 0, std::nullopt, {}});
    variables.push_back({"deletes", 0, std::nullopt, {}});
    writer.SetVariables(variables);
    writer.AddCase({"1", "1", "1", "1", "1", "a", "a", "a", "a", "1", "1"});
    writer.Commit();
  }

  static void ExpectOnLists(const std::vector<Row>& rows) {
    for (const Row& row : rows) {
      EXPECT_EQ(HintOn("MRSET /MDGROUP NAME=$a VARIABLES=" + row.command), row.hint) << row.command;
    }
  }
};

TEST_F(HintsOnLists, ProposeNoVariableThatIsListed) {
  ExpectOnLists({
      {"drink1 drink2 drnk3 VALUE=1", "did you mean drink3?"},
      {"drink1 drink2 drnk2 VALUE=1", ""},
      {"drnk2 drink1 DRINK2 VALUE=1", ""},
      {"drink1 TO drink5 drnk3 VALUE=1", ""},
      {"drnk3 drink1 TO drink5 VALUE=1", ""},
      {"drink1 TO drink2 drnk3 drink4 TO drink5 VALUE=1", "did you mean drink3?"},
      {"drink2 drink1 TO drnk5 VALUE=1", ""},
      {"drink5 drnk2 TO drink4 VALUE=1", "did you mean drink2?"},
      {"drink3 drnk2 TO drink4 VALUE=1", ""},
      {"drnk2 TO nosuch drink2 VALUE=1", ""},
      {"drnk1 drnk2 drink3 VALUE=1", "did you mean drink1?"},
      {"drnk1 nosuch TO drink1 VALUE=1", ""},
      {"drnk1 drink1 TO nosuch VALUE=1", ""},
      {"drnk1 TO drnk2 drink3 VALUE=1", "did you mean drink1?"},
  });
}

TEST_F(HintsOnLists, ProposeNoVariableOfAnotherKind) {
  ExpectOnLists({
      {"drink1 toppin1 VALUE=1", ""},
      {"toppin1 drink1 VALUE=1", ""},
      {"topping1 TO toppin3 VALUE='a'", "did you mean topping3?"},
      {"topping1 minuts VALUE='a'", ""},
      {"topping1 TO topping3 minuts VALUE='a'", ""},
      {"drink1 TO minuts VALUE=1", ""},  // which would take in the strings between
      {"drink1 TO toppin2 VALUE=1", ""},
      {"drink1 toppin1 VALUE='a'", ""},
      {"drink1 minuts VALUE='a'", "did you mean minutes?"},
      {"toppin1 nosuch VALUE=1", ""},  // the counted value alone tells the kind
      {"toppin1 nosuch VALUE='a'", "did you mean topping1?"},
      {"minuts nosuch VALUE='a'", ""},
      {"minuts nosuch VALUE=1", "did you mean minutes?"},
      {"minuts nosuch VALUE=1 VALUE='a'", "did you mean minutes?"},
      {"minuts nosuch VALUE=x", "did you mean minutes?"},
      {"minuts nosuch", "did you mean minutes?"},
  });
  EXPECT_EQ(HintOn("MRSET /MCGROUP NAME=$a VARIABLES=toppin1 topping2"), "did you mean topping1?");
  EXPECT_EQ(HintOn("MRSET /MCGROUP NAME=$a VARIABLES=toppin1 drink2"), "");
}

TEST_F(HintsOnLists, ProposeNoReversedRange) {
  ExpectOnLists({
      {"drink3 TO drnk1 VALUE=1", ""},
      {"drnk3 TO drink1 VALUE=1", ""},
      {"drink3 TO drnk3 VALUE=1", ""},
      {"drnk3 TO drink5 VALUE=1", "did you mean drink3?"},
      {"drink3 TO drnk5 VALUE=1", "did you mean drink5?"},
  });
}

TEST_F(HintsOnLists, ProposeNoVariableForASubcommand) {
  ExpectOnLists({
      {"drink1 drink2 DELETE NAME=[$a]", ""},
      {"drink1 drink2 DELETS VALUE=1", "did you mean deletes?"},
  });
}

TEST_F(Hints, ProposeTheNearestSet) {
  Run("MRSET /MCGROUP NAME=$likes VARIABLES=q1 q2 /MCGROUP NAME=$Colours VARIABLES=t1 t2", false);
  Expect({
      {"MRSET /DELETE NAME=[$lieks]", "did you mean $likes?"},
      {"MRSET /DISPLAY NAME=[$colors]", "did you mean $Colours?"},
      {"MRSET /DISPLAY NAME=[$lieks $none $colors]", "did you mean $likes for $lieks, $Colours for $colors?"},
      {"MRSET /DISPLAY NAME=[$none]", ""},
      {"MRSET /DISPLAY NAME=[likes]", ""},
      {"MRSET /DISPLAY NAME=[$lieks $liks $colors]", "did you mean $Colours for $colors?"},
      {"MRSET /DISPLAY NAME=[$lieks $lieks]", ""},
  });
}

TEST_F(Hints, ProposeNoSetThatTheCommandItselfMayHaveChanged) {
  Run("MRSET /MCGROUP NAME=$likes VARIABLES=q1 q2 /MCGROUP NAME=$other VARIABLES=t1 t2", false);
  Expect({
      {"MRSET /DELETE NAME=[$likes] /DISPLAY NAME=[$lieks]", ""},
      {"MRSET /DELETE NAME=[$likes] /DELETE NAME=[$likes]", ""},
      {"MRSET /MCGROUP NAME=$likez VARIABLES=q1 q2 /DISPLAY NAME=[$likex]", ""},
      {"MRSET /DELETE NAME=ALL /DELETE NAME=[$lieks]", ""},
      {"MRSET /DISPLAY NAME=ALL /DELETE NAME=[$lieks]", ""},  // cautious: there is a DELETE and an ALL
      {"MRSET /DELETE NAME=[$other] /DISPLAY NAME=[$lieks]", "did you mean $likes?"},
  });
}

using HintsOfTheCommand = CommandRunTest;

// The module gives such a command up without a message.
TEST_F(HintsOfTheCommand, NameTheSubcommandWithoutKeywords) {
  struct CommandRow {
    std::string command;
    std::vector<std::string> hints;
  };
  const auto isEmpty = [](const std::string& name) {
    return std::vector<std::string>{name + " has no keywords: nothing of this command was carried out"};
  };
  const std::string define = "MRSET /MCGROUP NAME=$a VARIABLES=q1 q2 ";
  const std::vector<CommandRow> rows = {
      {"MRSET /MDGROUP /DISPLAY NAME=ALL", isEmpty("MDGROUP")},
      {"MRSET MDG /", isEmpty("MDGROUP")},
      {"MRSET /mcg\n/DISPLAY NAME=ALL", isEmpty("MCGROUP")},
      {define + "/DIS / DELETE NAME=ALL", isEmpty("DISPLAY")},
      {define + "/DISPLAY NAME=ALL /DELETE / DELETE", isEmpty("DELETE")},
      {define + "/DISPLAY '/' DISPLAY NAME=ALL", isEmpty("DISPLAY")},
      {"MRSET /MDGROUP NAME=$a VARIABLES=q1 q3 VALUE=0.5 /MCGROUP /DISPLAY NAME=ALL", isEmpty("MCGROUP")},
      {"MRSET /MDGROUP LABEL='/' DISPLAY / DELETE", {}},  // a message says why
      {"MRSET /MDGROUP x=1 /DISPLAY NAME=ALL", {}},
      {"MRSET /MDGROUP NAME=$a /DISPLAY NAME=ALL", {}},
      {"MRSET /DISPLAY NAME=ALL /", {}},
      {"MRSET / /DISPLAY", {}},
      {"MRSET /DISPLAY", {}},
      {"MRSET /DISPLAY ALL /DISPLAY", {}},
      {"MRSET /DISPLAY NAME=]", {}},
      {"MRSET /DISPLAY NAME=[] /DISPLAY NAME=ALL", {}},
      {define + "/DISPLAY NAME=ALL", {}},
  };
  for (const CommandRow& row : rows) {
    EXPECT_EQ(Run(row.command).hints, row.hints) << row.command;
  }
}

TEST_F(HintsOfTheCommand, OnASubcommandWithoutKeywordsComesWithNothingDone) {
  const Told told = Run("MRSET /MCGROUP NAME=$a VARIABLES=q1 q2 /DISPLAY /DISPLAY NAME=ALL", false);
  EXPECT_EQ(told.hints.size(), 1U);
  EXPECT_TRUE(told.items.empty());
  EXPECT_TRUE(Dataset(kFile).Sets().empty());
}

TEST_F(Hints, DoNotSearchForNamesWithoutEnd) {
  Run("MRSET /MCGROUP NAME=$likes VARIABLES=q1 q2", false);
  std::string command = "MRSET";
  for (int i = 0; i < 20; ++i) {
    command += " /DELETE NAME=[$lieks]";
  }
  const std::vector<Message> messages = MessagesOf(command);
  EXPECT_EQ(std::count_if(messages.begin(), messages.end(), [](const Message& message) { return message.hint; }), 10);
}

}  // namespace
}  // namespace standalone
