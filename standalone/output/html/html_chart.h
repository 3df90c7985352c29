#ifndef STANDALONE_OUTPUT_HTML_HTML_CHART_H
#define STANDALONE_OUTPUT_HTML_HTML_CHART_H

#include <string>

#include "standalone/output/tabulation_view.h"

namespace standalone {

/// Horizontal bars of a figure in a group of columns, with a scale, in a group of elements that scrolls by itself.
/// Empty where no bar has a length, or there are more than anybody would look at. `id` as for HtmlTabulation().
std::string HtmlChart(const Tabulation& tabulation, const ColumnGroup& group, const ShownFigure& figure,
                      const std::string& id);

}  // namespace standalone

#endif  // STANDALONE_OUTPUT_HTML_HTML_CHART_H
