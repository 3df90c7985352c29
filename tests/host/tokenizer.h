#ifndef TESTS_HOST_TOKENIZER_H
#define TESTS_HOST_TOKENIZER_H

#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

#include "host/tokens.h"

namespace scripted {

/// The symbol codes of the boundary; those of other symbols lie above kOtherSymbols.
enum SymbolCode : int {
  kNoSymbol = 0,
  kEquals = 3,
  kSlash = 11,
  kAllSets = 35,
  kOpenBracket = 36,
  kCloseBracket = 37,
  kOtherSymbols = 1000
};

/// One token, as odd as a test wants it: no member is checked against another.
struct Token {
  TokenSequenceBase::TokenType type = TokenSequenceBase::kEnd;
  std::string text;
  int symbol = kNoSymbol;
  double number = 0;
};

bool operator==(const Token& first, const Token& second);
bool operator!=(const Token& first, const Token& second);
std::ostream& operator<<(std::ostream& stream, const Token& token);

Token Word(std::string text);
Token Quoted(std::string text);

/// The value is read from the text.
Token Number(std::string text);

/// With the code of the symbol of that text: "=", "/", "[", "]", ALL in any case, or any other.
Token Symbol(std::string text);

/// The tokens of a command, without its end: words, signed numbers as written, strings in '...' or "..." with a doubled
/// quote standing for one, the all-sets symbol ALL in any case, and one-byte symbols. A period that is the last thing
/// in the command is not part of it. Bytes beyond ASCII count as letters. Nothing is an error: a string that is not
/// closed ends with the command. There are no comments.
std::vector<Token> Tokenize(std::string_view command);

}  // namespace scripted

#endif  // TESTS_HOST_TOKENIZER_H
