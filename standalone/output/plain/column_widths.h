#ifndef STANDALONE_OUTPUT_PLAIN_COLUMN_WIDTHS_H
#define STANDALONE_OUTPUT_PLAIN_COLUMN_WIDTHS_H

#include <cstddef>
#include <vector>

namespace standalone {

/// What one column of a table needs, in terminal columns.
struct ColumnNeeds {
  std::size_t heading = 0;      ///< the heading on one line
  std::size_t headingWord = 0;  ///< its widest word
  std::size_t content = 0;      ///< the widest line of its cells
  std::size_t contentWord = 0;  ///< the widest word of its cells
};

/// The widths of columns that share `room` terminal columns. Where the room is short, headings are wrapped first, then
/// the widest columns are narrowed, as far as can be without breaking a word, to one common width. No column becomes
/// narrower than its heading's widest word, whatever the room.
std::vector<std::size_t> ColumnWidths(const std::vector<ColumnNeeds>& columns, std::size_t room);

}  // namespace standalone

#endif  // STANDALONE_OUTPUT_PLAIN_COLUMN_WIDTHS_H
