#include "tests/fuzz/script_oracle.h"

#include <algorithm>

namespace fuzz {
namespace {

/// Takes the bytes after the first of a character; nothing where one of them is missing.
std::optional<char32_t> TakeRest(std::string_view& text, int count, char32_t code) {
  for (; count > 0; --count) {
    if (text.empty() || (static_cast<unsigned char>(text[0]) & 0xC0U) != 0x80U) {
      return std::nullopt;
    }
    code = code * 64 + (static_cast<unsigned char>(text[0]) & 0x3FU);
    text.remove_prefix(1);
  }
  return code;
}

bool IsWithin(char32_t code, char32_t first, char32_t last) {
  return code >= first && code <= last;
}

std::optional<char32_t> TakeCodePoint(std::string_view& text) {
  const auto byte = static_cast<unsigned char>(text[0]);
  text.remove_prefix(1);
  if (byte < 0x80) {
    return byte;
  }
  const int count = byte >= 0xF0 ? 3 : byte >= 0xE0 ? 2 : 1;
  if (byte < 0xC2 || byte > 0xF4) {
    return std::nullopt;
  }
  const std::optional<char32_t> code = TakeRest(text, count, byte & (0x3FU >> static_cast<unsigned>(count)));
  constexpr char32_t kSmallest[] = {0, 0x80, 0x800, 0x10000};
  const bool isCharacter = code && *code >= kSmallest[count] && *code <= 0x10FFFF && !IsWithin(*code, 0xD800, 0xDFFF);
  return isCharacter ? code : std::nullopt;
}

bool Begins(std::string_view text, std::string_view beginning) {
  return text.substr(0, beginning.size()) == beginning;
}

/// Skips a comment, which ends with "*/" or before the end of its line.
void SkipComment(std::string_view& text) {
  text.remove_prefix(2);
  while (!text.empty() && text[0] != '\n') {
    if (Begins(text, "*/")) {
      text.remove_prefix(2);
      return;
    }
    text.remove_prefix(1);
  }
}

/// False when the string that begins here is not closed on its line.
bool SkipString(std::string_view& text) {
  const char quote = text[0];
  text.remove_prefix(1);
  while (!text.empty() && text[0] != '\n') {
    const bool isQuote = text[0] == quote;
    text.remove_prefix(1);
    if (isQuote && (text.empty() || text[0] != quote)) {
      return true;
    }
    text.remove_prefix(isQuote ? 1 : 0);
  }
  return false;
}

bool Holds(std::string_view characters, char character) {
  return characters.find(character) != std::string_view::npos;
}

bool IsBlank(char character) {
  return Holds(" \t\n\v\f\r", character);
}

bool IsAsciiLetter(char character) {
  return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
}

/// A digit, or a period and a digit, after a sign or none.
bool BeginsNumber(std::string_view text) {
  text.remove_prefix(Begins(text, "+") || Begins(text, "-") ? 1 : 0);
  text.remove_prefix(Begins(text, ".") ? 1 : 0);
  return !text.empty() && text[0] >= '0' && text[0] <= '9';
}

int PositionOf(const std::string& word, const std::vector<std::string>& dictionary) {
  const auto found = std::find(dictionary.begin(), dictionary.end(), word);
  return found == dictionary.end() ? -1 : static_cast<int>(found - dictionary.begin());
}

}  // namespace

std::optional<std::vector<char32_t>> CodePoints(std::string_view text) {
  std::vector<char32_t> codes;
  while (!text.empty()) {
    const std::optional<char32_t> code = TakeCodePoint(text);
    if (!code) {
      return std::nullopt;
    }
    codes.push_back(*code);
  }
  return codes;
}

bool ActsOnTerminal(std::string_view text) {
  const std::optional<std::vector<char32_t>> codes = CodePoints(text);
  return !codes || std::any_of(codes->begin(), codes->end(), [](char32_t code) {
    return (code < 0x20 && code != '\n') || IsWithin(code, 0x7F, 0x9F) || code == 0x61C ||
           IsWithin(code, 0x200E, 0x200F) || IsWithin(code, 0x2028, 0x202E) || IsWithin(code, 0x2066, 0x2069);
  });
}

bool IsReadable(std::string_view command) {
  if (!CodePoints(command) || command.find('\0') != std::string_view::npos) {
    return false;
  }
  while (!command.empty()) {
    if (Begins(command, "/*")) {
      SkipComment(command);
    } else if (command[0] != '\'' && command[0] != '"') {
      command.remove_prefix(1);
    } else if (!SkipString(command)) {
      return false;
    }
  }
  return true;
}

std::size_t LengthOfBlanks(std::string_view text) {
  const std::size_t size = text.size();
  while (!text.empty() && (IsBlank(text[0]) || Begins(text, "/*"))) {
    if (IsBlank(text[0])) {
      text.remove_prefix(1);
    } else {
      SkipComment(text);
    }
  }
  return size - text.size();
}

std::optional<TokenSequenceBase::TokenType> TypeOfToken(std::string_view text) {
  if (text.empty()) {
    return TokenSequenceBase::kEnd;
  }
  if (static_cast<unsigned char>(text[0]) >= 0x80) {
    return std::nullopt;
  }
  if (BeginsNumber(text)) {
    return TokenSequenceBase::kNumber;
  }
  if (text[0] == '\'' || text[0] == '"') {
    return TokenSequenceBase::kQuotedString;
  }
  return IsAsciiLetter(text[0]) || Holds("$@#_", text[0]) ? TokenSequenceBase::kString : TokenSequenceBase::kSymbol;
}

std::optional<std::vector<int>> PlainVariableList(const std::vector<std::string>& words,
                                                  const std::vector<std::string>& dictionary) {
  std::vector<int> positions;
  for (std::size_t index = 0; index < words.size(); ++index) {
    const int first = PositionOf(words[index], dictionary);
    int last = first;
    if (index + 1 < words.size() && words[index + 1] == "TO") {
      index += 2;
      last = index < words.size() ? PositionOf(words[index], dictionary) : -1;
    }
    if (first < 0 || last < first) {
      return std::nullopt;
    }
    for (int position = first; position <= last; ++position) {
      if (std::find(positions.begin(), positions.end(), position) != positions.end()) {
        return std::nullopt;
      }
      positions.push_back(position);
    }
  }
  return positions;
}

}  // namespace fuzz
