#ifndef STANDALONE_TABULATION_GRAMMAR_TOKEN_READER_H
#define STANDALONE_TABULATION_GRAMMAR_TOKEN_READER_H

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "standalone/language/grammar.h"
#include "standalone/tabulation/grammar/tabulate_grammar.h"
#include "standalone/tabulation/tabulation_error.h"
#include "standalone/text/unicode.h"

namespace standalone {

/// Walks over tokens, the last of which is the end.
class TokenReader {
 public:
  /// The arguments must outlive the reader. `expectation`, which may be null, gets what is looked for at the end.
  TokenReader(const std::vector<Token>& tokens, std::string_view text, TabulateExpectation* expectation = nullptr)
      : fTokens(tokens), fText(text), fExpectation(expectation) {}

  const Token& Next() const { return fTokens[fNext]; }
  const Token& AfterNext(std::size_t count = 1) const { return fTokens[std::min(fNext + count, fTokens.size() - 1)]; }
  bool IsAtEnd() const { return Next().type == TokenSequenceBase::kEnd; }
  bool NextIs(std::string_view symbol) const { return IsSymbol(Next(), symbol); }

  /// Whether the next token is a word that names the keyword. ALL, which is a symbol, counts as a word here.
  bool NextNames(std::string_view keyword) const { return Names(Next(), keyword); }

  static bool Names(const Token& token, std::string_view keyword) {
    return IsAnyWord(token) && NamesKeyword(ToUpper(token.text), keyword);
  }
  static bool IsSymbol(const Token& token, std::string_view symbol) {
    return token.type == TokenSequenceBase::kSymbol && token.text == symbol;
  }
  static bool IsAnyWord(const Token& token) { return IsWord(token) || token.symbol == kAllSymbol; }
  static bool IsSetName(const Token& token) { return IsWord(token) && token.text[0] == '$'; }
  static bool IsName(const Token& token) { return IsWord(token) && token.text[0] != '$'; }
  static bool IsQuoted(const Token& token) { return token.type == TokenSequenceBase::kQuotedString; }
  static bool IsNumber(const Token& token) { return token.type == TokenSequenceBase::kNumber; }

  /// The end is not gone past.
  const Token& Take() { return fTokens[IsAtEnd() ? fNext : fNext++]; }

  bool TakeIf(std::string_view symbol) {
    const bool isThere = NextIs(symbol);
    fNext += isThere ? 1 : 0;
    return isThere;
  }

  Spoken TakeSpoken() {
    const Token& token = Take();
    return {token.text, IsQuoted(token), token.offset, token.length};
  }

  /// Says what is looked for now.
  void Expect(TabulateExpected what, const std::string& name = "") {
    if (fExpectation != nullptr && IsAtEnd()) {
      fExpectation->what = what;
      fExpectation->name = name;
    }
  }

  TabulateExpectation* Expectation() const { return fExpectation; }

  /// How many tokens are taken.
  std::size_t Position() const { return fNext; }

  /// The text as written from the first of the two offsets to the other.
  std::string Written(std::size_t begin, std::size_t end) const {
    return std::string(fText.substr(std::min(begin, fText.size()), end - std::min(begin, end)));
  }

  /// The end of the token that was taken last.
  std::size_t EndOfFormer() const { return fNext == 0 ? 0 : fTokens[fNext - 1].offset + fTokens[fNext - 1].length; }

  /// The next token as a sentence quotes it.
  std::string Quote() const { return Shortened(Next().text); }

  /// Fails where the next value, such as 1a, is read as a number and a word, which stand side by side.
  void RefuseUnquoted() const {
    const Token& word = AfterNext();
    if (IsNumber(Next()) && IsAnyWord(word) && word.offset == Next().offset + Next().length) {
      const std::string value = Shortened(Next().text + word.text);
      throw TabulationError("Put " + value + " in quotes: it is neither a number nor a name.", Next().offset,
                            Next().length + word.length);
    }
  }

  /// Fails with a sentence about the next token.
  [[noreturn]] void Fail(const std::string& sentence, const std::optional<std::string>& nearest = std::nullopt) const {
    throw TabulationError(sentence, Next().offset, Next().length, nearest);
  }

 private:
  const std::vector<Token>& fTokens;
  std::string_view fText;
  TabulateExpectation* fExpectation;
  std::size_t fNext = 0;
};

}  // namespace standalone

#endif  // STANDALONE_TABULATION_GRAMMAR_TOKEN_READER_H
