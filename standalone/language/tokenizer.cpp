#include "standalone/language/tokenizer.h"

#include <cstdlib>
#include <utility>

#include "standalone/language/comments.h"
#include "standalone/text/names.h"
#include "standalone/text/number_text.h"
#include "standalone/text/unicode.h"

namespace standalone {
namespace {

char CharAt(std::string_view text, std::size_t offset) {
  return offset < text.size() ? text[offset] : '\0';
}

bool IsSign(char c) {
  return c == '+' || c == '-';
}

std::size_t EndOfDigits(std::string_view text, std::size_t offset) {
  while (IsDigit(CharAt(text, offset))) {
    ++offset;
  }
  return offset;
}

/// The end of a part of a number that is there only with digits after its `mark` bytes; `offset` when it is not there.
std::size_t EndOfPart(std::string_view text, std::size_t offset, std::size_t mark) {
  const std::size_t end = EndOfDigits(text, offset + mark);
  return end > offset + mark ? end : offset;
}

std::size_t EndOfFraction(std::string_view text, std::size_t offset) {
  return CharAt(text, offset) == '.' ? EndOfPart(text, offset, 1) : offset;
}

std::size_t EndOfExponent(std::string_view text, std::size_t offset) {
  const char c = CharAt(text, offset);
  if (c != 'e' && c != 'E') {
    return offset;
  }
  return EndOfPart(text, offset, IsSign(CharAt(text, offset + 1)) ? 2 : 1);
}

/// The end of the number at `offset`; `offset` when there is none.
std::size_t EndOfNumber(std::string_view text, std::size_t offset) {
  const std::size_t begin = IsSign(text[offset]) ? offset + 1 : offset;
  const std::size_t end = EndOfFraction(text, EndOfDigits(text, begin));
  return end == begin ? offset : EndOfExponent(text, end);
}

int CodeOfSymbol(std::string_view text, std::size_t offset) {
  switch (text[offset]) {
    case '=':
      return kEqualsSymbol;
    case '/':
      return kSlashSymbol;
    case '[':
      return kOpeningBracketSymbol;
    case ']':
      return kClosingBracketSymbol;
    default:
      return kOtherSymbols + static_cast<int>(CodePointAt(text, offset));
  }
}

/// The end of a line that ends at `offset`, without the blanks before it.
std::size_t EndOfLine(std::string_view text, std::size_t offset) {
  while (IsBlank(text[offset - 1])) {
    --offset;
  }
  return offset;
}

/// Reads the tokens of a command whose characters have been checked.
class Tokenizer {
 public:
  explicit Tokenizer(std::string_view command) : fText(command) {}

  std::vector<Token> Read();

 private:
  void SkipBlanks();
  void ReadToken();
  void ReadString();
  bool BeginsWord() const { return fText[fOffset] == '$' || BeginsNameAt(fText, fOffset); }
  Token& Add(TokenSequenceBase::TokenType type, std::string text, std::size_t end);
  Token& AddAsWritten(TokenSequenceBase::TokenType type, std::size_t end);
  void AddWord(std::size_t end);

  std::string_view fText;
  std::size_t fOffset = 0;
  std::vector<Token> fTokens;
};

std::vector<Token> Tokenizer::Read() {
  for (SkipBlanks(); fOffset < fText.size(); SkipBlanks()) {
    ReadToken();
  }
  Add(TokenSequenceBase::kEnd, "end of command", fOffset);
  return std::move(fTokens);
}

void Tokenizer::SkipBlanks() {
  while (fOffset < fText.size()) {
    if (BeginsCommentAt(fText, fOffset)) {
      fOffset = EndOfComment(fText, fOffset);
    } else if (IsBlank(fText[fOffset])) {
      ++fOffset;
    } else {
      return;
    }
  }
}

void Tokenizer::ReadToken() {
  const char c = fText[fOffset];
  const std::size_t numberEnd = EndOfNumber(fText, fOffset);
  if (BeginsWord()) {
    AddWord(EndOfName(fText, fOffset));
  } else if (numberEnd > fOffset) {
    Token& token = AddAsWritten(TokenSequenceBase::kNumber, numberEnd);
    token.number = std::strtod(token.text.c_str(), nullptr);  // infinite when it is too large
  } else if (c == '\'' || c == '"') {
    ReadString();
  } else {
    const int code = CodeOfSymbol(fText, fOffset);
    AddAsWritten(TokenSequenceBase::kSymbol, fOffset + CharacterLength(fText, fOffset)).symbol = code;
  }
}

void Tokenizer::ReadString() {
  const char quote = fText[fOffset];
  std::string value;
  std::size_t offset = fOffset + 1;
  for (; CharAt(fText, offset) != quote || CharAt(fText, offset + 1) == quote; ++offset) {
    const char c = CharAt(fText, offset);
    if (offset >= fText.size() || c == '\n') {
      throw TokenizerError("A string is not closed on its line.", fOffset, EndOfLine(fText, offset) - fOffset);
    }
    value += c;
    offset += c == quote ? 1 : 0;
  }
  Add(TokenSequenceBase::kQuotedString, std::move(value), offset + 1);
}

Token& Tokenizer::Add(TokenSequenceBase::TokenType type, std::string text, std::size_t end) {
  Token token;
  token.type = type;
  token.text = std::move(text);
  token.offset = fOffset;
  token.length = end - fOffset;
  fOffset = end;
  fTokens.push_back(std::move(token));
  return fTokens.back();
}

Token& Tokenizer::AddAsWritten(TokenSequenceBase::TokenType type, std::size_t end) {
  return Add(type, std::string(fText.substr(fOffset, end - fOffset)), end);
}

void Tokenizer::AddWord(std::size_t end) {
  Token& token = AddAsWritten(TokenSequenceBase::kString, end);
  if (CompareNoCase(token.text, "ALL") == 0) {
    token.type = TokenSequenceBase::kSymbol;
    token.symbol = kAllSymbol;
  }
}

void CheckCharacters(std::string_view command) {
  const std::size_t valid = ValidUtf8Length(command);
  if (valid < command.size()) {
    throw TokenizerError("The command is not valid UTF-8.", valid, 1);
  }
  const std::size_t nul = command.find('\0');
  if (nul != std::string_view::npos) {
    throw TokenizerError("The command holds a NUL character.", nul, 1);
  }
}

}  // namespace

std::vector<Token> Tokenize(std::string_view command) {
  CheckCharacters(command);
  return Tokenizer(command).Read();
}

std::string Quoted(const std::string& text) {
  const bool holdsSingle = text.find('\'') != std::string::npos;
  const bool holdsDouble = text.find('"') != std::string::npos;
  const char quote = holdsSingle && !holdsDouble ? '"' : '\'';
  std::string quoted(1, quote);
  for (const char c : text) {
    quoted.append(c == quote ? 2 : 1, c);
  }
  return quoted + quote;
}

}  // namespace standalone
