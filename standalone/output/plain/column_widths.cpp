#include "standalone/output/plain/column_widths.h"

#include <algorithm>
#include <numeric>

namespace standalone {
namespace {

using Widths = std::vector<std::size_t>;

/// A wide character takes two columns.
constexpr std::size_t kMinWidth = 2;

template <typename Measure>
Widths Measured(const std::vector<ColumnNeeds>& columns, Measure measure) {
  Widths widths;
  for (const ColumnNeeds& column : columns) {
    widths.push_back(measure(column));
  }
  return widths;
}

std::size_t OnOneLine(const ColumnNeeds& column) {
  return std::max(column.heading, column.content);
}

std::size_t WithWrappedHeading(const ColumnNeeds& column) {
  return std::max({kMinWidth, column.headingWord, column.content});
}

std::size_t WithWholeWords(const ColumnNeeds& column) {
  return std::max({kMinWidth, column.headingWord, column.contentWord});
}

std::size_t WithBrokenWords(const ColumnNeeds& column) {
  return std::max(kMinWidth, column.headingWord);
}

bool Fit(const Widths& widths, std::size_t room) {
  return std::accumulate(widths.begin(), widths.end(), std::size_t{0}) <= room;
}

/// The wanted widths, none above `limit` unless its floor is.
Widths Limited(const Widths& wanted, const Widths& floors, std::size_t limit) {
  Widths widths;
  for (std::size_t i = 0; i < wanted.size(); ++i) {
    widths.push_back(std::max(floors[i], std::min(wanted[i], limit)));
  }
  return widths;
}

/// The wanted widths under the highest limit at which they fit; what is left over goes to the first that still want it.
Widths Narrowed(const Widths& wanted, const Widths& floors, std::size_t room) {
  std::size_t limit = 0;
  while (limit < room && Fit(Limited(wanted, floors, limit + 1), room)) {
    ++limit;
  }
  Widths widths = Limited(wanted, floors, limit);
  for (std::size_t i = 0; i < widths.size(); ++i) {
    if (widths[i] < wanted[i]) {
      ++widths[i];
      widths[i] -= Fit(widths, room) ? 0 : 1;
    }
  }
  return widths;
}

}  // namespace

std::vector<std::size_t> ColumnWidths(const std::vector<ColumnNeeds>& columns, std::size_t room) {
  Widths natural = Measured(columns, OnOneLine);
  if (Fit(natural, room)) {
    return natural;
  }
  const Widths wholeWords = Measured(columns, WithWholeWords);
  const Widths floors = Fit(wholeWords, room) ? wholeWords : Measured(columns, WithBrokenWords);
  return Narrowed(Measured(columns, WithWrappedHeading), floors, room);
}

}  // namespace standalone
