#include "standalone/hints/command_reading.h"

#include <algorithm>
#include <utility>

#include "standalone/language/grammar.h"
#include "standalone/text/unicode.h"

namespace standalone {
namespace {

/// Words are looked up without regard to case, values as they are; neither is taken for the other.
std::string WordKey(std::string_view word) {
  return ToUpper(word);
}

std::string ValueKey(std::string_view value) {
  return "'" + std::string(value);
}

bool Names(const Token& token, std::string_view keyword) {
  return NamesKeyword(token, keyword);
}

}  // namespace

void CommandReading::TryKeyword(std::string_view token, std::string_view keyword, bool isNamed) {
  const std::optional<std::size_t> current = CurrentToken();
  if (!current || fHasEnded || token != ToUpper(fTokens[*current].text)) {
    return;
  }
  if (!TriedLast(*current)) {
    fTried = Tried{*current, {}, false};
  }
  fHasMessage = false;
  fTried->isNamed = fTried->isNamed || isNamed;
  fTried->keywords.emplace_back(keyword);
}

std::optional<std::size_t> CommandReading::CurrentToken() const {
  if (fCursor == nullptr || fCursor->position < 0) {
    return std::nullopt;
  }
  return static_cast<std::size_t>(fCursor->position);
}

std::optional<std::size_t> CommandReading::TokenJustRead() const {
  const std::optional<std::size_t> current = CurrentToken();
  return fHasEnded || (current && fCursor->wentBack) ? std::nullopt : current;
}

std::optional<std::size_t> CommandReading::TokenOfMessage(const std::string& quoted) const {
  if (fHasEnded) {
    const std::vector<std::size_t> names = TwoTokens(WordKey(quoted), 0, fTokens.size());
    return names.size() == 1 ? std::optional(names.front()) : std::nullopt;
  }
  const std::optional<std::size_t> current = CurrentToken();
  if (!current || !fCursor->wentBack) {
    return current;
  }
  const std::size_t keyword = SubcommandOf(*current);
  const std::optional<std::size_t> culprit = TokenQuoted(quoted, keyword + 1, *current + 1);
  return culprit ? culprit : keyword;
}

std::vector<std::string> CommandReading::KeywordsTriedAt(std::size_t token) const {
  return TriedLast(token) && !fTried->isNamed ? fTried->keywords : std::vector<std::string>();
}

/// A subcommand begins after a "/" or, the first, after the command's name.
std::size_t CommandReading::SubcommandOf(std::size_t token) const {
  if (fLastSubcommand && fLastSubcommand->first == token) {
    return fLastSubcommand->second;
  }
  std::size_t begin = token;
  while (begin > 0 && !BeginsSubcommand(begin)) {
    --begin;
  }
  fLastSubcommand = {token, std::min(begin + 1, fTokens.size() - 1)};
  return fLastSubcommand->second;
}

std::size_t CommandReading::EndOfSubcommand(std::size_t keyword) const {
  std::size_t end = keyword + 1;
  while (end + 1 < fTokens.size() && !BeginsSubcommand(end)) {
    ++end;
  }
  return std::min(end, fTokens.size() - 1);
}

std::optional<std::size_t> CommandReading::EndOfCheckedSubcommand() const {
  const std::optional<std::size_t> current = CurrentToken();
  if (fHasEnded || !current || !fCursor->wentBack) {
    return std::nullopt;
  }
  const std::size_t keyword = SubcommandOf(*current);
  if (!fLastEnd || fLastEnd->first != keyword) {
    fLastEnd = {keyword, EndOfSubcommand(keyword)};
  }
  return fLastEnd->second;
}

/// The module takes a quoted "/" for a symbol, but where a value is expected.
bool CommandReading::BeginsSubcommand(std::size_t token) const {
  const bool isQuoted = fTokens[token].type == TokenSequenceBase::kQuotedString;
  return fTokens[token].symbol == kSlashSymbol ||
         (isQuoted && fTokens[token].text == "/" && fTokens[token - 1].symbol != kEqualsSymbol);
}

/// For any other reason there would have been a message after the last keyword that was recognised.
std::optional<std::size_t> CommandReading::EmptySubcommand() const {
  const bool isSilent = !fHasEnded && fTried && fTried->isNamed && !fHasMessage;
  const bool isEmpty = isSilent && fTried->token + 1 < fTokens.size() && BeginsSubcommand(fTried->token + 1);
  return isEmpty ? std::optional(fTried->token) : std::nullopt;
}

bool CommandReading::HoldsName(std::string_view name) const {
  return !TokensWith(WordKey(name)).empty();
}

/// A text that is only a counted value may be quoted as the name of a variable that lies within a range.
std::optional<std::size_t> CommandReading::TokenQuoted(const std::string& text, std::size_t begin,
                                                       std::size_t end) const {
  const std::vector<std::size_t> names = TwoTokens(WordKey(text), begin, end);
  const std::vector<std::size_t> values = TwoTokens(ValueKey(text), begin, end);
  if (names.size() + values.size() != 1) {
    return std::nullopt;
  }
  if (!names.empty()) {
    return names.front();
  }
  return fIsVariable(text) ? std::nullopt : std::optional(values.front());
}

/// The first tokens with that key, two at most.
std::vector<std::size_t> CommandReading::TwoTokens(const std::string& key, std::size_t begin, std::size_t end) const {
  const std::vector<std::size_t>& all = TokensWith(key);
  const auto first = std::lower_bound(all.begin(), all.end(), begin);
  const auto last = std::lower_bound(first, all.end(), end);
  return {first, first + std::min<std::ptrdiff_t>(2, last - first)};
}

const std::vector<std::size_t>& CommandReading::TokensWith(const std::string& key) const {
  static const std::vector<std::size_t> kNone;
  if (fTokensByKey.empty()) {
    for (std::size_t token = 0; token + 1 < fTokens.size(); ++token) {
      if (const std::optional<std::string> found = KeyOf(token)) {
        fTokensByKey[*found].push_back(token);
      }
    }
  }
  const auto entry = fTokensByKey.find(key);
  return entry == fTokensByKey.end() ? kNone : entry->second;
}

/// Under which the token is found as a name or a counted value; nothing when it is neither.
std::optional<std::string> CommandReading::KeyOf(std::size_t token) const {
  const bool isValue = token > 1 && fTokens[token - 1].symbol == kEqualsSymbol;
  if (!IsWord(fTokens[token])) {
    return isValue && Names(fTokens[token - 2], "VALUE") ? std::optional(ValueKey(fTokens[token].text)) : std::nullopt;
  }
  const bool isKeyword = fTokens[token + 1].symbol == kEqualsSymbol;
  const bool isName = !isValue || Names(fTokens[token - 2], "NAME") || Names(fTokens[token - 2], "VARIABLES");
  return isName && !isKeyword ? std::optional(WordKey(fTokens[token].text)) : std::nullopt;
}

}  // namespace standalone
