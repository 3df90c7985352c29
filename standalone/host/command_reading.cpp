#include "standalone/host/command_reading.h"

#include <algorithm>
#include <utility>

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

std::string KeyOf(const Token& token) {
  return token.type == TokenSequenceBase::kString ? WordKey(token.text) : ValueKey(token.text);
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

std::optional<std::size_t> CommandReading::TokenOfMessage(std::string_view quoted) const {
  if (fHasEnded) {
    return OnlyToken(quoted, 0, fTokens.size());
  }
  const std::optional<std::size_t> current = CurrentToken();
  if (!current || !fCursor->wentBack) {
    return current;
  }
  const std::size_t keyword = SubcommandOf(*current);
  const std::optional<std::size_t> culprit = OnlyToken(quoted, keyword + 1, *current + 1);
  return culprit ? culprit : keyword;
}

std::vector<std::string> CommandReading::KeywordsTriedAt(std::size_t token) const {
  return TriedLast(token) && !fTried->isNamed ? fTried->keywords : std::vector<std::string>();
}

/// A subcommand begins behind a "/" or, the first, behind the command's name.
std::size_t CommandReading::SubcommandOf(std::size_t token) const {
  if (fLastSubcommand && fLastSubcommand->first == token) {
    return fLastSubcommand->second;
  }
  std::size_t begin = token;
  while (begin > 0 && fTokens[begin].symbol != kSlashSymbol) {
    --begin;
  }
  fLastSubcommand = {token, std::min(begin + 1, fTokens.size() - 1)};
  return fLastSubcommand->second;
}

bool CommandReading::HoldsWord(std::string_view word) const {
  return !TokensWith(WordKey(word)).empty();
}

std::optional<std::size_t> CommandReading::OnlyToken(std::string_view text, std::size_t begin, std::size_t end) const {
  std::vector<std::size_t> found;
  for (const std::string& key : {WordKey(text), ValueKey(text)}) {
    const std::vector<std::size_t>& all = TokensWith(key);
    const auto first = std::lower_bound(all.begin(), all.end(), begin);
    std::copy_n(first, std::min<std::ptrdiff_t>(2, std::lower_bound(first, all.end(), end) - first),
                std::back_inserter(found));
  }
  return found.size() == 1 ? std::optional(found.front()) : std::nullopt;
}

const std::vector<std::size_t>& CommandReading::TokensWith(const std::string& key) const {
  static const std::vector<std::size_t> kNone;
  if (fTokensByKey.empty()) {
    for (std::size_t token = 0; token + 1 < fTokens.size(); ++token) {
      fTokensByKey[KeyOf(fTokens[token])].push_back(token);
    }
  }
  const auto found = fTokensByKey.find(key);
  return found == fTokensByKey.end() ? kNone : found->second;
}

}  // namespace standalone
