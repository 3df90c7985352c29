#include "tests/reference/grammar.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

#include "tests/host/letters.h"

namespace reference {
namespace {

using scripted::Token;

constexpr auto kEnd = TokenSequenceBase::kEnd;
constexpr auto kWord = TokenSequenceBase::kString;
constexpr auto kNumber = TokenSequenceBase::kNumber;
constexpr auto kQuoted = TokenSequenceBase::kQuotedString;
constexpr auto kSymbol = TokenSequenceBase::kSymbol;

// ---------------------------------------------------------------------------------------------------------------------
// Values of one token: which it may be, what is wrong with it, what it stores, and what may follow.

enum class Outcome { kStops, kGoesOn, kWarns };

struct Rule {
  bool (*isBroken)(const Token& value);
  const char* message;
  Outcome outcome;
};

struct Value {
  std::vector<TokenSequenceBase::TokenType> types;
  std::vector<std::string> words;  ///< of a word, the keywords that it must name one of; any where there is none
  const char* refusal;
  std::vector<Rule> rules;
  void (*store)(Record& record, const Token& value, const std::string& word);
};

const Value kName = {
    {kWord},
    {},
    "Unexpected MRSET name value ^1 was found.",
    {{[](const Token& value) { return value.text.substr(0, 1) != "$"; }, "The MRSET name ^1 must start with $.",
      Outcome::kStops},
     {[](const Token& value) { return value.text.size() > 64; }, "The MRSET name ^1 has more than 8 chars length",
      Outcome::kStops},
     {[](const Token& value) { return !IsValidName(value.text); }, "The MRSET name ^1 is invalid", Outcome::kStops}},
    [](Record& record, const Token& value, const std::string&) { record.fName = value.text; }};

const Value kLabel = {{kQuoted},
                      {},
                      "A quoted label string was expected. Found ^1 ..",
                      {{[](const Token& value) { return value.text.size() > 255; },
                        "The MRSET label ^1 will be truncated to a length of 255 chars.", Outcome::kWarns}},
                      [](Record& record, const Token& value, const std::string&) {
                        record.fLabel = std::string(scripted::WholeCharacters(value.text, 255));
                      }};

const Value kLabelSource = {
    {kWord},
    {"VARLABEL"},
    "The keyword VARLABEL was expected.  Found ^1...",
    {},
    [](Record& record, const Token&, const std::string&) { record.fLabelSourceVarLabel = true; }};

const Value kCategoryLabels = {{kWord},
                               {"VARLABELS", "COUNTEDVALUES"},
                               "Expected VARLABELS or COUNTEDVALUES.  Found ^1...",
                               {},
                               [](Record& record, const Token&, const std::string& word) {
                                 record.fCategoryLabelsCountedValues = word == "COUNTEDVALUES";
                               }};

const Value kCountedValue = {
    {kQuoted, kNumber},
    {},
    "The MRSET value was expected. Found ^1...",
    {{[](const Token& value) { return value.type == kNumber && !(std::floor(value.number) == value.number); },
      "The counted value ^1 is not an integer.", Outcome::kGoesOn}},
    [](Record& record, const Token& value, const std::string&) {
      record.fValue = value.text;
      record.fValueIsNumber = value.type == kNumber;
    }};

// ---------------------------------------------------------------------------------------------------------------------
// Keywords and subcommands.

enum class Takes { kOneToken, kVariableList, kSetList };

const char kNoEquals[] = "MRSET ^1 was expecting \"=\". Found ^2...";
const char kNoEqualsWithSemicolon[] = "MRSET ^1 was expecting \"=\". Found ^2...;";

struct Keyword {
  const char* name;
  Takes takes;
  const Value* value;              ///< of one token
  const char* noEquals;            ///< gets the keyword and the token in its place
  void (*forget)(Record& record);  ///< what is gone as soon as the keyword comes again, whether right or wrong
};

void ForgetNothing(Record& /*record*/) {}

const Keyword kNameKeyword = {"NAME", Takes::kOneToken, &kName, kNoEqualsWithSemicolon, ForgetNothing};
const Keyword kLabelKeyword = {"LABEL", Takes::kOneToken, &kLabel, kNoEqualsWithSemicolon, ForgetNothing};
const Keyword kVariablesKeyword = {"VARIABLES", Takes::kVariableList, nullptr, kNoEquals, [](Record& record) {
                                     record.fVariables.clear();
                                     record.fAll = false;
                                   }};
const Keyword kNamesKeyword = {"NAME", Takes::kSetList, nullptr, "Names \"=\" was expected. Found ^2...",
                               [](Record& record) {
                                 record.fNames.clear();
                                 record.fAll = false;
                               }};
const Keyword kLabelSourceKeyword = {"LABELSOURCE", Takes::kOneToken, &kLabelSource, kNoEqualsWithSemicolon,
                                     [](Record& record) { record.fLabelSourceVarLabel = false; }};
const Keyword kCategoryLabelsKeyword = {"CATEGORYLABELS", Takes::kOneToken, &kCategoryLabels, kNoEqualsWithSemicolon,
                                        [](Record& record) { record.fCategoryLabelsCountedValues = false; }};
const Keyword kValueKeyword = {"VALUE", Takes::kOneToken, &kCountedValue, kNoEquals, ForgetNothing};

struct Subcommand {
  Record::Type type;
  const char* name;
  const char* empty;
  const char* unexpected;
  std::vector<Keyword> keywords;
};

const std::vector<Subcommand> kSubcommands = {
    {Record::kMDGROUP,
     "MDGROUP",
     "Empty MDGroup found",
     "Unexpected ^1 keyword in MDGROUP subcommand.",
     {kNameKeyword, kLabelKeyword, kLabelSourceKeyword, kCategoryLabelsKeyword, kVariablesKeyword, kValueKeyword}},
    {Record::kMCGROUP,
     "MCGROUP",
     "Empty MCGroup found",
     "Unexpected ^1 keyword in MCGROUP subcommand.",
     {kNameKeyword, kLabelKeyword, kVariablesKeyword}},
    {Record::kDISPLAY,
     "DISPLAY",
     "Empty Display found",
     "Unexpected ^1 keyword in DISPLAY subcommand.",
     {kNamesKeyword}},
    {Record::kDELETE, "DELETE", "Empty Delete found", "Unexpected ^1 keyword in DELETE subcommand.", {kNamesKeyword}}};

// ---------------------------------------------------------------------------------------------------------------------
// What may follow a value of one token, by the next two tokens. The first row that fits counts.

struct Follower {
  bool (*fits)(const Token& next, const Token& second);
  bool isAccepted;
  int steps;  ///< from the value to the token that is current afterwards, and that a refusal names
};

const Follower kFollowers[] = {
    {[](const Token& next, const Token&) { return next.type == kEnd; }, true, 1},
    {[](const Token& next, const Token&) { return next.type == kSymbol && next.symbol == 11; }, true, 0},
    {[](const Token& next, const Token& second) {
       return next.type == kWord && (second.type != kSymbol || second.symbol == 3);
     },
     true, 0},
    {[](const Token& next, const Token&) { return next.type == kWord; }, false, 2},
    {[](const Token&, const Token&) { return true; }, false, 1}};

// ---------------------------------------------------------------------------------------------------------------------
// The reader.

const Subcommand& SubcommandOf(Record::Type type) {
  const auto found = std::find_if(kSubcommands.begin(), kSubcommands.end(),
                                  [type](const Subcommand& subcommand) { return subcommand.type == type; });
  if (found == kSubcommands.end()) {
    throw std::logic_error("there is no such subcommand");
  }
  return *found;
}

/// A word that begins as LABELSOURCE, by six letters, is that keyword and never LABEL; what follows them is free.
std::string FullName(const std::string& word, const std::string& keyword) {
  const bool isLabelSource = scripted::UpperCase(word).substr(0, 6) == "LABELS";
  if (isLabelSource && (keyword == "LABEL" || keyword == "LABELSOURCE")) {
    return "LABELSOURCE";
  }
  const bool isNamed = keyword != "LABELSOURCE" && NamesKeywordInAnyCase(word, keyword);
  return isNamed ? keyword : "";
}

const Keyword* KeywordNamed(const Subcommand& subcommand, const std::string& word) {
  for (const Keyword& keyword : subcommand.keywords) {
    if (FullName(word, keyword.name) == keyword.name) {
      return &keyword;
    }
  }
  return nullptr;
}

Reached Refuse(Report& report, const std::string& message, const std::string& text, int index) {
  report.Error(message, text);
  return {false, index};
}

/// The word of those that the value takes; nothing where it takes none of them.
const std::string* WordTaken(const Value& value, const Token& token) {
  static const std::string kAny;
  if (std::find(value.types.begin(), value.types.end(), token.type) == value.types.end()) {
    return nullptr;
  }
  const auto found = std::find_if(value.words.begin(), value.words.end(), [&token](const std::string& word) {
    return NamesKeywordInAnyCase(token.text, word);
  });
  if (found == value.words.end()) {
    return value.words.empty() ? &kAny : nullptr;
  }
  return &*found;
}

Reached ReadFollower(const Input& input, int value, Report& report) {
  const int next = input.After(value);
  for (const Follower& follower : kFollowers) {
    if (follower.fits(input.At(next), input.At(input.After(next)))) {
      const int index = value + follower.steps;
      return follower.isAccepted ? Reached{true, index}
                                 : Refuse(report, "Unexpected token ^1 in this context", input.Text(index), index);
    }
  }
  throw std::logic_error("the last row fits always");
}

Reached ReadOneToken(const Input& input, const Value& value, int at, Record& record, Report& report) {
  const Token& token = input.At(at);
  const std::string* word = WordTaken(value, token);
  if (word == nullptr) {
    return Refuse(report, value.refusal, token.text, at);
  }
  value.store(record, token, *word);
  for (const Rule& rule : value.rules) {
    if (!rule.isBroken(token)) {
      continue;
    }
    if (rule.outcome == Outcome::kStops) {
      return Refuse(report, rule.message, token.text, at);
    }
    rule.outcome == Outcome::kWarns ? report.Warning(rule.message, token.text) : report.Error(rule.message, token.text);
  }
  return ReadFollower(input, at, report);
}

/// The list ends at the first token that is no word or, before a "=", at the word before it.
Reached ReadVariableListAt(const Input& input, int at, Record& record, Report& report) {
  int end = at;
  while (input.At(end).type == kWord) {
    ++end;
  }
  end -= input.At(end).symbol == 3 ? 1 : 0;
  std::vector<int> indices;
  const bool isAccepted = ReadVariableList(input.Dictionary(), input.Texts(at, end), indices, report);
  for (const int index : indices) {
    record.fVariables.push_back(input.Dictionary()[static_cast<std::size_t>(index)].name);
  }
  return {isAccepted, end - 1};
}

Reached ReadSetList(const Input& input, int at, Record& record, Report& report) {
  const Token& opening = input.At(at);
  record.fAll = opening.symbol == 35;
  if (opening.symbol != 36) {
    const bool isAccepted = record.fAll || opening.type == kSymbol;
    return isAccepted ? Reached{true, at} : Refuse(report, "Square bracket expected.", "", at);
  }
  int end = input.After(at);
  for (; input.At(end).type == kWord; ++end) {
    record.fNames.push_back(input.Text(end));
  }
  const Token& closing = input.At(end);
  if (closing.type == kSymbol && closing.symbol == 37) {
    return {true, end};
  }
  return closing.type == kEnd ? Refuse(report, "Square bracket expected.", "", end)
                              : Refuse(report, "Name or right sq bracket expected. Found ^1...", closing.text, end);
}

Reached ReadKeywordOf(const Input& input, const Keyword& keyword, int at, Record& record, Report& report) {
  keyword.forget(record);
  const int equals = input.After(at);
  if (input.Text(equals) != "=") {
    report.Error(keyword.noEquals, keyword.name, input.Text(equals));
    return {false, equals};
  }
  const int value = input.After(equals);
  switch (keyword.takes) {
    case Takes::kOneToken:
      return ReadOneToken(input, *keyword.value, value, record, report);
    case Takes::kVariableList:
      return ReadVariableListAt(input, value, record, report);
    case Takes::kSetList:
      break;
  }
  return ReadSetList(input, value, record, report);
}

}  // namespace

const scripted::Token& Input::At(int index) const {
  return index >= 0 && index < Count() ? fTokens[static_cast<std::size_t>(index)] : fEnd;
}

std::vector<std::string> Input::Texts(int begin, int end) const {
  std::vector<std::string> texts;
  for (int index = begin; index < end && index < Count(); ++index) {
    texts.push_back(Text(index));
  }
  return texts;
}

bool IsSlash(const scripted::Token& token) {
  return token.text == "/";
}

bool NamesKeywordInAnyCase(const std::string& word, const std::string& keyword) {
  return NamesKeyword(scripted::UpperCase(word), keyword);
}

Record::Type SubcommandNamed(const std::string& word) {
  const auto found = std::find_if(kSubcommands.begin(), kSubcommands.end(), [&word](const Subcommand& subcommand) {
    return NamesKeywordInAnyCase(word, subcommand.name);
  });
  return found == kSubcommands.end() ? Record::kNONE : found->type;
}

Reached ReadKeyword(const Input& input, Record::Type subcommand, const std::string& keyword, int at, Record& record,
                    Report& report) {
  const Keyword* row = KeywordNamed(SubcommandOf(subcommand), keyword);
  if (row == nullptr) {
    throw std::logic_error(keyword + " is no keyword of the subcommand");
  }
  return ReadKeywordOf(input, *row, at, record, report);
}

Reached ReadSubcommand(const Input& input, Record::Type type, int at, Record& record, Report& report) {
  const Subcommand& subcommand = SubcommandOf(type);
  Reached reached{false, at};
  int next = input.After(at);
  if (input.At(next).type == kEnd) {
    report.Error(subcommand.empty);
  }
  while (!IsSlash(input.At(next)) && input.At(next).type != kEnd) {
    const Keyword* keyword = KeywordNamed(subcommand, input.Text(next));
    reached = keyword == nullptr ? Refuse(report, subcommand.unexpected, input.Text(next), next)
                                 : ReadKeywordOf(input, *keyword, next, record, report);
    if (!reached.isAccepted) {
      return {false, reached.index - 1};
    }
    next = input.After(reached.index);
  }
  return {reached.isAccepted, next - 1};
}

}  // namespace reference
