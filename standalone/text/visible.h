#ifndef STANDALONE_TEXT_VISIBLE_H
#define STANDALONE_TEXT_VISIBLE_H

#include <string>
#include <string_view>
#include <vector>

namespace standalone {

/// The text with every character that would act on a terminal in a harmless form: control characters as "\n", "\r",
/// "\t" or "\x1b", line separators and characters that turn the direction of writing as "\u202e", and U+FFFD in place
/// of a byte that belongs to no valid character. Never holds a line break; always valid UTF-8.
std::string Visible(std::string_view text);

/// JSON with the characters that would act on a terminal, other than line breaks between its lines, as the escapes that
/// JSON has for them, so that it says the same. The JSON is valid UTF-8; characters below 0x20 it has escaped already.
std::string VisibleJson(std::string json);

/// The lines of the text, each in its visible form; at least one. A line ends with "\n", "\r\n" or "\r".
std::vector<std::string> VisibleLines(std::string_view text);

/// The text in its visible form with a blank for each line end and the blanks around it.
std::string VisibleOnOneLine(std::string_view text);

/// A value in the sentence on it: an empty one would not be seen.
inline std::string ShownValue(const std::string& value) {
  return value.empty() ? "\"\"" : value;
}

}  // namespace standalone

#endif  // STANDALONE_TEXT_VISIBLE_H
