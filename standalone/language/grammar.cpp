#include "standalone/language/grammar.h"

#include <algorithm>
#include <string>

#include "standalone/text/unicode.h"

namespace standalone {
namespace {

constexpr std::string_view kLabelSource = "LABELSOURCE";
constexpr std::size_t kLabelSourceLetters = 6;  // by which alone it is recognised

bool Names(std::string_view word, const Keyword& keyword) {
  return keyword.name == kLabelSource
             ? word.substr(0, kLabelSourceLetters) == kLabelSource.substr(0, kLabelSourceLetters)
             : NamesKeyword(word, keyword.name);
}

/// The word that the token is; empty, which names nothing, for any other token.
std::string WordOf(const Token& token) {
  return IsWord(token) ? token.text : "";
}

/// Follows a command token by token.
class Follower {
 public:
  Follower(const std::vector<Token>& tokens, std::size_t count) : fTokens(tokens), fCount(count) {}

  Expectation Follow();

 private:
  // false: fExpectation says what is expected; the command was followed to where it stops, or cannot be followed.
  bool ReadCommand();
  bool ReadSubcommand();
  bool ReadKeyword();
  bool ReadValue(const Keyword& keyword);
  bool ReadSetNames(const Keyword& keyword);
  bool ReadVariables(const Keyword& keyword);

  bool Expect(Expected what) {
    fExpectation.what = what;
    return false;
  }
  bool IsAtEnd() const { return fNext == fCount; }
  const Token& Next() const { return fTokens[fNext]; }
  bool NextIs(SymbolCode symbol) const { return !IsAtEnd() && Next().symbol == symbol; }

