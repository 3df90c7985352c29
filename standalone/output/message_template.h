#ifndef STANDALONE_OUTPUT_MESSAGE_TEMPLATE_H
#define STANDALONE_OUTPUT_MESSAGE_TEMPLATE_H

#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace standalone {

/// An argument of a pattern: a text, or a list of texts that fills one placeholder.
using Argument = std::variant<std::string, std::vector<std::string>>;

/// Whether the pattern is a list pattern "[:ENTRY:SEPARATOR]N", which writes the entries of its list one per line.
bool IsListPattern(std::string_view pattern);

/// The entries that a list pattern writes: those of its lists and its texts, in order, each filled into ENTRY.
std::vector<std::string> ExpandList(std::string_view pattern, const std::vector<Argument>& arguments);

/// The pattern with "^1", "^2", ... replaced in one pass; text that came in as an argument is never expanded again. All
/// digits after a "^" are its number; a "^" without digits stays. A placeholder without an argument becomes nothing; a
/// list in a placeholder is written with ", " between its entries; a list that no placeholder takes is appended after a
/// blank. A list pattern's entries are written one per line.
std::string ExpandTemplate(std::string_view pattern, const std::vector<Argument>& arguments);

}  // namespace standalone

#endif  // STANDALONE_OUTPUT_MESSAGE_TEMPLATE_H
