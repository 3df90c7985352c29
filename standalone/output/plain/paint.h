#ifndef STANDALONE_OUTPUT_PLAIN_PAINT_H
#define STANDALONE_OUTPUT_PLAIN_PAINT_H

#include <string>
#include <string_view>

#include "standalone/output/items.h"

namespace standalone {

/// Whether text for people is coloured by the escape sequences that terminals know.
enum class Colour { kNone, kAnsi };

enum class Style { kHeading, kError, kWarning, kHint };

/// The text in that style, the same text where there is no colour or no text.
std::string Painted(std::string_view text, Style style, Colour colour);

Style StyleOf(Level level);

}  // namespace standalone

#endif  // STANDALONE_OUTPUT_PLAIN_PAINT_H
