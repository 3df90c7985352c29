#ifndef STANDALONE_OUTPUT_PLAIN_TEXT_TABLE_H
#define STANDALONE_OUTPUT_PLAIN_TEXT_TABLE_H

#include <cstddef>
#include <string>

#include "standalone/output/items.h"

namespace standalone {

/// The table as lines of text, each ending in "\n": title, headings, rows, and under them the notes. Columns are
/// aligned by display width and wrapped so that no line takes more than `width` terminal columns, down to the narrowest
/// that the columns' headings allow. Characters that would act on a terminal are shown in a harmless form.
std::string TextTable(const Table& table, std::size_t width);

}  // namespace standalone

#endif  // STANDALONE_OUTPUT_PLAIN_TEXT_TABLE_H
