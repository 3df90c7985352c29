#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "standalone/dataset/dataset_writer.h"
#include "tests/standalone/hints/command_run.h"

namespace standalone {
namespace {

class MessagePlaces : public CommandRunTest {};

/// The command with the message's place between "<" and ">".
std::string WithPlace(std::string command, const Message& message) {
  if (message.place) {
    command.insert(message.place->offset + message.place->size, ">");
    command.insert(message.place->offset, "<");
  }
  return command;
}

/// A command, marked where its first message belongs, and that message.
struct Row {
  std::string marked;
  std::string text;
};

class Rows : public CommandRunTest {
 protected:
  static void Expect(const std::vector<Row>& rows) {
    for (const Row& row : rows) {
      std::string command = row.marked;
      command.erase(std::remove(command.begin(), command.end(), '<'), command.end());
      command.erase(std::remove(command.begin(), command.end(), '>'), command.end());
      const std::vector<Message> messages = MessagesOf(command);
      ASSERT_FALSE(messages.empty()) << command;
      EXPECT_EQ(messages.front().text, row.text) << command;
      EXPECT_EQ(WithPlace(command, messages.front()), row.marked);
    }
  }
};

using MessagesOfTheHost = Rows;

TEST_F(MessagesOfTheHost, StandAtTheirCulprit) {
  Expect({
      {"<FREQUENCIES> q1", "Line 1: FREQUENCIES is not a command. The commands here are MRSET and TABULATE."},
      {"</>DISPLAY", "Line 1: / is not a command. The commands here are MRSET and TABULATE."},
      {"MRSET /DELETE NAME=[<\xFF>]", "Line 1: The command is not valid UTF-8."},
      {"MRSET\n /MCGROUP LABEL=<'a''b> \n NAME=$a", "Line 2: A string is not closed on its line."},
      {std::string("MRSET <\0>", 9), "Line 1: The command holds a NUL character."},
      {"MRSET /MCGROUP NAME=$a VARIABLES=q1 <nosuch> q2", "The variable nosuch is not in the dataset."},
      {"MRSET /MCGROUP NAME=$a VARIABLES=q1 TO <nosuch>", "The variable nosuch is not in the dataset."},
      {"MRSET /MCGROUP NAME=$a VARIABLES=q1 q2 <Q1>", "The variable q1 is listed twice."},
      {"MRSET /MCGROUP NAME=$a VARIABLES=q2 <q1> TO q3", "The variable q2 is listed twice."},
      {"MRSET /MCGROUP NAME=$a VARIABLES=<q3> TO q1",
       "The range q3 TO q1 is reversed: q3 comes after q1 in the dataset."},
      {"MRSET /MCGROUP NAME=$a VARIABLES=q1 <TO>", "The range q1 TO has no end."},
  });
}

using MessagesOnWhatWasJustRead = Rows;

TEST_F(MessagesOnWhatWasJustRead, StandAtTheCurrentToken) {
  Expect({
      {"MRSET<>", "No subcommand in MRSET command."},
      {"MRSET /<>", "Invalid MRSET subcommand. Found end of command .."},
      {"MRSET /<SHOW> NAME=ALL", "Invalid MRSET subcommand. Found SHOW .."},
      {"MRSET <NAME>=ALL", "Invalid MRSET subcommand. Found NAME .."},
      {"MRSET /* /SHOW */ /\n<SHOW>", "Invalid MRSET subcommand. Found SHOW .."},
      {"MRSET /DISPLAY<>", "Empty Display found"},
      {"MRSET /DISPLAY NAME=ALL /DELETE<>", "Empty Delete found"},
      {"MRSET /MDGROUP<>", "Empty MDGroup found"},
      {"MRSET /MCGROUP<>", "Empty MCGroup found"},
      {"MRSET /MDGROUP <x>=1", "Unexpected x keyword in MDGROUP subcommand."},
      {"MRSET /MCGROUP NAME=$a <VALUE>=1", "Unexpected VALUE keyword in MCGROUP subcommand."},

      {"MRSET /DISPLAY <LABEL>=ALL", "Unexpected LABEL keyword in DISPLAY subcommand."},
      {"MRSET /DELETE <5>", "Unexpected 5 keyword in DELETE subcommand."},
      {"MRSET /MDGROUP NAME <$a>", "MRSET NAME was expecting \"=\". Found $a...;"},
      {"MRSET /MDGROUP NAME<>", "MRSET NAME was expecting \"=\". Found end of command...;"},
      {"MRSET /MDGROUP VARIABLES <q1> q2", "MRSET VARIABLES was expecting \"=\". Found q1..."},
      {"MRSET /MDGROUP NAME=<5>", "Unexpected MRSET name value 5 was found."},
      {"MRSET /MDGROUP NAME=<a> VALUE=1", "The MRSET name a must start with $."},
      {"MRSET /MDGROUP NAME=<$a.> VALUE=1", "The MRSET name $a. is invalid"},
      {"MRSET /MDGROUP NAME=<$" + std::string(64, 'n') + "> VALUE=1",
       "The MRSET name $" + std::string(64, 'n') + " has more than 8 chars length"},
      {"MRSET /MDGROUP NAME=$a <'x'>", "Unexpected token x in this context"},
      {"MRSET /MDGROUP NAME=$a LABEL<[>", "Unexpected token [ in this context"},
      {"MRSET /MCGROUP LABEL=<x>", "A quoted label string was expected. Found x .."},
      {"MRSET /MCGROUP LABEL=<'" + std::string(300, 'x') + "'> NAME=$a VARIABLES=q1 q2",
       "The MRSET label " + std::string(300, 'x') + " will be truncated to a length of 255 chars."},
      {"MRSET /MDGROUP LABELSOURCE=<x>", "The keyword VARLABEL was expected.  Found x..."},
      {"MRSET /MDGROUP CATEGORYLABELS=<'VARLABELS'>", "Expected VARLABELS or COUNTEDVALUES.  Found VARLABELS..."},
      {"MRSET /MDGROUP VALUE=<x>", "The MRSET value was expected. Found x..."},
      {"MRSET /MDGROUP VALUE=<0.5> NAME=$a VARIABLES=q1 q2", "The counted value 0.5 is not an integer."},
      {"MRSET /DISPLAY NAME <[>$a]", "Names \"=\" was expected. Found [..."},
      {"MRSET /DISPLAY NAME=<$a>", "Square bracket expected."},
      {"MRSET /DISPLAY NAME=[$a<>", "Square bracket expected."},
      {"MRSET /DISPLAY NAME=[$a <5>]", "Name or right sq bracket expected. Found 5..."},
      {"MRSET /DISPLAY NAME=ALL <x>", "Unexpected x keyword in DISPLAY subcommand."},
  });
}

using MessagesOnASubcommand = Rows;

// The cursor stands on the subcommand's last token by then, whatever that is.
TEST_F(MessagesOnASubcommand, StandAtTheOnlyTokenThatTheyQuoteElseAtItsKeyword) {
  Expect({
      {"MRSET /<MDGROUP> VARIABLES=q1 q2 VALUE=1 /DISPLAY NAME=ALL", "MDGROUP has no name."},
      {"MRSET <MDGROUP> VARIABLES=q1 q2 VALUE=1", "MDGROUP has no name."},
      {"MRSET /MDGROUP NAME=<$a> VALUE=1", "MDGROUP $a has no variable names."},
      {"MRSET /MDGROUP VARIABLES=q1 q2 NAME=<$a>", "MDGROUP $a has no counted value."},
      {"MRSET /<MDGROUP> NAME=$a NAME=$A VARIABLES=q1 q2", "MDGROUP $A has no counted value."},
      {"MRSET /MCGROUP NAME=<$a> LABEL='x'", "MCGROUP $a has no variable names."},
      {"MRSET /MCGROUP NAME=$a VARIABLES=<Q1>", "Only one variable q1 was found."},
      {"MRSET /DISPLAY NAME=[$a] /MCGROUP NAME=$a VARIABLES=q1 q2 <t1>", "t1 variable has a different type."},
      {"MRSET /<MCGROUP> NAME=$a VARIABLES=q1 TO t2", "t1 variable has a different type."},
      {"MRSET /MDGROUP NAME=$a VARIABLES=t1 t2 VALUE=<'longer than 5'>",
       "CountVal longer than 5 is wider than the narrowest variable."},
      {"MRSET /MDGROUP NAME=$a VALUE=1 VARIABLES=q1 <q3> CATEGORYLABELS=COUNTEDVALUES",
       "No countedval label for variable q3..."},
      {"MRSET /MDGROUP NAME=$a VALUE=1 VARIABLES=q1 <q3>", "Duplicate label found for variable q3."},
      {"MRSET /MDGROUP NAME=$a VALUE=<1> VARIABLES=q1 q2", "CountVal 1 label different in the variables."},
      {"MRSET /MDGROUP NAME=$a VALUE=<1> LABEL='1' VARIABLES=q1 q2", "CountVal 1 label different in the variables."},
      {"MRSET /MDGROUP NAME=<$a> VALUE='1' VARIABLES=q2 q3", "$a:variables are numbers and countedval is string."},
      {"MRSET /MDGROUP NAME=<$a> VALUE=1 VARIABLES=t1 t2", "$a:variables are string and countedval is number."},
      {"MRSET /MDGROUP NAME=<$a> VALUE=1 VARIABLES=q2 q3 LABELSOURCE=VARLABEL",
       "$a:LABELSOURCE=VARLABEL requires CATEGORYLABELS=COUNTEDVALUES..."},
  });
}

// Neither a label nor a keyword nor its option is ever quoted.
TEST_F(MessagesOnASubcommand, StandAtNoTokenThatTheyCannotQuote) {
  Expect({
      {"MRSET /<MCGROUP> NAME=$a LABEL='t1' VARIABLES=q1 TO t2", "t1 variable has a different type."},
      {"MRSET /MCGROUP NAME=<$a> LABEL='$a'", "MCGROUP $a has no variable names."},
      {"MRSET /MDGROUP NAME=$a VALUE=1 LABEL='q3' VARIABLES=q1 <q3>", "Duplicate label found for variable q3."},
      {"MRSET /<MDGROUP> NAME=$a VALUE='$a' VARIABLES=q2 q3", "$a:variables are numbers and countedval is string."},
      {"MRSET /<MDGROUP> NAME=$a VALUE='t1' VARIABLES=region TO t2", "t1 variable has a different type."},
      {"MRSET /MDGROUP NAME=$a VALUE=1 VARIABLES=q2 q3 '/' <MDGROUP> LABEL='x'", "MDGROUP has no name."},
  });
}

/// Variables with the names of keywords and options.
class MessagesOnVariablesNamedLikeKeywords : public Rows {
 protected:
  MessagesOnVariablesNamedLikeKeywords() {
    DatasetWriter writer(kFile, true);
    writer.SetVariables({{"t1", 5, std::nullopt, {}},
                         {"label", 0, std::nullopt, {}},
                         {"t2", 5, std::nullopt, {}},
                         {"varlabels", 0, std::nullopt, {}},
                         {"t3", 5, std::nullopt, {}}});
    writer.Commit();
  }
};

TEST_F(MessagesOnVariablesNamedLikeKeywords, StandAtTheirNamesAlone) {
  Expect({
      {"MRSET /<MCGROUP> NAME=$a LABEL='x' VARIABLES=t1 TO t2", "label variable has a different type."},
      {"MRSET /MCGROUP NAME=$a LABEL='x' VARIABLES=t1 <label> t2", "label variable has a different type."},
      {"MRSET /<MDGROUP> NAME=$a CATEGORYLABELS=VARLABELS VARIABLES=t2 TO t3 VALUE='x'",
       "varlabels variable has a different type."},
      {"MRSET /MDGROUP NAME=$a CATEGORYLABELS=VARLABELS VARIABLES=t2 <varlabels> VALUE='x'",
       "varlabels variable has a different type."},
      {"MRSET /MDGROUP NAME=$a VARIABLES=<label> VALUE='x' LABEL='label'", "Only one variable label was found."},
  });
}

using MessagesOfTheApplyPhase = Rows;

TEST_F(MessagesOfTheApplyPhase, StandAtTheOnlyTokenThatTheyQuoteElseNowhere) {
  Expect({
      {"MRSET /DELETE NAME=ALL", "No MRSETs to delete"},
      {"MRSET /DISPLAY NAME=[$a]", "No MRSET to display"},
      {"MRSET /DELETE NAME=[<$a>]", "$a MRSET can not be found in the dataset."},
      {"MRSET /DELETE NAME=[$a] /DELETE NAME=[$A]", "$a MRSET can not be found in the dataset."},
      {"MRSET /MCGROUP NAME=$x VARIABLES=q1 q2 LABEL='$a' /DELETE NAME=[<$a>]",
       "$a MRSET can not be found in the dataset."},
      {"MRSET /MDGROUP NAME=$x VARIABLES=t1 t2 VALUE='$a' /DELETE NAME=[<$a>]",
       "$a MRSET can not be found in the dataset."},
      {"MRSET /MCGROUP NAME=$x VARIABLES=q1 q2 /DISPLAY NAME=[$x <$a> $b]",
       "One or more of the sets specified do not exist... $a, $b"},
  });
}

TEST_F(MessagePlaces, CountLinesAndCharacters) {
  const Message message = MessagesOf("MRSET /DISPLAY\r\n\t'é日\U0001F600' x").front();
  ASSERT_TRUE(message.place);
  EXPECT_EQ(message.place->line, 2);
  EXPECT_EQ(message.place->column, 2U);
  EXPECT_EQ(message.place->length, 5U);
}

TEST_F(MessagePlaces, OfManyMessagesAreFoundInTime) {
  std::string command = "MRSET /MDGROUP NAME=$a VALUE=1 VARIABLES=q1 q2 q3";
  for (int i = 0; i < 20000; ++i) {
    command += " /DELETE NAME=[$n" + std::to_string(i) + "]";
  }
  const std::vector<Message> messages = MessagesOf(command);
  ASSERT_EQ(messages.size(), 20002U);
  EXPECT_EQ(WithPlace(command, messages.back()), command.substr(0, command.size() - 8) + "<$n19999>]");
}

}  // namespace
}  // namespace standalone
