#ifndef STANDALONE_OUTPUT_MARKDOWN_MARKDOWN_TEXT_H
#define STANDALONE_OUTPUT_MARKDOWN_MARKDOWN_TEXT_H

#include <string>
#include <string_view>
#include <vector>

namespace standalone {

/// The text in its visible form as one line of Markdown, where none of it is markup, a link, HTML or the border of
/// a table's cell.
std::string MarkdownText(std::string_view text);

/// The texts' lines as Markdown, with "<br>" between them.
std::string MarkdownLines(const std::vector<std::string>& texts);

/// The text's lines as a block of code, each ending in "\n".
std::string MarkdownCode(std::string_view text);

}  // namespace standalone

#endif  // STANDALONE_OUTPUT_MARKDOWN_MARKDOWN_TEXT_H
