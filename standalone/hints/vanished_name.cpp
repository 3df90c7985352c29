#include "standalone/hints/vanished_name.h"

#include <fmt/format.h>

#include <algorithm>
#include <variant>
#include <vector>

#include "standalone/language/grammar.h"

namespace standalone {
namespace {

bool IsSymbol(const Token& token, int symbol) {
  return token.symbol == symbol;
}

/// Whether the tokens from `index` on can come after a value, but are none that names a set.
bool GoesOnAfterValue(const std::vector<Token>& tokens, std::size_t index) {
  const Token& token = tokens[index];
  const bool isKeyword = IsWord(token) && token.text[0] != '$' && IsSymbol(tokens[index + 1], kEqualsSymbol);
  return token.type == TokenSequenceBase::kEnd || IsSymbol(token, kSlashSymbol) || isKeyword;
}

/// Whether a set's name is expected at `index`, and is not there.
bool LacksName(const std::vector<Token>& tokens, std::size_t index) {
  const Expectation expected = ExpectedAfter(tokens, index);
  if (expected.what == Expected::kSetNameInList) {
    return expected.listBegin == index && IsSymbol(tokens[index], kClosingBracketSymbol);
  }
  const bool isName = expected.what == Expected::kValue && (expected.keyword->value == ValueKind::kNewSetName ||
                                                            expected.keyword->value == ValueKind::kSetNames);
  return isName && GoesOnAfterValue(tokens, index);
}

/// Where the first value, or list of them, would stand that is not there; the last token where all are.
std::size_t FirstGap(const std::vector<Token>& tokens) {
  std::size_t index = 1;
  for (; index + 1 < tokens.size(); ++index) {
    const bool isInList =
        IsSymbol(tokens[index - 1], kOpeningBracketSymbol) && IsSymbol(tokens[index], kClosingBracketSymbol);
    if (isInList || (IsSymbol(tokens[index - 1], kEqualsSymbol) && GoesOnAfterValue(tokens, index))) {
      return index;
    }
  }
  return index;
}

bool Complains(const CommandResult& result) {
  return std::any_of(result.items.begin(), result.items.end(),
                     [](const Item& item) { return std::holds_alternative<Message>(item); });
}

constexpr const char* kShellReplaces = "a shell replaces $names in a command that is not in single quotes";

std::optional<std::string> HintOn(const std::vector<Token>& tokens) {
  if (NamesKeyword(tokens[0], kTabulateCommand)) {
    const bool lacksSet = tokens[1].type == TokenSequenceBase::kEnd || IsSymbol(tokens[1], kSlashSymbol);
    return lacksSet ? std::make_optional(fmt::format("no set is named after TABULATE: {}", kShellReplaces))
                    : std::nullopt;
  }
  return LacksName(tokens, FirstGap(tokens))
             ? std::make_optional(fmt::format("no name comes after NAME=: {}", kShellReplaces))
             : std::nullopt;
}

}  // namespace

std::optional<std::string> HintOnVanishedName(const CommandResult& result) {
  if (!Complains(result)) {
    return std::nullopt;
  }
  try {
    const std::vector<Token> tokens = Tokenize(result.text);
    return tokens.size() > 1 ? HintOn(tokens) : std::nullopt;
  } catch (const TokenizerError&) {
    return std::nullopt;
  }
}

}  // namespace standalone
