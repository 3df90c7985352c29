#include "standalone/text/unicode.h"

#include <unicode/uchar.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

namespace standalone {
namespace {

constexpr std::size_t kMaxCharacterBytes = 4;
constexpr std::string_view kReplacement = "\xEF\xBF\xBD";
constexpr char32_t kReplacementCode = 0xFFFD;

/// One character of a text. A byte that begins no valid character is one of its own, with a negative code.
struct Character {
  UChar32 code;
  std::size_t length;
  bool IsValid() const { return code >= 0; }
};

bool IsAscii(char c) {
  return static_cast<unsigned char>(c) < 0x80;
}

bool IsAsciiLetter(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

char AsciiUpper(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

Character DecodeAt(std::string_view text, std::size_t offset) {
  const std::string_view window = text.substr(offset, kMaxCharacterBytes);
  const auto* bytes = reinterpret_cast<const std::uint8_t*>(window.data());
  const auto size = static_cast<std::int32_t>(window.size());
  std::int32_t length = 0;
  U8_FWD_1(bytes, length, size);
  const bool isWhole = length == 1 + U8_COUNT_TRAIL_BYTES(bytes[0]);
  if (!isWhole || !(U8_IS_SINGLE(bytes[0]) || U8_IS_LEAD(bytes[0]))) {
    return {U_SENTINEL, 1};
  }
  std::int32_t end = 0;
  UChar32 code = U_SENTINEL;
  U8_NEXT_UNSAFE(bytes, end, code);
  return {code, static_cast<std::size_t>(end)};
}

/// The first offset from `offset` on at which no ASCII character stands. Looks at eight bytes at a time.
std::size_t EndOfAscii(std::string_view text, std::size_t offset) {
  constexpr std::uint64_t kHighBits = 0x8080808080808080;
  std::uint64_t block = 0;
  for (; text.size() - offset >= sizeof block; offset += sizeof block) {
    std::memcpy(&block, text.data() + offset, sizeof block);
    if ((block & kHighBits) != 0) {
      break;
    }
  }
  while (offset < text.size() && IsAscii(text[offset])) {
    ++offset;
  }
  return offset;
}

void AppendUpper(std::string& upper, std::string_view written, UChar32 code) {
  const UChar32 mapped = code < 0 ? code : u_toupper(code);
  if (mapped == code || static_cast<std::size_t>(U8_LENGTH(mapped)) > written.size()) {
    upper += written;
    return;
  }
  std::array<char, kMaxCharacterBytes> bytes{};
  std::size_t length = 0;
  char* begin = bytes.data();
  U8_APPEND_UNSAFE(begin, length, mapped);
  upper.append(begin, length);
}

bool IsSoftHyphen(UChar32 code) {
  return code == 0xAD;
}

/// Vowels and final consonants that join the syllable before them.
bool IsJoiningJamo(UChar32 code) {
  return (code >= 0x1160 && code <= 0x11FF) || (code >= 0xD7B0 && code <= 0xD7FF);
}

bool TakesNoColumn(UChar32 code) {
  constexpr std::uint32_t kInvisible = U_GC_MN_MASK | U_GC_ME_MASK | U_GC_CF_MASK | U_GC_CC_MASK;
  return ((U_GET_GC_MASK(code) & kInvisible) != 0 && !IsSoftHyphen(code)) || IsJoiningJamo(code);
}

bool IsWide(UChar32 code) {
  const int width = u_getIntPropertyValue(code, UCHAR_EAST_ASIAN_WIDTH);
  return width == U_EA_WIDE || width == U_EA_FULLWIDTH;
}

std::size_t CharacterWidth(const Character& character) {
  if (!character.IsValid()) {
    return 1;
  }
  if (TakesNoColumn(character.code)) {
    return 0;
  }
  return IsWide(character.code) ? 2 : 1;
}

bool IsPrintableAscii(char c) {
  return c >= ' ' && c <= '~';
}

}  // namespace

bool IsValidUtf8(std::string_view text) {
  return ValidUtf8Length(text) == text.size();
}

std::size_t ValidUtf8Length(std::string_view text) {
  std::size_t offset = EndOfAscii(text, 0);
  while (offset < text.size()) {
    const Character character = DecodeAt(text, offset);
    if (!character.IsValid()) {
      return offset;
    }
    offset = EndOfAscii(text, offset + character.length);
  }
  return offset;
}

std::string ReplaceInvalidUtf8(std::string_view text) {
  std::string replaced;
  replaced.reserve(text.size());
  while (!text.empty()) {
    const std::size_t valid = ValidUtf8Length(text);
    replaced += text.substr(0, valid);
    text.remove_prefix(valid);
    if (!text.empty()) {
      replaced += kReplacement;
      text.remove_prefix(1);
    }
  }
  return replaced;
}

std::string ToUpper(std::string_view text) {
  std::string upper(text);
  const std::size_t ascii = EndOfAscii(text, 0);
  for (std::size_t i = 0; i < ascii; ++i) {
    upper[i] = AsciiUpper(upper[i]);
  }
  upper.resize(ascii);
  for (std::size_t offset = ascii; offset < text.size();) {
    const Character character = DecodeAt(text, offset);
    AppendUpper(upper, text.substr(offset, character.length), character.code);
    offset += character.length;
  }
  return upper;
}

int CompareNoCase(std::string_view first, std::string_view second) {
  const std::size_t shared = std::min(first.size(), second.size());
  std::size_t i = 0;
  for (; i < shared && IsAscii(first[i]) && IsAscii(second[i]); ++i) {
    const int difference = AsciiUpper(first[i]) - AsciiUpper(second[i]);
    if (difference != 0) {
      return difference;
    }
  }
  if (i == shared) {
    return int{first.size() > shared} - int{second.size() > shared};
  }
  return ToUpper(first.substr(i)).compare(ToUpper(second.substr(i)));
}

std::string_view PrefixOfWholeCharacters(std::string_view text, std::size_t bytes) {
  if (bytes >= text.size()) {
    return text;
  }
  for (std::size_t back = 1; back < kMaxCharacterBytes && back <= bytes; ++back) {
    if (CharacterLength(text, bytes - back) > back) {
      return text.substr(0, bytes - back);
    }
  }
  return text.substr(0, bytes);
}

std::string Shortened(std::string_view text) {
  constexpr std::size_t kQuotedBytes = 60;
  const std::string_view beginning = PrefixOfWholeCharacters(text, kQuotedBytes);
  return std::string(beginning) + (beginning.size() < text.size() ? "..." : "");
}

std::size_t CharacterLength(std::string_view text, std::size_t offset) {
  return IsAscii(text[offset]) ? 1 : DecodeAt(text, offset).length;
}

char32_t CodePointAt(std::string_view text, std::size_t offset) {
  const Character character = DecodeAt(text, offset);
  return character.IsValid() ? static_cast<char32_t>(character.code) : kReplacementCode;
}

bool IsLetterAt(std::string_view text, std::size_t offset) {
  if (IsAscii(text[offset])) {
    return IsAsciiLetter(text[offset]);
  }
  const Character character = DecodeAt(text, offset);
  return character.IsValid() && u_isalpha(character.code) != 0;
}

std::size_t CountCharacters(std::string_view text) {
  std::size_t count = 0;
  for (std::size_t offset = 0; offset < text.size(); ++count) {
    offset += CharacterLength(text, offset);
  }
  return count;
}

std::size_t DisplayWidth(std::string_view text) {
  std::size_t width = 0;
  for (std::size_t offset = 0; offset < text.size();) {
    if (IsPrintableAscii(text[offset])) {
      ++width;
      ++offset;
      continue;
    }
    const Character character = DecodeAt(text, offset);
    width += CharacterWidth(character);
    offset += character.length;
  }
  return width;
}

}  // namespace standalone
