#include "standalone/hints/vanished_name.h"

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

bool LacksName(const std::string& command) {
  try {
    const std::vector<Token> tokens = Tokenize(command);
    return tokens.size() > 1 && LacksName(tokens, FirstGap(tokens));
  } catch (const TokenizerError&) {
    return false;
  }
}

}  // namespace

std::optional<std::string> HintOnVanishedName(const CommandResult& result) {
  if (!Complains(result) || !LacksName(result.text)) {
    return std::nullopt;
  }
  return "no name comes after NAME=: a shell replaces $names in a command that is not in single quotes";
}

}  // namespace standalone
