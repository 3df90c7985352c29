#include "standalone/host/adviser.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>

#include "standalone/language/grammar.h"
#include "standalone/language/keywords.h"
#include "standalone/language/nearest_name.h"
#include "standalone/text/unicode.h"

namespace standalone {
namespace {

/// A dictionary with more variables is not searched: that would take longer than the command.
constexpr int kMostVariablesSearched = 100'000;

std::string NeedsEquals(std::string_view keyword) {
  return fmt::format("the keyword {} needs \"=\" behind it", keyword);
}

/// The only keyword that begins with the word, which is too short to name it.
std::optional<std::string> OnlyKeywordWith(std::string_view word, const std::vector<std::string>& keywords) {
  constexpr std::size_t kShortest = 2;
  const auto beginsWithWord = [&](const std::string& keyword) { return keyword.compare(0, word.size(), word) == 0; };
  if (word.size() < kShortest || std::count_if(keywords.begin(), keywords.end(), beginsWithWord) != 1) {
    return std::nullopt;
  }
  return *std::find_if(keywords.begin(), keywords.end(), beginsWithWord);
}

std::optional<std::string> NearestOf(const std::string& name, const std::vector<std::string>& candidates) {
  NearestName nearest(name);
  for (const std::string& candidate : candidates) {
    nearest.Offer(candidate);
  }
  return nearest.Result();
}

/// What tells one set's name from another.
std::string WithoutDollar(const std::string& setName) {
  return setName.empty() ? setName : setName.substr(1);
}

bool IsWord(const Token& token) {
  return token.type == TokenSequenceBase::kString;
}

}  // namespace

std::string DidYouMean(const std::string& name) {
  return fmt::format("did you mean {}?", name);
}

std::optional<std::string> NearestKeyword(const std::string& word, const std::vector<std::string>& keywords) {
  const std::optional<std::string> only = OnlyKeywordWith(ToUpper(word), keywords);
  return only ? only : NearestOf(word, keywords);
}

std::optional<std::string> Adviser::OnMessage(const std::vector<std::string>& quoted) {
  if (fReading.HasEnded()) {
    return OnSets(quoted);
  }
  const std::optional<std::size_t> token = fReading.TokenJustRead();
  if (!token) {
    return std::nullopt;
  }
  const std::optional<std::string> missing = OnMissingEquals(*token);
  return missing ? missing : OnKeyword(*token);
}

std::optional<std::string> Adviser::OnKeyword(std::size_t token) const {
  const Token& word = fReading.Tokens()[token];
  if (!IsWord(word)) {
    return std::nullopt;
  }
  const std::optional<std::string> keyword = NearestKeyword(word.text, fReading.KeywordsTriedAt(token));
  return keyword ? std::optional(DidYouMean(*keyword)) : std::nullopt;
}

/// The module looks for keywords only where one may stand. So if the token before this one is a keyword that takes a
/// value, and is no value itself, "=" must follow.
std::optional<std::string> Adviser::OnMissingEquals(std::size_t token) const {
  const std::vector<Token>& tokens = fReading.Tokens();
  const bool mayMiss = token > 1 && fReading.TriedLast(token - 1) && tokens[token].symbol != kEqualsSymbol &&
                       tokens[token - 2].symbol != kEqualsSymbol;
  const std::optional<std::string_view> keyword = mayMiss ? KeywordWithValueAt(token - 1) : std::nullopt;
  return keyword ? std::optional(NeedsEquals(*keyword)) : std::nullopt;
}

std::optional<std::string> Adviser::OnUnknownVariable(std::size_t token) {
  const std::optional<std::string_view> keyword = KeywordWithValueAt(token);
  const std::optional<std::string> name = NearestVariable(fReading.Tokens()[token].text);
  if (keyword && !name) {
    return NeedsEquals(*keyword);
  }
  return name && !keyword ? std::optional(DidYouMean(*name)) : std::nullopt;
}

std::optional<std::string_view> Adviser::KeywordWithValueAt(std::size_t token) const {
  const std::vector<Token>& tokens = fReading.Tokens();
  if (!IsWord(tokens[token])) {
    return std::nullopt;
  }
  return KeywordWithValue(ToUpper(tokens[fReading.SubcommandOf(token)].text), ToUpper(tokens[token].text));
}

std::optional<std::string> Adviser::NearestVariable(const std::string& name) {
  if (fSearchesLeft-- <= 0 || fDataset.VariableCount() > kMostVariablesSearched) {
    return std::nullopt;
  }
  NearestName nearest(name);
  try {
    fDataset.VisitVariableNames([&](std::string_view candidate) { nearest.Offer(candidate); });
  } catch (const DatasetError&) {
    return std::nullopt;  // no hint is worth a failed command
  }
  return nearest.Result();
}

std::optional<std::string> Adviser::OnSets(const std::vector<std::string>& names) {
  std::vector<std::string> hints;
  for (const std::string& name : names) {
    if (const std::optional<std::string> nearest = NearestSet(name)) {
      hints.push_back(names.size() == 1 ? *nearest : fmt::format("{} for {}", *nearest, name));
    }
  }
  return hints.empty() ? std::nullopt : std::optional(DidYouMean(fmt::format("{}", fmt::join(hints, ", "))));
}

/// The command may itself have defined or deleted the sets that it names, so none of these is proposed, and none that
/// is no nearer than one of these.
std::optional<std::string> Adviser::NearestSet(const std::string& name) {
  if (name.empty() || name[0] != '$' || fSearchesLeft <= 0) {
    return std::nullopt;
  }
  --fSearchesLeft;
  if (IsStored(name) || DeletesAllSets()) {
    return std::nullopt;
  }
  NearestName nearest(WithoutDollar(name));
  for (const Token& token : fReading.Tokens()) {
    if (IsWord(token) && token.text[0] == '$') {
      nearest.Offer(WithoutDollar(token.text));
    }
  }
  for (const VariableSet& set : fSets) {
    nearest.Offer(WithoutDollar(set.GetName(VariableSet::kAsStored)));
  }
  const std::optional<std::string> found = nearest.Result();
  const std::string setName = "$" + found.value_or("");
  return found && !fReading.HoldsWord(setName) ? std::optional(setName) : std::nullopt;
}

bool Adviser::IsStored(const std::string& setName) const {
  return std::any_of(fSets.begin(), fSets.end(), [&](const VariableSet& set) {
    return CompareNoCase(set.GetName(VariableSet::kAsStored), setName) == 0;
  });
}

bool Adviser::DeletesAllSets() const {
  const std::vector<Token>& tokens = fReading.Tokens();
  const bool namesAll =
      std::any_of(tokens.begin(), tokens.end(), [](const Token& token) { return token.symbol == kAllSymbol; });
  return namesAll && std::any_of(tokens.begin(), tokens.end(), [](const Token& token) {
           return IsWord(token) && NamesKeyword(ToUpper(token.text), "DELETE");
         });
}

}  // namespace standalone
