#ifndef STANDALONE_OUTPUT_PLAIN_TEXT_TABULATION_H
#define STANDALONE_OUTPUT_PLAIN_TEXT_TABULATION_H

#include <cstddef>
#include <string>

#include "standalone/output/plain/paint.h"
#include "standalone/output/plain/text_bar.h"
#include "standalone/tabulation/tabulation.h"

namespace standalone {

/// A tabulation for people: a title; the members with their figures, aligned at the decimal point, under the headings
/// of their columns; the bases; tests and notes. A table that is wider than `width` terminal columns is split between
/// its columns; nothing is cut. A chart is bars of ChartedFigure() beside it, the longest of which is the largest.
std::string TextTabulation(const Tabulation& tabulation, std::size_t width, Colour colour = Colour::kNone,
                           Chart chart = Chart::kNone);

}  // namespace standalone

#endif  // STANDALONE_OUTPUT_PLAIN_TEXT_TABULATION_H
