#ifndef STANDALONE_OUTPUT_HTML_HTML_TEXT_H
#define STANDALONE_OUTPUT_HTML_HTML_TEXT_H

#include <string>
#include <string_view>

namespace standalone {

/// The text in its visible form, on one line, as content of an element or of a quoted attribute.
std::string HtmlText(std::string_view text);

/// The text's lines in that form, with "<br>" between them.
std::string HtmlLines(std::string_view text);

/// The text's lines in that form for an element that keeps blanks and line ends; tabs become blanks.
std::string HtmlCode(std::string_view text);

}  // namespace standalone

#endif  // STANDALONE_OUTPUT_HTML_HTML_TEXT_H
