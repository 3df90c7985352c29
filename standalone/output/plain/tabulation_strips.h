#ifndef STANDALONE_OUTPUT_PLAIN_TABULATION_STRIPS_H
#define STANDALONE_OUTPUT_PLAIN_TABULATION_STRIPS_H

#include <cstddef>
#include <string>
#include <vector>

#include "standalone/output/plain/text_bar.h"
#include "standalone/output/tabulation_view.h"

namespace standalone {

/// A column of texts on the screen: one figure of one column of a tabulation, or its bars.
struct Strip {
  std::size_t column = 0;            ///< of the tabulation
  std::vector<std::string> heading;  ///< its lines
  std::vector<std::string> cells;    ///< of the rows, then of the bases; numbers are aligned
  std::size_t width = 0;
  bool isBar = false;
};

/// What stands between the strips of a column, and between columns.
inline constexpr std::size_t kStripGap = 2;
inline constexpr std::size_t kColumnGap = 3;

/// The strips of all columns, in order. A column's first strip holds its bases, where there are any. `barWidth` counts
/// where there is a chart.
std::vector<Strip> Strips(const Tabulation& tabulation, const std::vector<BaseRow>& bases, Chart chart,
                          std::size_t barWidth);

/// The width of strips side by side.
std::size_t WidthOf(const std::vector<Strip>& strips, std::size_t begin, std::size_t end);

/// The end of the column that begins at a strip.
std::size_t EndOfColumn(const std::vector<Strip>& strips, std::size_t begin);

}  // namespace standalone

#endif  // STANDALONE_OUTPUT_PLAIN_TABULATION_STRIPS_H
