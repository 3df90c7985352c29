#ifndef STANDALONE_OUTPUT_PLAIN_TEXT_BAR_H
#define STANDALONE_OUTPUT_PLAIN_TEXT_BAR_H

#include <cstddef>
#include <string>

namespace standalone {

/// What bars are made of: nothing, eighths of a block, or "#".
enum class Chart { kNone, kBlocks, kSigns };

/// A bar for a share from 0 to 1 of `width` terminal columns. Only one of 0 is empty.
std::string TextBar(double share, std::size_t width, Chart chart);

}  // namespace standalone

#endif  // STANDALONE_OUTPUT_PLAIN_TEXT_BAR_H
