#ifndef STANDALONE_OUTPUT_HTML_HTML_TABULATION_H
#define STANDALONE_OUTPUT_HTML_HTML_TABULATION_H

#include <string>

#include "standalone/tabulation/tabulation.h"

namespace standalone {

/// A tabulation as HTML: the table, beside it its charts where there is room, then tests and notes. `id` names it in
/// links; it is unique in the page and needs no escaping.
std::string HtmlTabulation(const Tabulation& tabulation, const std::string& id);

}  // namespace standalone

#endif  // STANDALONE_OUTPUT_HTML_HTML_TABULATION_H
