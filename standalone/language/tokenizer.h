#ifndef STANDALONE_LANGUAGE_TOKENIZER_H
#define STANDALONE_LANGUAGE_TOKENIZER_H

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "host/tokens.h"

namespace standalone {

/// Symbol codes of the command language. Every other symbol is coded above kOtherSymbols.
enum SymbolCode : int {
  kNoSymbol = 0,  ///< the token is no symbol
  kEqualsSymbol = 3,
  kSlashSymbol = 11,
  kAllSymbol = 35,
  kOpeningBracketSymbol = 36,
  kClosingBracketSymbol = 37,
  kOtherSymbols = 1000
};

struct Token {
  TokenSequenceBase::TokenType type = TokenSequenceBase::kEnd;
  std::string text;  ///< as written; of a quoted string, the text that it stands for; at the end, "end of command"
  int symbol = kNoSymbol;  ///< code of a symbol
  double number = 0;       ///< value of a number
  std::size_t offset = 0;  ///< where the token begins in the command, in bytes
  std::size_t length = 0;  ///< how many bytes of the command it takes, quotes included
};

/// Whether the token is a word: a name, a keyword, or what else is neither quoted nor a number or symbol.
inline bool IsWord(const Token& token) {
  return token.type == TokenSequenceBase::kString;
}

/// A command that cannot be read as tokens. what() is a sentence without a place; the bytes of the command that it is
/// about begin at Offset().
class TokenizerError : public std::runtime_error {
 public:
  TokenizerError(const std::string& sentence, std::size_t offset, std::size_t size)
      : std::runtime_error(sentence), fOffset(offset), fSize(size) {}
  std::size_t Offset() const { return fOffset; }
  std::size_t Size() const { return fSize; }

 private:
  std::size_t fOffset;
  std::size_t fSize;
};

/// The tokens of one command, the end of the command last. Throws TokenizerError for text that is not valid UTF-8, for
/// a NUL character and for a string that is not closed on its line.
std::vector<Token> Tokenize(std::string_view command);

/// The text as a quoted string of a command: in the quotes that it does not hold itself; in single ones, doubled
/// within, where it holds both.
std::string Quoted(const std::string& text);

}  // namespace standalone

#endif  // STANDALONE_LANGUAGE_TOKENIZER_H
