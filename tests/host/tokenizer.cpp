#include "tests/host/tokenizer.h"

#include <cstdlib>
#include <ostream>
#include <utility>

#include "tests/host/letters.h"

namespace scripted {
namespace {

constexpr std::string_view kBlanks = " \t\r\n\f\v";

bool IsIn(std::string_view set, char character) {
  return set.find(character) != std::string_view::npos;
}

bool IsDigit(char character) {
  return character >= '0' && character <= '9';
}

bool BeginsWord(char character) {
  return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z') || IsIn("$@#_", character) ||
         static_cast<unsigned char>(character) >= 0x80;
}

bool ContinuesWord(char character) {
  return BeginsWord(character) || IsDigit(character) || character == '.';
}

std::string_view WithoutFinalPeriod(std::string_view command) {
  const std::size_t last = command.find_last_not_of(kBlanks);
  if (last == std::string_view::npos) {
    return {};
  }
  return command.substr(0, command[last] == '.' ? last : last + 1);
}

int CodeOf(const std::string& text) {
  if (text == "=") {
    return kEquals;
  }
  if (text == "/") {
    return kSlash;
  }
  if (text == "[") {
    return kOpenBracket;
  }
  if (text == "]") {
    return kCloseBracket;
  }
  if (UpperCase(text) == "ALL") {
    return kAllSets;
  }
  return kOtherSymbols + (text.empty() ? 0 : static_cast<unsigned char>(text[0]));
}

class Tokenizer {
 public:
  explicit Tokenizer(std::string_view command) : fText(command) {}

  std::vector<Token> All() {
    std::vector<Token> tokens;
    for (SkipBlanks(); fAt < fText.size(); SkipBlanks()) {
      tokens.push_back(One());
    }
    return tokens;
  }

 private:
  char At(std::size_t offset) const { return offset < fText.size() ? fText[offset] : '\0'; }

  void SkipBlanks() {
    while (fAt < fText.size() && IsIn(kBlanks, fText[fAt])) {
      ++fAt;
    }
  }

  std::string TakeUntil(std::size_t end) {
    std::string taken(fText.substr(fAt, end - fAt));
    fAt = end;
    return taken;
  }

  Token One() {
    const char first = fText[fAt];
    if (first == '\'' || first == '"') {
      return QuotedString(first);
    }
    if (const std::size_t end = NumberEnd(); end > fAt) {
      return Number(TakeUntil(end));
    }
    if (BeginsWord(first)) {
      return WordOrAll();
    }
    return Symbol(TakeUntil(fAt + 1));
  }

  Token QuotedString(char quote) {
    std::string text;
    for (++fAt; fAt < fText.size(); ++fAt) {
      if (fText[fAt] == quote && At(++fAt) != quote) {
        break;
      }
      text += fText[fAt];
    }
    return Quoted(std::move(text));
  }

  Token WordOrAll() {
    std::size_t end = fAt;
    while (ContinuesWord(At(end))) {
      ++end;
    }
    std::string text = TakeUntil(end);
    return UpperCase(text) == "ALL" ? Symbol(std::move(text)) : Word(std::move(text));
  }

  std::size_t DigitsEnd(std::size_t offset) const {
    while (IsDigit(At(offset))) {
      ++offset;
    }
    return offset;
  }

  /// The end of the number at the cursor; the cursor itself when there is none.
  std::size_t NumberEnd() const {
    const std::size_t digits = IsIn("+-", At(fAt)) && At(fAt) != '\0' ? fAt + 1 : fAt;
    if (!IsDigit(At(digits)) && !(At(digits) == '.' && IsDigit(At(digits + 1)))) {
      return fAt;
    }
    std::size_t end = DigitsEnd(digits);
    if (At(end) == '.') {
      end = DigitsEnd(end + 1);
    }
    return ExponentEnd(end);
  }

  std::size_t ExponentEnd(std::size_t offset) const {
    if (At(offset) != 'e' && At(offset) != 'E') {
      return offset;
    }
    const bool isSigned = At(offset + 1) == '+' || At(offset + 1) == '-';
    const std::size_t digits = isSigned ? offset + 2 : offset + 1;
    return IsDigit(At(digits)) ? DigitsEnd(digits) : offset;
  }

  std::string_view fText;
  std::size_t fAt = 0;
};

}  // namespace

bool operator==(const Token& first, const Token& second) {
  return first.type == second.type && first.text == second.text && first.symbol == second.symbol &&
         first.number == second.number;
}

bool operator!=(const Token& first, const Token& second) {
  return !(first == second);
}

std::ostream& operator<<(std::ostream& stream, const Token& token) {
  return stream << "{type " << token.type << ", \"" << token.text << "\", symbol " << token.symbol << ", number "
                << token.number << "}";
}

Token Word(std::string text) {
  return {TokenSequenceBase::kString, std::move(text), kNoSymbol, 0};
}

Token Quoted(std::string text) {
  return {TokenSequenceBase::kQuotedString, std::move(text), kNoSymbol, 0};
}

Token Number(std::string text) {
  const double value = std::strtod(text.c_str(), nullptr);
  return {TokenSequenceBase::kNumber, std::move(text), kNoSymbol, value};
}

Token Symbol(std::string text) {
  const int code = CodeOf(text);
  return {TokenSequenceBase::kSymbol, std::move(text), code, 0};
}

std::vector<Token> Tokenize(std::string_view command) {
  return Tokenizer(WithoutFinalPeriod(command)).All();
}

}  // namespace scripted
