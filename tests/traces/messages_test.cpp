// Every text that the module's sources hold is known for what it is, and every message was provoked.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <iostream>
#include <iterator>
#include <regex>
#include <set>

#include "tests/traces/golden.h"
#include "tests/traces/rows.h"
#include "tests/traces/source_scan.h"
#include "tests/traces/trace_texts.h"

namespace traces {
namespace {

enum class Use {
  kError,
  kWarning,
  kListWarning,       ///< its argument is a list
  kNoArgument,        ///< an empty argument of a message
  kKeywordOfMessage,  ///< the keyword that a message about a missing "=" names
  kKeyword,
  kTruncatedKeyword,
  kFixedText,
  kTextEnding,
  kDisplayPattern,
  kTitle,
  kLinkage
};

/// Where in the sources a literal of that use stands. An empty member does not matter.
struct Rule {
  const char* callee;
  std::size_t argument;
  const char* function;
  const char* assignedTo;
  Use use;
};

constexpr Rule kRules[] = {
    {"GenerateError", 0, "", "", Use::kError},
    {"GenerateError", 1, "", "", Use::kNoArgument},
    {"GenerateError", 2, "", "", Use::kNoArgument},
    {"GenerateWarning", 0, "", "", Use::kWarning},
    {"GenerateWarning", 1, "", "", Use::kNoArgument},
    {"GenerateWarning", 2, "", "", Use::kNoArgument},
    {"ReportToken", 1, "", "", Use::kError},
    {"ParseKeywords", 1, "", "", Use::kError},
    {"ParseNameKeyword", 2, "", "", Use::kError},
    {"ReadEquals", 1, "", "", Use::kKeywordOfMessage},
    {"IsTokenEqualWith", 1, "", "", Use::kKeyword},
    {"IsTruncatedTokenEqualWith", 1, "", "", Use::kTruncatedKeyword},
    {"BpComposite", 0, "WarnOfMissingSets", "", Use::kListWarning},
    {"BpComposite", 0, "WriteElementaryVariables", "", Use::kDisplayPattern},
    {"BpString", 0, "", "", Use::kFixedText},
    {"BpProcedure", 0, "", "", Use::kTitle},
    {"", 0, "GetVarSetDataType", "", Use::kFixedText},
    {"", 0, "ElementaryVariableText", "", Use::kTextEnding},
    {"", 0, "", "kNoEqualsInAttribute", Use::kError},
    {"", 0, "", "kNoEqualsInList", Use::kError},
};

bool Applies(const Rule& rule, const SourceLiteral& literal) {
  const std::string function = rule.function;
  const std::string assignedTo = rule.assignedTo;
  return literal.callee == rule.callee && literal.argument == rule.argument &&
         (function.empty() || function == NameInHead(literal.function)) &&
         (assignedTo.empty() || assignedTo == literal.assignedTo);
}

struct KnownLiteral {
  std::string place;  ///< as in "backend/mrset/mrset.cpp:10"
  std::string text;
  Use use;
};

/// The uses of a file's literals; one that no rule knows is a failure.
void Classify(const std::string& file, std::vector<KnownLiteral>& known) {
  for (const SourceLiteral& literal : ScanFile(file).literals) {
    const std::string place = file + ":" + std::to_string(literal.line);
    if (literal.text == "C" && literal.callee.empty() && literal.function.empty()) {
      known.push_back({place, literal.text, Use::kLinkage});
      continue;
    }
    const auto* rule =
        std::find_if(std::begin(kRules), std::end(kRules), [&](const Rule& one) { return Applies(one, literal); });
    if (rule == std::end(kRules)) {
      ADD_FAILURE() << place << ": what is \"" << literal.text << "\"? It is argument " << literal.argument << " of <"
                    << literal.callee << "> in <" << NameInHead(literal.function) << ">, assigned to <"
                    << literal.assignedTo << ">. A rule of this test must say how it is proven.";
      continue;
    }
    known.push_back({place, literal.text, rule->use});
  }
}

std::vector<KnownLiteral> LiteralsOfTheModule() {
  std::vector<KnownLiteral> known;
  for (const std::string& file : SourceFiles("backend/mrset")) {
    Classify(file, known);
  }
  return known;
}

bool IsMessage(Use use) {
  return use == Use::kError || use == Use::kWarning || use == Use::kListWarning;
}

std::string LevelOf(Use use) {
  return use == Use::kError ? "error" : "warning";
}

std::size_t Placeholders(const std::string& pattern) {
  return static_cast<std::size_t>(std::count(pattern.begin(), pattern.end(), '^'));
}

bool HasArguments(const IssuedMessage& message, Use use) {
  return use == Use::kListWarning ? message.arguments.size() > 1
                                  : message.arguments.size() == Placeholders(message.pattern);
}

/// Whether the traces show the message at its level with all its arguments; never at another level.
bool IsProvoked(const KnownLiteral& message, const TraceTexts& texts) {
  bool provoked = false;
  for (const IssuedMessage& issued : texts.messages) {
    if (issued.pattern == message.text) {
      EXPECT_EQ(issued.level, LevelOf(message.use)) << message.text;
      provoked = provoked || HasArguments(issued, message.use);
    }
  }
  return provoked;
}

/// The messages that only a unit test provokes, or none.
struct UnprovokedMessage {
  std::string level;
  std::string text;
  std::string file;
  std::string test;
  bool isNeverIssued = false;
};

std::vector<UnprovokedMessage> UnprovokedMessages() {
  const std::string never = "never ";
  std::vector<UnprovokedMessage> messages;
  for (const auto& row : ReadRows("tests/traces/unprovoked_messages.txt", 5)) {
    const bool isNeverIssued = row[0].compare(0, never.size(), never) == 0;
    messages.push_back({isNeverIssued ? row[0].substr(never.size()) : row[0], row[1], row[2], row[3], isNeverIssued});
  }
  return messages;
}

/// A regular expression for the pattern with any arguments, behind its level.
std::regex Shown(const UnprovokedMessage& message) {
  std::string expression = message.level + ": ";
  for (std::size_t at = 0; at < message.text.size(); ++at) {
    const char character = message.text[at];
    if (character == '^') {
      expression += ".+";
      ++at;
    } else {
      expression += std::isalnum(static_cast<unsigned char>(character)) != 0 || character == ' '
                        ? std::string(1, character)
                        : std::string("\\") + character;
    }
  }
  return std::regex(expression);
}

/// The head of a unit test given as "Suite.Name".
bool IsHeadOf(const std::string& test, const std::string& head) {
  const std::string name = "(" + std::regex_replace(test, std::regex("\\."), ", ") + ")";
  return head == "TEST" + name || head == "TEST_F" + name;
}

void ExpectUnitTestOf(const UnprovokedMessage& message) {
  const Source source = ScanFile(message.file);
  EXPECT_TRUE(std::any_of(source.functions.begin(), source.functions.end(),
                          [&](const SourceFunction& function) { return IsHeadOf(message.test, function.head); }))
      << message.file << " has no test " << message.test;
  const std::regex shown = Shown(message);
  EXPECT_TRUE(message.isNeverIssued || std::any_of(source.literals.begin(), source.literals.end(),
                                                   [&](const SourceLiteral& literal) {
                                                     return IsHeadOf(message.test, literal.function) &&
                                                            std::regex_match(literal.text, shown);
                                                   }))
      << message.test << " does not expect " << message.level << ": " << message.text;
}

const UnprovokedMessage* FindUnprovoked(const std::vector<UnprovokedMessage>& list, const KnownLiteral& message) {
  const auto found = std::find_if(list.begin(), list.end(), [&](const UnprovokedMessage& one) {
    return one.text == message.text && one.level == LevelOf(message.use);
  });
  return found == list.end() ? nullptr : &*found;
}

TEST(Messages, AreAllProvokedWithTheirLevelAndArguments) {
  const TraceTexts texts = TextsOfAllGoldens();
  const std::vector<UnprovokedMessage> unprovoked = UnprovokedMessages();
  std::set<std::string> byScenario;
  std::set<std::string> listed;
  for (const KnownLiteral& literal : LiteralsOfTheModule()) {
    if (!IsMessage(literal.use)) {
      continue;
    }
    const UnprovokedMessage* byHand = FindUnprovoked(unprovoked, literal);
    const bool isProvoked = IsProvoked(literal, texts);
    EXPECT_NE(isProvoked, byHand != nullptr)
        << literal.place << ": " << LevelOf(literal.use) << ": " << literal.text
        << (isProvoked ? ": is provoked by a scenario and yet listed as one that cannot be"
                       : ": no scenario provokes it");
    (isProvoked ? byScenario : listed).insert(LevelOf(literal.use) + ": " + literal.text);
  }
  EXPECT_EQ(listed.size(), unprovoked.size()) << "a message is listed that the sources do not hold";
  for (const UnprovokedMessage& message : unprovoked) {
    ExpectUnitTestOf(message);
  }
  const auto neverIssued = std::count_if(unprovoked.begin(), unprovoked.end(),
                                         [](const UnprovokedMessage& message) { return message.isNeverIssued; });
  std::cout << byScenario.size() + listed.size() << " messages: " << byScenario.size() << " provoked by scenarios, "
            << listed.size() - static_cast<std::size_t>(neverIssued) << " by unit tests, " << neverIssued
            << " never issued\n";
}

/// Each with its level.
std::set<std::string> MessagesOfTheModule() {
  std::set<std::string> messages;
  for (const KnownLiteral& literal : LiteralsOfTheModule()) {
    if (IsMessage(literal.use)) {
      messages.insert(LevelOf(literal.use) + ": " + literal.text);
    }
  }
  return messages;
}

/// A text of the manual as a pattern: "<set>" and its like stand for the arguments, in their order.
std::string AsPattern(const std::string& shown) {
  std::string pattern;
  int arguments = 0;
  for (std::size_t at = 0; at < shown.size(); ++at) {
    if (shown[at] == '<') {
      pattern += "^" + std::to_string(++arguments);
      at = shown.find('>', at);
    } else {
      pattern += shown[at];
    }
  }
  return pattern;
}

/// The level that the manual's text on a message begins with; empty where it does not say one.
std::string LevelInManual(const std::string& line) {
  static const std::regex kLevel(R"(\*\*(Error|Warning)\.\*\* .+)");
  std::smatch found;
  return !std::regex_match(line, found, kLevel) ? "" : found[1] == "Error" ? "error" : "warning";
}

/// Some messages under headings that follow each other, and the text that they share.
struct ManualSection {
  std::vector<std::string> patterns;
  std::string level;
  std::vector<std::string> lines;
};

std::vector<ManualSection> SectionsOfTheManual() {
  const std::string heading = "### `";
  std::vector<ManualSection> sections;
  for (const std::string& line : ReadLines(ProjectPath("docs/manual/messages.md"))) {
    if (line.compare(0, heading.size(), heading) == 0) {
      if (sections.empty() || !sections.back().lines.empty()) {
        sections.emplace_back();
      }
      sections.back().patterns.push_back(AsPattern(line.substr(heading.size(), line.size() - heading.size() - 1)));
    } else if (!sections.empty() && !line.empty()) {
      sections.back().lines.push_back(line);
    }
  }
  for (ManualSection& section : sections) {
    section.level = section.lines.empty() ? "" : LevelInManual(section.lines.front());
  }
  return sections;
}

TEST(Messages, StandInTheManualWithTheirLevelsAndNoOthers) {
  std::multiset<std::string> messages;
  for (const ManualSection& section : SectionsOfTheManual()) {
    for (const std::string& pattern : section.patterns) {
      messages.insert(section.level + ": " + pattern);
    }
  }
  const std::set<std::string> known = MessagesOfTheModule();
  std::vector<std::string> missing;
  std::vector<std::string> superfluous;
  std::set_difference(known.begin(), known.end(), messages.begin(), messages.end(), std::back_inserter(missing));
  std::set_difference(messages.begin(), messages.end(), known.begin(), known.end(), std::back_inserter(superfluous));
  EXPECT_THAT(missing, testing::IsEmpty());
  EXPECT_THAT(superfluous, testing::IsEmpty());
}

/// Whether an example of the section prints the message; the names of a list stand behind its text.
bool IsInExample(const ManualSection& section, const std::string& pattern) {
  const std::string level = section.level == "error" ? "Error" : "Warning";
  const std::regex shown = Shown({level, pattern, {}, {}});
  return std::any_of(section.lines.begin(), section.lines.end(), [&](const std::string& line) {
    return std::regex_search(line, shown, std::regex_constants::match_continuous);
  });
}

TEST(Messages, OfTheManualHaveAnExampleUnlessTheProgramDoesNotShowThem) {
  for (const ManualSection& section : SectionsOfTheManual()) {
    const bool isShown = section.lines.front().find("Not shown by `mrset`") == std::string::npos;
    for (const std::string& pattern : section.patterns) {
      EXPECT_EQ(IsInExample(section, pattern), isShown) << pattern;
    }
  }
}

TEST(Messages, NoneIsIssuedThatTheSourcesDoNotHold) {
  const std::set<std::string> known = MessagesOfTheModule();
  for (const IssuedMessage& message : TextsOfAllGoldens().messages) {
    EXPECT_EQ(known.count(message.level + ": " + message.pattern), 1U) << message.level << ": " << message.pattern;
  }
}

bool EndsOneOf(const std::set<std::string>& texts, const std::string& ending) {
  return std::any_of(texts.begin(), texts.end(), [&](const std::string& text) {
    return text.size() > ending.size() && text.compare(text.size() - ending.size(), ending.size(), ending) == 0;
  });
}

bool IsNamedByAMessage(const TraceTexts& texts, const std::string& keyword) {
  return std::any_of(texts.messages.begin(), texts.messages.end(), [&](const IssuedMessage& message) {
    return message.arguments.size() == 2 && message.arguments[0] == keyword;
  });
}

/// Whether a trace shows the text where its use puts it.
bool IsShown(const KnownLiteral& literal, const TraceTexts& texts) {
  const std::string& text = literal.text;
  switch (literal.use) {
    case Use::kNoArgument:
      return text.empty();
    case Use::kKeywordOfMessage:
      return IsNamedByAMessage(texts, text);
    case Use::kKeyword:  // symbols are compared without the host
      return text == "/" || text == "=" || texts.matchedKeywords.count(text) == 1;
    case Use::kTruncatedKeyword:
      return texts.truncatedKeywords.count(text) == 1;
    case Use::kFixedText:
      return texts.fixedTexts.count(text) == 1;
    case Use::kTextEnding:
      return EndsOneOf(texts.dataTexts, text);
    case Use::kDisplayPattern:
      return texts.displayPatterns.count(text) == 1;
    case Use::kTitle:
      return texts.procedureTitles.count(text) == 1;
    case Use::kLinkage:
    case Use::kError:
    case Use::kWarning:
    case Use::kListWarning:
      return true;
  }
  return false;
}

TEST(OtherTexts, AreAllShownByATrace) {
  const TraceTexts texts = TextsOfAllGoldens();
  const std::vector<KnownLiteral> literals = LiteralsOfTheModule();
  for (const KnownLiteral& literal : literals) {
    EXPECT_TRUE(IsShown(literal, texts)) << literal.place << ": no trace shows \"" << literal.text << "\"";
  }
  EXPECT_GT(literals.size(), 100U);
}

}  // namespace
}  // namespace traces
