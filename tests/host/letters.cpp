#include "tests/host/letters.h"

#include <algorithm>

namespace scripted {
namespace {

unsigned int Byte(char character) {
  return static_cast<unsigned char>(character);
}

std::size_t LengthByLeadByte(unsigned int lead) {
  if (lead < 0x80) {
    return 1;
  }
  if (lead >= 0xC2 && lead <= 0xDF) {
    return 2;
  }
  if (lead >= 0xE0 && lead <= 0xEF) {
    return 3;
  }
  return lead >= 0xF0 && lead <= 0xF4 ? 4 : 0;
}

/// Excludes overlong forms, surrogates and what lies beyond the last character.
bool IsSecondByte(unsigned int lead, unsigned int second) {
  switch (lead) {
    case 0xE0:
      return second >= 0xA0;
    case 0xED:
      return second < 0xA0;
    case 0xF0:
      return second >= 0x90;
    case 0xF4:
      return second < 0x90;
    default:
      return true;
  }
}

bool IsBetween(unsigned int code, unsigned int first, unsigned int last) {
  return code >= first && code <= last;
}

bool IsOdd(unsigned int code) {
  return code % 2 == 1;
}

unsigned int UpperLatin(unsigned int code) {
  if (IsBetween(code, 0xE0, 0xFE) && code != 0xF7) {
    return code - 0x20;
  }
  if (code == 0xFF) {
    return 0x178;
  }
  const bool lowerIsOdd =
      (IsBetween(code, 0x100, 0x137) && !IsBetween(code, 0x130, 0x131)) || IsBetween(code, 0x14A, 0x177);
  const bool lowerIsEven = IsBetween(code, 0x139, 0x148) || IsBetween(code, 0x179, 0x17E);
  return (lowerIsOdd && IsOdd(code)) || (lowerIsEven && !IsOdd(code)) ? code - 1 : code;
}

unsigned int UpperGreek(unsigned int code) {
  if (IsBetween(code, 0x3B1, 0x3CB)) {
    return code == 0x3C2 ? 0x3A3 : code - 0x20;
  }
  if (code == 0x3AC) {
    return 0x386;
  }
  if (IsBetween(code, 0x3AD, 0x3AF)) {
    return code - 0x25;
  }
  if (code == 0x3CC) {
    return 0x38C;
  }
  return IsBetween(code, 0x3CD, 0x3CE) ? code - 0x3F : code;
}

unsigned int UpperCyrillic(unsigned int code) {
  if (IsBetween(code, 0x430, 0x44F)) {
    return code - 0x20;
  }
  return IsBetween(code, 0x450, 0x45F) ? code - 0x50 : code;
}

unsigned int UpperOfTwoBytes(unsigned int code) {
  if (code < 0x180) {
    return UpperLatin(code);
  }
  return code < 0x400 ? UpperGreek(code) : UpperCyrillic(code);
}

void UpperCaseTwoBytes(char* at) {
  const unsigned int upper = UpperOfTwoBytes((Byte(at[0]) & 0x1Fu) << 6 | (Byte(at[1]) & 0x3Fu));
  at[0] = static_cast<char>(0xC0u | upper >> 6);
  at[1] = static_cast<char>(0x80u | (upper & 0x3Fu));
}

}  // namespace

bool IsCharacter(std::string_view text, std::size_t offset) {
  const std::size_t length = LengthByLeadByte(Byte(text[offset]));
  if (length == 0 || text.size() - offset < length) {
    return false;
  }
  const auto begin = text.begin() + static_cast<std::ptrdiff_t>(offset);
  const bool continued = std::all_of(begin + 1, begin + static_cast<std::ptrdiff_t>(length),
                                     [](char character) { return (Byte(character) & 0xC0u) == 0x80u; });
  return continued && (length == 1 || IsSecondByte(Byte(begin[0]), Byte(begin[1])));
}

std::size_t CharacterLength(std::string_view text, std::size_t offset) {
  return IsCharacter(text, offset) ? LengthByLeadByte(Byte(text[offset])) : 1;
}

std::string_view WholeCharacters(std::string_view text, std::size_t bytes) {
  std::size_t end = 0;
  while (end < text.size() && end + CharacterLength(text, end) <= bytes) {
    end += CharacterLength(text, end);
  }
  return text.substr(0, end);
}

void UpperCase(char* text, std::size_t length) {
  const std::string_view whole(text, length);
  for (std::size_t offset = 0; offset < length;) {
    char& character = text[offset];
    const std::size_t bytes = Byte(character) < 0x80 ? 1 : CharacterLength(whole, offset);
    if (character >= 'a' && character <= 'z') {
      character = static_cast<char>(character - 'a' + 'A');
    } else if (bytes == 2) {
      UpperCaseTwoBytes(&character);
    }
    offset += bytes;
  }
}

std::string UpperCase(std::string_view text) {
  std::string upper(text);
  UpperCase(upper.data(), upper.size());
  return upper;
}

int CompareNoCase(std::string_view first, std::string_view second) {
  return UpperCase(first).compare(UpperCase(second));
}

}  // namespace scripted
