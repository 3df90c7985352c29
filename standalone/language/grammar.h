#ifndef STANDALONE_LANGUAGE_GRAMMAR_H
#define STANDALONE_LANGUAGE_GRAMMAR_H

#include <optional>
#include <string_view>

namespace standalone {

/// The keyword with "=" and a value that a word names in a subcommand of MRSET; nothing when it names none there. Both
/// words are in upper case and may be shortened.
std::optional<std::string_view> KeywordWithValue(std::string_view subcommand, std::string_view word);

}  // namespace standalone

#endif  // STANDALONE_LANGUAGE_GRAMMAR_H
