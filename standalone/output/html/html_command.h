#ifndef STANDALONE_OUTPUT_HTML_HTML_COMMAND_H
#define STANDALONE_OUTPUT_HTML_HTML_COMMAND_H

#include <string>
#include <string_view>

#include "standalone/output/items.h"

namespace standalone {

/// The name of a command's section of the page, for links.
std::string CommandId(std::size_t number);

/// The beginning of a command on one line, of no more than `bytes` bytes and the "..." that tells of the rest; HTML.
std::string CommandBeginning(std::string_view text, std::size_t bytes);

/// A command's section of the page: the command as its heading, and what it put out.
std::string CommandHtml(const CommandResult& result);

}  // namespace standalone

#endif  // STANDALONE_OUTPUT_HTML_HTML_COMMAND_H
