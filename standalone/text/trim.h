#ifndef STANDALONE_TEXT_TRIM_H
#define STANDALONE_TEXT_TRIM_H

#include <algorithm>
#include <string_view>

namespace standalone {

/// The text without such characters at its end.
inline std::string_view TrimmedEnd(std::string_view text, std::string_view characters = " ") {
  return text.substr(0, text.find_last_not_of(characters) + 1);
}

/// The text without such characters at its beginning and its end.
inline std::string_view Trimmed(std::string_view text, std::string_view characters = " ") {
  text.remove_prefix(std::min(text.find_first_not_of(characters), text.size()));
  return TrimmedEnd(text, characters);
}

}  // namespace standalone

#endif  // STANDALONE_TEXT_TRIM_H
