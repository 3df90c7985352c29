#include "standalone/output/plain/paint.h"

#include <fmt/format.h>

namespace standalone {
namespace {

/// Of the colours that can be read on light and on dark ground.
std::string_view Code(Style style) {
  switch (style) {
    case Style::kHeading:
      return "1";  // bold
    case Style::kError:
      return "1;31";  // bold red
    case Style::kWarning:
      return "1;35";  // bold magenta
    case Style::kHint:
      break;
  }
  return "36";  // cyan
}

}  // namespace

std::string Painted(std::string_view text, Style style, Colour colour) {
  if (colour == Colour::kNone || text.empty()) {
    return std::string(text);
  }
  return fmt::format("\x1b[{}m{}\x1b[0m", Code(style), text);
}

Style StyleOf(Level level) {
  return level == Level::kWarning ? Style::kWarning : Style::kError;
}

}  // namespace standalone
