#ifndef STANDALONE_TEXT_NAMES_H
#define STANDALONE_TEXT_NAMES_H

#include <cstddef>
#include <string_view>

namespace standalone {

/// Whether the text can name a variable: a letter, "@", "#" or "_", then letters, digits, "_", ".", "$", "@", "#"; not
/// ending in a period; neither ALL nor TO in any case; 64 bytes at most.
bool IsValidVariableName(std::string_view name);

/// Whether the text can name a set: "$" and then what can name a variable; 64 bytes at most in all.
bool IsValidSetName(std::string_view name);

/// Whether a name can begin with the character at `offset`, which lies within the text: a letter, "@", "#" or "_".
bool BeginsNameAt(std::string_view text, std::size_t offset);

/// The end of the characters, from `offset` on, with which a name can go on: letters, digits, "_", ".", "$", "@", "#".
std::size_t EndOfName(std::string_view text, std::size_t offset);

}  // namespace standalone

#endif  // STANDALONE_TEXT_NAMES_H
