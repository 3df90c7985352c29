#ifndef STANDALONE_TEXT_UNICODE_H
#define STANDALONE_TEXT_UNICODE_H

#include <cstddef>
#include <string>
#include <string_view>

namespace standalone {

// All texts are UTF-8. Bytes that are no UTF-8 are kept as they stand by every function that returns a text, unless it
// says otherwise.

/// Whether the text is valid UTF-8.
bool IsValidUtf8(std::string_view text);

/// The number of bytes before the first one that belongs to no valid character; the size of a valid text.
std::size_t ValidUtf8Length(std::string_view text);

/// The text with every byte that belongs to no valid character replaced by U+FFFD.
std::string ReplaceInvalidUtf8(std::string_view text);

/// The upper-case form: each character by its simple mapping; a character whose mapped form would take more bytes is
/// kept. Never longer than the text.
std::string ToUpper(std::string_view text);

/// Orders the upper-case forms of the two texts byte by byte: negative, 0 or positive.
int CompareNoCase(std::string_view first, std::string_view second);

/// The longest beginning of the text that holds at most `bytes` bytes and ends with a whole character.
std::string_view PrefixOfWholeCharacters(std::string_view text, std::size_t bytes);

/// The text as a sentence quotes it: one of more than 60 bytes by its beginning and "...".
std::string Shortened(std::string_view text);

/// The number of bytes of the character at `offset`, which lies within the text (1 for a byte that begins no valid
/// character), its code point (U+FFFD for such a byte), and whether it is a letter.
std::size_t CharacterLength(std::string_view text, std::size_t offset);
char32_t CodePointAt(std::string_view text, std::size_t offset);
bool IsLetterAt(std::string_view text, std::size_t offset);

/// The number of characters; a byte that belongs to no valid character counts as one.
std::size_t CountCharacters(std::string_view text);

/// The number of terminal columns that the text takes: 2 for a wide character, 0 for a combining, a format or a control
/// one, 1 for a byte that belongs to no valid character.
std::size_t DisplayWidth(std::string_view text);

}  // namespace standalone

#endif  // STANDALONE_TEXT_UNICODE_H
