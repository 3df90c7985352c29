#include "standalone/output/plain/wrap.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "standalone/text/unicode.h"
#include "standalone/text/visible.h"

namespace standalone {
namespace {

/// The bytes of the longest beginning that fits `width` columns; of one character at least.
std::size_t FittingLength(std::string_view text, std::size_t width) {
  std::size_t taken = 0;
  std::size_t offset = 0;
  while (offset < text.size()) {
    const std::size_t length = CharacterLength(text, offset);
    taken += DisplayWidth(text.substr(offset, length));
    if (taken > width && offset > 0) {
      break;
    }
    offset += length;
  }
  return offset;
}

/// Where to break a text of which `fitting` bytes fit: after the last word that fits whole, else where the room ends.
std::size_t BreakAt(std::string_view text, std::size_t fitting) {
  const std::size_t blank = text.rfind(' ', fitting);
  if (blank == std::string_view::npos) {
    return fitting;
  }
  const std::size_t word = text.find_last_not_of(' ', blank);
  return word == std::string_view::npos ? fitting : word + 1;
}

std::string_view WithoutLeadingBlanks(std::string_view text) {
  return text.substr(std::min(text.find_first_not_of(' '), text.size()));
}

/// All lines but the first begin with the indent.
std::vector<std::string> Wrapped(std::string_view text, std::size_t width, std::string_view indent) {
  std::vector<std::string> lines;
  std::size_t fitting = FittingLength(text, width);
  while (fitting < text.size()) {
    const std::size_t end = BreakAt(text, fitting);
    lines.push_back(std::string(lines.empty() ? "" : indent).append(text.substr(0, end)));
    text = WithoutLeadingBlanks(text.substr(end));
    fitting = FittingLength(text, width - indent.size());
  }
  if (!text.empty() || lines.empty()) {
    lines.push_back(std::string(lines.empty() ? "" : indent).append(text));
  }
  return lines;
}

}  // namespace

std::vector<std::string> WrapText(std::string_view text, std::size_t width) {
  return Wrapped(text, width, "");
}

std::vector<std::string> WrapLines(std::string_view text, std::size_t width) {
  std::vector<std::string> lines;
  for (const std::string& line : VisibleLines(text)) {
    std::vector<std::string> parts = WrapText(line, width);
    std::move(parts.begin(), parts.end(), std::back_inserter(lines));
  }
  return lines;
}

std::vector<std::string> WrapTextHanging(std::string_view text, std::size_t width) {
  constexpr std::size_t kMinHangingWidth = 8;
  if (width >= kMinHangingWidth) {
    return Wrapped(text, width, kHangingIndent);
  }
  const bool isIndented = text.substr(0, kHangingIndent.size()) == kHangingIndent;
  return WrapText(text.substr(isIndented ? kHangingIndent.size() : 0), width);
}

std::size_t WidestWord(std::string_view text) {
  std::size_t widest = 0;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find(' '), text.size());
    widest = std::max(widest, DisplayWidth(text.substr(0, end)));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return widest;
}

std::size_t HangingWidth(std::string_view text) {
  const std::size_t end = std::min(text.find(' '), text.size());
  const std::size_t others = WidestWord(text.substr(end));
  return std::max(DisplayWidth(text.substr(0, end)), others == 0 ? 0 : others + kHangingIndent.size());
}

}  // namespace standalone
