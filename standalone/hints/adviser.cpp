#include "standalone/hints/adviser.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>

#include "standalone/language/grammar.h"
#include "standalone/language/nearest_name.h"
#include "standalone/text/error.h"
#include "standalone/text/unicode.h"

namespace standalone {
namespace {

/// A dictionary with more variables is not searched: that would take longer than the command.
constexpr int kMaxVariablesSearched = 100'000;

constexpr std::string_view kCountedValueKeyword = "VALUE";

std::string NeedsEquals(std::string_view keyword) {
  return fmt::format("the keyword {} must be followed by \"=\"", keyword);
}

/// What tells one set's name from another.
std::string WithoutDollar(const std::string& setName) {
  return setName.empty() ? setName : setName.substr(1);
}

}  // namespace

std::string DidYouMean(const std::string& name) {
  return fmt::format("did you mean {}?", name);
}

std::optional<std::string> Adviser::HintOnMessage(const std::vector<std::string>& quoted) {
  if (fReading.HasEnded()) {
    return HintOnSets(quoted);
  }
  const std::optional<std::size_t> token = fReading.TokenJustRead();
  if (!token) {
    return std::nullopt;
  }
  const std::optional<std::string> missing = HintOnMissingEquals(*token);
  return missing ? missing : HintOnKeyword(*token);
}

std::optional<std::string> Adviser::HintOnKeyword(std::size_t token) const {
  const Token& word = fReading.Tokens()[token];
  if (!IsWord(word)) {
    return std::nullopt;
  }
  const std::optional<std::string> keyword = MeantWord(word.text, fReading.KeywordsTriedAt(token));
  if (!keyword) {
    return std::nullopt;
  }
  const bool suits =
      fReading.SubcommandOf(token) == token ? TakesKeywordsOf(*keyword, token) : TakesValueOf(*keyword, token);
  return suits ? std::optional(DidYouMean(*keyword)) : std::nullopt;
}

/// Whether a subcommand has all the keywords that stand in what another word begins; what is no keyword anywhere may be
/// misspelt.
bool Adviser::TakesKeywordsOf(const std::string& subcommand, std::size_t token) const {
  const std::vector<Token>& tokens = fReading.Tokens();
  const SubcommandRule* proposed = FindSubcommand(subcommand);
  const std::size_t end = fReading.EndOfSubcommand(token);
  for (std::size_t index = token + 1; proposed != nullptr && index + 1 < end; ++index) {
    const bool isKeyword = IsWord(tokens[index]) && tokens[index + 1].symbol == kEqualsSymbol;
    const std::string word = isKeyword ? ToUpper(tokens[index].text) : "";
    const std::vector<SubcommandRule>& rules = MrsetSubcommands();
    const bool isTakenByAny = isKeyword && std::any_of(rules.begin(), rules.end(), [&](const SubcommandRule& rule) {
                                return FindKeyword(rule, word) != nullptr;
                              });
    if (isTakenByAny && FindKeyword(*proposed, word) == nullptr) {
      return false;
    }
  }
  return true;
}

/// Whether a keyword takes the value after another word; what no keyword of the subcommand takes may itself be wrong.
bool Adviser::TakesValueOf(const std::string& keyword, std::size_t token) const {
  const std::vector<Token>& tokens = fReading.Tokens();
  const SubcommandRule* rule = FindSubcommand(tokens[fReading.SubcommandOf(token)].text);
  const Keyword* proposed = rule == nullptr ? nullptr : FindKeyword(*rule, keyword);
  if (proposed == nullptr || tokens[token + 1].symbol != kEqualsSymbol) {
    return true;
  }
  const Token& value = tokens[token + 2];
  return CanBeginValue(*proposed, value) ||
         std::none_of(rule->keywords.begin(), rule->keywords.end(),
                      [&](const Keyword& other) { return CanBeginValue(other, value); });
}

/// The module looks for keywords only where one may stand. So if the token before this one is a keyword that takes a
/// value, and is no value itself, "=" must follow. Where the same keyword has its "=", this one may be one too many.
std::optional<std::string> Adviser::HintOnMissingEquals(std::size_t token) const {
  const std::vector<Token>& tokens = fReading.Tokens();
  const bool mayMiss = token > 1 && fReading.TriedLast(token - 1) && tokens[token].symbol != kEqualsSymbol &&
                       tokens[token - 2].symbol != kEqualsSymbol;
  const Keyword* keyword = mayMiss ? KeywordAt(token - 1) : nullptr;
  if (keyword == nullptr || !ValuesOf(*keyword, fReading.SubcommandOf(token - 1)).empty()) {
    return std::nullopt;
  }
  return NeedsEquals(keyword->name);
}

std::optional<std::string> Adviser::HintOnUnknownVariable(std::size_t token, const ListTokens& list) {
  try {
    const Keyword* keyword = KeywordAt(token);
    const bool lacksEquals = keyword != nullptr && LacksOnlyEquals(*keyword, token, list);
    const std::optional<std::string> name = FittingVariable(token, list);
    if (lacksEquals && !name) {
      return NeedsEquals(keyword->name);
    }
    return name && !lacksEquals ? std::optional(DidYouMean(*name)) : std::nullopt;
  } catch (const Error&) {
    return std::nullopt;  // no hint is worth a failed command
  }
}

std::optional<std::string> Adviser::HintOnEnd() const {
  const std::optional<std::size_t> subcommand = fReading.EmptySubcommand();
  const SubcommandRule* rule = subcommand ? FindSubcommand(fReading.Tokens()[*subcommand].text) : nullptr;
  return rule == nullptr
             ? std::nullopt
             : std::optional(fmt::format("{} has no keywords: nothing of this command was carried out", rule->name));
}

const Keyword* Adviser::KeywordAt(std::size_t token) const {
  const std::vector<Token>& tokens = fReading.Tokens();
  const SubcommandRule* rule = FindSubcommand(tokens[fReading.SubcommandOf(token)].text);
  return rule != nullptr && IsWord(tokens[token]) ? FindKeyword(*rule, tokens[token].text) : nullptr;
}

/// What comes after the keyword and its "=" in the subcommand that begins at a token, each time.
std::vector<std::size_t> Adviser::ValuesOf(const Keyword& keyword, std::size_t subcommand) const {
  const std::vector<Token>& tokens = fReading.Tokens();
  const SubcommandRule* rule = FindSubcommand(tokens[subcommand].text);
  const std::size_t end = rule == nullptr ? subcommand : fReading.EndOfSubcommand(subcommand);
  std::vector<std::size_t> values;
  for (std::size_t token = subcommand + 1; token + 1 < end; ++token) {
    const bool mayBeKeyword = tokens[token + 1].symbol == kEqualsSymbol && IsWord(tokens[token]);
    const Keyword* found = mayBeKeyword ? FindKeyword(*rule, tokens[token].text) : nullptr;
    if (found == &keyword) {
      values.push_back(token + 2);
    }
  }
  return values;
}

/// Whether a word of a list cannot but be meant as a keyword: after it stands what only that keyword takes, and
/// nothing else of the list.
bool Adviser::LacksOnlyEquals(const Keyword& keyword, std::size_t token, const ListTokens& list) {
  const std::vector<Token>& tokens = fReading.Tokens();
  const std::size_t value = token + 1;
  const bool endsRange = token > list.begin && IsRangeWord(tokens[token - 1]);
  if (endsRange || !CanBeginValue(keyword, tokens[value]) || !ValuesOf(keyword, fReading.SubcommandOf(token)).empty()) {
    return false;
  }
  switch (keyword.value) {
    case ValueKind::kNewSetName:  // no variable's name begins as it does
      return value < list.end;
    case ValueKind::kOption:
      return value + 1 == list.end && fDataset.FindVariable(tokens[value].text) < 0;
    default:
      return true;
  }
}

/// A word that names a subcommand may rather lack its "/".
std::optional<std::string> Adviser::FittingVariable(std::size_t token, const ListTokens& list) {
  const std::vector<Token>& tokens = fReading.Tokens();
  const bool namesSubcommand = FindSubcommand(tokens[token].text) != nullptr;
  const std::optional<std::string> name = namesSubcommand ? std::nullopt : NearestVariable(tokens[token].text);
  const bool fits = name && FitsInList(fDataset, tokens, list, token, fDataset.FindVariable(*name),
                                       KindOfCountedValue(fReading.SubcommandOf(token)));
  return fits ? name : std::nullopt;
}

/// Nothing where there is no counted value, or several.
std::optional<VariableKind> Adviser::KindOfCountedValue(std::size_t subcommand) const {
  const std::vector<Token>& tokens = fReading.Tokens();
  const SubcommandRule* rule = FindSubcommand(tokens[subcommand].text);
  const Keyword* keyword = rule == nullptr ? nullptr : FindKeyword(*rule, kCountedValueKeyword);
  const std::vector<std::size_t> values =
      keyword == nullptr ? std::vector<std::size_t>() : ValuesOf(*keyword, subcommand);
  if (values.size() != 1 || !CanBeginValue(*keyword, tokens[values.front()])) {
    return std::nullopt;
  }
  const bool isNumber = tokens[values.front()].type == TokenSequenceBase::kNumber;
  return isNumber ? VariableKind::kNumeric : VariableKind::kString;
}

std::optional<std::string> Adviser::NearestVariable(const std::string& name) {
  if (fSearchesLeft-- <= 0 || fDataset.VariableCount() > kMaxVariablesSearched) {
    return std::nullopt;
  }
  NearestName nearest(name);
  fDataset.VisitVariables("", 0, [&](int /*position*/, const std::string& candidate) {
    nearest.Offer(candidate);
    return true;
  });
  return nearest.Result();
}

/// A set that was meant twice would be missing once.
std::optional<std::string> Adviser::HintOnSets(const std::vector<std::string>& names) {
  std::vector<std::optional<std::string>> nearest;
  std::transform(names.begin(), names.end(), std::back_inserter(nearest),
                 [&](const std::string& name) { return NearestSet(name); });
  std::vector<std::string> hints;
  for (std::size_t index = 0; index < names.size(); ++index) {
    if (nearest[index] && std::count(nearest.begin(), nearest.end(), nearest[index]) == 1) {
      hints.push_back(names.size() == 1 ? *nearest[index] : fmt::format("{} for {}", *nearest[index], names[index]));
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
  return found && !fReading.HoldsName(setName) ? std::optional(setName) : std::nullopt;
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
  return namesAll &&
         std::any_of(tokens.begin(), tokens.end(), [](const Token& token) { return NamesKeyword(token, "DELETE"); });
}

}  // namespace standalone
