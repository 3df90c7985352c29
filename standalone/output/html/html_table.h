#ifndef STANDALONE_OUTPUT_HTML_HTML_TABLE_H
#define STANDALONE_OUTPUT_HTML_HTML_TABLE_H

#include <string>

#include "standalone/output/items.h"

namespace standalone {

/// The table as HTML, in a group that scrolls by itself where the table is wider than the page, with its notes below.
/// `id` names it in links; it is unique in the page and needs no escaping.
std::string HtmlTable(const Table& table, const std::string& id);

}  // namespace standalone

#endif  // STANDALONE_OUTPUT_HTML_HTML_TABLE_H
