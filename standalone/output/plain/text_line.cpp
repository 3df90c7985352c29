#include "standalone/output/plain/text_line.h"

#include <algorithm>

#include "standalone/text/trim.h"
#include "standalone/text/unicode.h"

namespace standalone {
namespace {

/// The bytes before the point; all where there is none.
std::size_t WholePart(std::string_view text) {
  return std::min(text.find('.'), text.size());
}

}  // namespace

void TextLine::PutAt(std::size_t column, std::string_view text) {
  text = TrimmedEnd(text);
  if (text.empty()) {
    return;
  }
  const std::size_t begin = std::max(column, fWidth == 0 ? 0 : fWidth + 1);
  fText.append(begin - fWidth, ' ').append(text);
  fWidth = begin + DisplayWidth(text);
}

void TextLine::PutBefore(std::size_t end, std::string_view text) {
  PutAt(end - std::min(end, DisplayWidth(text)), text);
}

std::string TextLine::Take() {
  std::string line = std::move(fText) + '\n';
  *this = {};
  return line;
}

void AlignAtPoint(std::vector<std::string>& texts) {
  std::size_t whole = 0;
  std::size_t fraction = 0;
  for (const std::string& text : texts) {
    whole = std::max(whole, WholePart(text));
    fraction = std::max(fraction, text.size() - WholePart(text));
  }
  for (std::string& text : texts) {
    if (!text.empty()) {
      const std::size_t before = whole - WholePart(text);
      const std::size_t after = fraction - (text.size() - WholePart(text));
      text.insert(0, before, ' ').append(after, ' ');
    }
  }
}

}  // namespace standalone
