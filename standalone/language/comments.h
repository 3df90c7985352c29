#ifndef STANDALONE_LANGUAGE_COMMENTS_H
#define STANDALONE_LANGUAGE_COMMENTS_H

#include <cstddef>
#include <string_view>

namespace standalone {

/// The characters that separate tokens: a blank, a tab and other ASCII characters that only move on.
inline constexpr std::string_view kBlanks = " \t\n\v\f\r";

bool IsBlank(char c);

/// Whether a comment begins at `offset`, which lies within the text and not within a quoted string.
bool BeginsCommentAt(std::string_view text, std::size_t offset);

/// Where the comment that begins at `offset` ends: after its "*/", else at the end of its line.
std::size_t EndOfComment(std::string_view text, std::size_t offset);

}  // namespace standalone

#endif  // STANDALONE_LANGUAGE_COMMENTS_H