  const std::vector<Token>& fTokens;
  std::size_t fCount;
  std::size_t fNext = 0;
  Expectation fExpectation;
};

Expectation Follower::Follow() {
  if (ReadCommand()) {
    while (ReadSubcommand()) {
    }
  }
  return fExpectation;
}

bool Follower::ReadCommand() {
  if (IsAtEnd()) {
    return Expect(Expected::kCommand);
  }
  return NamesKeyword(fTokens[fNext++], kMrsetCommand);
}

/// The first subcommand may do without its "/"; the others were found by theirs.
bool Follower::ReadSubcommand() {
  fExpectation = {};
  fNext += NextIs(kSlashSymbol) ? 1 : 0;
  if (IsAtEnd()) {
    return Expect(Expected::kSubcommand);
  }
  fExpectation.subcommand = FindSubcommand(WordOf(fTokens[fNext++]));
  if (fExpectation.subcommand == nullptr) {
    return false;
  }
  while (!NextIs(kSlashSymbol)) {
    if (!ReadKeyword()) {
      return false;
    }
  }
  return true;
}

bool Follower::ReadKeyword() {
  if (IsAtEnd()) {
    return Expect(Expected::kKeyword);
  }
  const Keyword* keyword = FindKeyword(*fExpectation.subcommand, WordOf(fTokens[fNext++]));
  if (keyword == nullptr) {
    return false;
  }
  fExpectation.keyword = keyword;
  if (IsAtEnd()) {
    return Expect(Expected::kEquals);
  }
  if (!NextIs(kEqualsSymbol)) {
    return false;
  }
  ++fNext;
  if (!ReadValue(*keyword)) {
    return false;
  }
  fExpectation.given.push_back(keyword);
  return true;
}

bool Follower::ReadValue(const Keyword& keyword) {
  if (IsAtEnd()) {
    fExpectation.listBegin = fNext;
    return Expect(Expected::kValue);
  }
  switch (keyword.value) {
    case ValueKind::kSetNames:
      return ReadSetNames(keyword);
    case ValueKind::kVariables:
      return ReadVariables(keyword);
    case ValueKind::kNewSetName:
      return IsWord(fTokens[fNext++]);
    case ValueKind::kText:
    case ValueKind::kCountedValue:
    case ValueKind::kOption:
      break;
  }
  return CanBeginValue(keyword, fTokens[fNext++]);
}

bool Follower::ReadSetNames(const Keyword& keyword) {
  if (NextIs(kAllSymbol)) {
    ++fNext;
    return true;
  }
  if (!NextIs(kOpeningBracketSymbol)) {
    return false;
  }
  fExpectation.keyword = &keyword;
  fExpectation.listBegin = ++fNext;
  while (!IsAtEnd() && IsWord(Next())) {
    ++fNext;
  }
  if (IsAtEnd()) {
    return Expect(Expected::kSetNameInList);
  }
  return fTokens[fNext++].symbol == kClosingBracketSymbol;
}

/// A word that "=" follows is the next keyword.
bool Follower::ReadVariables(const Keyword& keyword) {
  const std::size_t begin = fNext;
  while (!IsAtEnd() && IsWord(Next())) {
    ++fNext;
  }
  if (IsAtEnd()) {
    fExpectation.keyword = &keyword;
    fExpectation.listBegin = begin;
    return Expect(Expected::kVariableInList);
  }
  if (NextIs(kEqualsSymbol) && fNext > begin) {
    --fNext;
  }
  fExpectation.variablesBegin = begin;
  fExpectation.variablesEnd = fNext;
  return true;
}

}  // namespace

const std::vector<SubcommandRule>& MrsetSubcommands() {
  static const std::vector<SubcommandRule> kRules = {
      {"MDGROUP",
       {{"NAME", ValueKind::kNewSetName},
        {kLabelSource, ValueKind::kOption, {"VARLABEL"}},
        {"LABEL", ValueKind::kText},
        {"CATEGORYLABELS", ValueKind::kOption, {"VARLABELS", "COUNTEDVALUES"}},
        {"VARIABLES", ValueKind::kVariables},
        {"VALUE", ValueKind::kCountedValue}}},
      {"MCGROUP",
       {{"NAME", ValueKind::kNewSetName}, {"LABEL", ValueKind::kText}, {"VARIABLES", ValueKind::kVariables}}},
      {"DISPLAY", {{"NAME", ValueKind::kSetNames}}},
      {"DELETE", {{"NAME", ValueKind::kSetNames}}},
  };
  return kRules;
}

Expectation ExpectedAfter(const std::vector<Token>& tokens, std::size_t count) {
  return Follower(tokens, count).Follow();
}

bool NamesKeyword(std::string_view upperCaseToken, std::string_view keyword) {
  constexpr std::size_t kShortestAbbreviation = 3;
  return upperCaseToken == keyword ||
         (upperCaseToken.size() >= kShortestAbbreviation && keyword.substr(0, upperCaseToken.size()) == upperCaseToken);
}

bool NamesCommand(std::string_view upperCaseWord) {
  return std::any_of(kCommands.begin(), kCommands.end(),
                     [=](std::string_view command) { return NamesKeyword(upperCaseWord, command); });
}

bool NamesKeyword(const Token& token, std::string_view keyword) {
  return IsWord(token) && NamesKeyword(ToUpper(token.text), keyword);
}

const SubcommandRule* FindSubcommand(std::string_view anyCase) {
  const std::string word = ToUpper(anyCase);
  const std::vector<SubcommandRule>& rules = MrsetSubcommands();
  const auto found = std::find_if(rules.begin(), rules.end(),
                                  [&](const SubcommandRule& rule) { return NamesKeyword(word, rule.name); });
  return found == rules.end() ? nullptr : &*found;
}

const Keyword* FindKeyword(const SubcommandRule& rule, std::string_view anyCase) {
  const std::string word = ToUpper(anyCase);
  const auto found = std::find_if(rule.keywords.begin(), rule.keywords.end(),
                                  [&](const Keyword& keyword) { return Names(word, keyword); });
  return found == rule.keywords.end() ? nullptr : &*found;
}

bool CanBeginValue(const Keyword& keyword, const Token& token) {
  const bool isQuoted = token.type == TokenSequenceBase::kQuotedString;
  switch (keyword.value) {
    case ValueKind::kNewSetName:
      return IsWord(token) && token.text[0] == '$';
    case ValueKind::kSetNames:
      return token.symbol == kOpeningBracketSymbol || token.symbol == kAllSymbol;
    case ValueKind::kText:
      return isQuoted;
    case ValueKind::kCountedValue:
      return isQuoted || token.type == TokenSequenceBase::kNumber;
    case ValueKind::kVariables:
      return IsWord(token) && token.text[0] != '$';
    case ValueKind::kOption:
      break;
  }
  return std::any_of(keyword.options.begin(), keyword.options.end(),
                     [&](std::string_view option) { return NamesKeyword(token, option); });
}

bool IsRangeWord(const Token& token) {
  return IsWord(token) && CompareNoCase(token.text, "TO") == 0;
}

}  // namespace standalone
