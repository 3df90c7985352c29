#ifndef TESTS_HOST_LETTERS_H
#define TESTS_HOST_LETTERS_H

#include <cstddef>
#include <string>
#include <string_view>

namespace scripted {

/// The number of bytes of the UTF-8 character at `offset`; 1 for a byte that belongs to no valid one.
std::size_t CharacterLength(std::string_view text, std::size_t offset);

/// Whether the bytes at `offset` are a valid character.
bool IsCharacter(std::string_view text, std::size_t offset);

/// The longest beginning of at most `bytes` bytes that ends with a whole character.
std::string_view WholeCharacters(std::string_view text, std::size_t bytes);

/// Upper-cases the letters of ASCII and the two-byte letters of Latin, Greek and Cyrillic; every other byte stays.
void UpperCase(char* text, std::size_t length);
std::string UpperCase(std::string_view text);

/// Orders the upper-case forms byte by byte: negative, 0 or positive.
int CompareNoCase(std::string_view first, std::string_view second);

}  // namespace scripted

#endif  // TESTS_HOST_LETTERS_H
