#ifndef STANDALONE_OUTPUT_PLAIN_SPLIT_TABLE_H
#define STANDALONE_OUTPUT_PLAIN_SPLIT_TABLE_H

#include <cstddef>
#include <string>
#include <vector>

namespace standalone {

/// A column of texts on the screen: numbers, which stand at the right, or bars. Lines of a heading stay apart.
struct Strip {
  std::size_t column = 0;  ///< of those below; its strips follow each other
  std::string heading;
  std::vector<std::string> cells;  ///< one for each row; made wider where numbers are to be aligned
  std::size_t width = 0;           ///< of bars; of the others it is at least what they need
  bool isBar = false;
};

/// What strips share above their headings. Either may be empty.
struct StripColumn {
  std::string group;  ///< the same for columns side by side: it stands above all of them
  std::string label;
};

/// A table of figures whose rows have labels.
struct SplitTable {
  std::vector<std::string> labels;
  std::size_t footBegin = 0;  ///< the rows from here on stand below a rule, where they have any cell
  std::vector<StripColumn> columns;
  std::vector<Strip> strips;
};

/// What stands between the strips of a column.
inline constexpr std::size_t kStripGap = 2;

/// The width of the strips side by side, once their numbers are aligned.
std::size_t WidthOf(const std::vector<Strip>& strips);

/// Aligns the numbers of each strip at the decimal point, and makes strips as wide as their cells and headings are.
void AlignStrips(SplitTable& table);

/// The table, whose strips were aligned, in lines no wider than `width` terminal columns: labels are wrapped, and what
/// does not fit side by side stands below with the labels once more. Only a number that is wider than that is not
/// broken.
std::string SplitTableText(const SplitTable& table, std::size_t width);

}  // namespace standalone

#endif  // STANDALONE_OUTPUT_PLAIN_SPLIT_TABLE_H
