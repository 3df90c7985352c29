#include <iostream>
#include <map>
#include <set>

#include "tests/properties/generators.h"
#include "tests/properties/module_run.h"
#include "tests/properties/prediction.h"
#include "tests/properties/property.h"
#include "tests/properties/watch.h"

// What the generators reach, so that the comparison of the module with the reference cannot come to compare nothing.

namespace properties {
namespace {

/// The messages of the module that a command of sound tokens can provoke.
const std::set<std::string>& ReachableMessages() {
  static const std::set<std::string> kMessages = {
      "error: No subcommand in MRSET command.",
      "error: Invalid MRSET subcommand. Found ^1 ..",
      "error: Unexpected token ^1 in this context",
      "error: MRSET ^1 was expecting \"=\". Found ^2...;",
      "error: MRSET ^1 was expecting \"=\". Found ^2...",
      "error: Unexpected MRSET name value ^1 was found.",
      "error: The MRSET name ^1 must start with $.",
      "error: The MRSET name ^1 has more than 8 chars length",
      "error: The MRSET name ^1 is invalid",
      "error: A quoted label string was expected. Found ^1 ..",
      "warning: The MRSET label ^1 will be truncated to a length of 255 chars.",
      "error: The keyword VARLABEL was expected.  Found ^1...",
      "error: Expected VARLABELS or COUNTEDVALUES.  Found ^1...",
      "error: The MRSET value was expected. Found ^1...",
      "error: The counted value ^1 is not an integer.",
      "error: Empty MDGroup found",
      "error: Empty MCGroup found",
      "error: Empty Display found",
      "error: Empty Delete found",
      "error: Unexpected ^1 keyword in MDGROUP subcommand.",
      "error: Unexpected ^1 keyword in MCGROUP subcommand.",
      "error: Unexpected ^1 keyword in DISPLAY subcommand.",
      "error: Unexpected ^1 keyword in DELETE subcommand.",
      "error: MDGROUP has no name.",
      "error: MDGROUP ^1 has no variable names.",
      "error: MDGROUP ^1 has no counted value.",
      "error: ^1:variables are numbers and countedval is string.",
      "error: ^1:variables are string and countedval is number.",
      "error: ^1:LABELSOURCE=VARLABEL requires CATEGORYLABELS=COUNTEDVALUES...",
      "error: MCGROUP has no name.",
      "error: MCGROUP ^1 has no variable names.",
      "error: Only one variable ^1 was found.",
      "error: ^1 variable has a different type.",
      "warning: Duplicate label found for variable ^1.",
      "error: CountVal ^1 is wider than the narrowest variable.",
      "error: No countedval label for variable ^1...",
      "error: CountedVal label of variable ^1 is not unique...",
      "warning: CountVal ^1 label different in the variables.",
      "error: Names \"=\" was expected. Found ^1...",
      "error: Square bracket expected.",
      "error: Name or right sq bracket expected. Found ^1...",
      "warning: No MRSET to display",
      "warning: No MRSETs to delete",
      "warning: ^1 MRSET can not be found in the dataset.",
      "warning: One or more of the sets specified do not exist..."};
  return kMessages;
}

// The module's other messages:
//   "Begin subcommand symbol expected. Found ^1 ..."         takes an end of the command that is not at its end: soup
//                                                            and mutated sentences have some
// and those that no command provokes:
//   "Right square bracket expected. EoC found."              the end of the command is never a symbol
//   "The MRSET ^1 is not in the dataset."                    whether a set exists is not looked at while parsing
//   "No variable was found."                                 the validators refuse an empty list before
//   "^1 variable not in the dataset."                        a list's names come from the dictionary
//   "^1:LABELSOURCE=VARLABEL is invalid for an MCGROUP..."   the parser refuses the keyword

/// The assertions that a command, or what is stored, can fail.
const std::set<std::string>& ReachableAssertions() {
  static const std::set<std::string> kAssertions = {"command.Type() == TokenSequenceBase::kString",
                                                    "IsTokenEqualWith(command, std:: string(\"MRSET\"))",
                                                    "!mrSetName.empty()",
                                                    "!subcmd.fName.empty()",
                                                    "!subcmd.fNames.empty()",
                                                    "(*namesIter)[0] == '$'",
                                                    "(end - 1) == last",
                                                    "iter->GetType() != VariableSet::kVarSet"};
  return kAssertions;
}

struct Counts {
  std::size_t commands = 0;
  std::size_t accepted = 0;
  std::size_t refused = 0;
  std::size_t silent = 0;  ///< refused without a message
  std::size_t tables = 0;
  std::map<std::string, std::size_t> messages;
  std::map<std::string, std::size_t> assertions;
};

void CountMessages(const Case& example, Counts& counts) {
  const Watch watch(example);
  CaseHost host(example);
  const Outcome outcome = RunByModule(*host);
  ++(outcome.saved ? counts.accepted : counts.refused);
  counts.silent += !outcome.saved && outcome.messages.empty() ? 1 : 0;
  counts.tables += outcome.tables.size();
  for (const scripted::Message& message : host->Messages()) {
    if (!message.fromHost) {
      ++counts.messages[(message.IsError() ? "error: " : "warning: ") + message.pattern];
    }
  }
}

void Count(const Case& example, Counts& counts) {
  ++counts.commands;
  if (const auto assertion = Predict(example).Assertion()) {
    ++counts.assertions[*assertion];
  } else {
    CountMessages(example, counts);
  }
}

Counts CountStyle(Style style, std::size_t commands) {
  Counts counts;
  rc::Random random(commands);
  for (std::size_t done = 0; done < commands; ++done) {
    Dice dice(random.split());
    Count(MakeCase(style, dice), counts);
  }
  return counts;
}

std::set<std::string> KeysOf(const std::map<std::string, std::size_t>& counts) {
  std::set<std::string> keys;
  for (const auto& [key, count] : counts) {
    keys.insert(key);
  }
  return keys;
}

void Print(const char* title, const Counts& counts) {
  std::cout << title << ": " << counts.commands << " commands, " << counts.accepted << " accepted, " << counts.refused
            << " refused, " << counts.silent << " of them silently, " << counts.tables << " tables\n";
  for (const auto& list : {counts.messages, counts.assertions}) {
    for (const auto& [text, count] : list) {
      std::cout << "  " << count << "  " << text << '\n';
    }
  }
}

TEST(Statistics, SentencesProvokeEveryMessageAndBothOutcomes) {
  const Counts counts = CountStyle(Style::kSentence, 10000);
  Print("sentences", counts);
  EXPECT_EQ(KeysOf(counts.messages), ReachableMessages());
  EXPECT_GT(counts.accepted, counts.commands / 3);
  EXPECT_GT(counts.refused, counts.commands / 3);
  EXPECT_GT(counts.silent, counts.commands / 1000);
  EXPECT_GT(counts.tables, counts.commands / 10);
}

std::set<std::string> MessagesOfOddTokens() {
  std::set<std::string> messages = ReachableMessages();
  messages.insert("error: Begin subcommand symbol expected. Found ^1 ...");
  return messages;
}

TEST(Statistics, MutatedSentencesProvokeEveryMessageAndBothOutcomes) {
  const Counts counts = CountStyle(Style::kMutated, 10000);
  Print("mutated sentences", counts);
  EXPECT_EQ(KeysOf(counts.messages), MessagesOfOddTokens());
  EXPECT_GT(counts.accepted, counts.commands / 25);
  EXPECT_GT(counts.refused, counts.commands / 3);
  EXPECT_GT(counts.silent, counts.commands / 1000);
}

TEST(Statistics, SoupGetsFarAndHasBothOutcomes) {
  const Counts counts = CountStyle(Style::kSoup, 20000);
  Print("soup", counts);
  EXPECT_GT(counts.messages.size(), MessagesOfOddTokens().size() * 2 / 3);
  EXPECT_GT(counts.accepted, counts.commands / 500);
  EXPECT_GT(counts.refused, counts.commands / 3);
  EXPECT_GT(counts.silent, counts.commands / 1000);
}

TEST(Statistics, TrapsFailEveryAssertionThatCanBe) {
  const Counts counts = CountStyle(Style::kTrap, 2000);
  Print("traps", counts);
  EXPECT_EQ(KeysOf(counts.assertions), ReachableAssertions());
  for (const auto& [expression, count] : counts.assertions) {
    EXPECT_GT(count, counts.commands / 50) << expression;
  }
}

}  // namespace
}  // namespace properties
