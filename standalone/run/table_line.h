#ifndef STANDALONE_RUN_TABLE_LINE_H
#define STANDALONE_RUN_TABLE_LINE_H

#include <string>
#include <string_view>

#include "standalone/output/items.h"

namespace standalone {

// Tables between processes. They are most of what is sent, so they have a form of their own that costs little to write
// and to read: fields with a tab behind each.

/// What a table's line begins with.
inline constexpr char kTableMark = '\t';

/// The table as one line, without its line end.
std::string ToTableLine(const Table& table);

/// The table of a line; throws std::runtime_error for a line that ToTableLine() does not make.
Table TableFromLine(std::string_view line);

}  // namespace standalone

#endif  // STANDALONE_RUN_TABLE_LINE_H
