#ifndef STANDALONE_OUTPUT_HTML_HTML_CHART_H
#define STANDALONE_OUTPUT_HTML_HTML_CHART_H

#include <string>

#include "standalone/output/tabulation_view.h"

namespace standalone {

/// Horizontal bars of the percentages of cases in a group of columns, in a group of elements that scrolls by itself.
/// Empty where there are none, or more bars than anybody would look at. `id` as for HtmlTabulation().
std::string HtmlChart(const Tabulation& tabulation, const ColumnGroup& group, const std::string& id);

}  // namespace standalone

#endif  // STANDALONE_OUTPUT_HTML_HTML_CHART_H
