#ifndef STANDALONE_OUTPUT_PLAIN_WRAP_H
#define STANDALONE_OUTPUT_PLAIN_WRAP_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace standalone {

/// The lines of a text without line breaks, none wider than `width` terminal columns; at least one. Breaks at blanks,
/// which disappear there, and within a word only when the word itself is too wide. A character that is wider than
/// `width` has a line of its own.
std::vector<std::string> WrapText(std::string_view text, std::size_t width);

/// The same of each of the text's lines in its visible form.
std::vector<std::string> WrapLines(std::string_view text, std::size_t width);

/// What sets the further lines of an entry apart from the next entry.
inline constexpr std::string_view kHangingIndent = "  ";

/// The same with a hanging indent: all lines but the first begin with the indent, where `width` leaves room for that. A
/// text that itself begins with the indent goes on an entry: without that room it loses it.
std::vector<std::string> WrapTextHanging(std::string_view text, std::size_t width);

/// The display width of the widest word of the text.
std::size_t WidestWord(std::string_view text);

/// The width in which WrapTextHanging() breaks no word.
std::size_t HangingWidth(std::string_view text);

}  // namespace standalone

#endif  // STANDALONE_OUTPUT_PLAIN_WRAP_H
