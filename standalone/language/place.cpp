#include "standalone/language/place.h"

#include <algorithm>
#include <iterator>

#include "standalone/text/unicode.h"

namespace standalone {
namespace {

constexpr std::size_t kBytesBetweenMarks = 4096;

}  // namespace

PlaceFinder::PlaceFinder(std::string_view text, int line, std::string_view before) : fText(text) {
  Mark mark{0, line, CountCharacters(before) + 1};
  while (mark.offset < text.size()) {
    fMarks.push_back(mark);
    Advance(mark, std::min(mark.offset + kBytesBetweenMarks, text.size()));
  }
  fMarks.push_back(mark);
}

/// Moves the mark to the first character that begins at `offset` or after it.
void PlaceFinder::Advance(Mark& mark, std::size_t offset) const {
  while (mark.offset < offset) {
    const bool endsLine = fText[mark.offset] == '\n';
    mark.line += endsLine ? 1 : 0;
    mark.column = endsLine ? 1 : mark.column + 1;
    mark.offset += CharacterLength(fText, mark.offset);
  }
}

Place PlaceFinder::At(std::size_t offset, std::size_t size) const {
  const auto isAfter = [](std::size_t wanted, const Mark& mark) { return wanted < mark.offset; };
  Mark mark = *std::prev(std::upper_bound(fMarks.begin(), fMarks.end(), offset, isAfter));
  Advance(mark, offset);
  return {mark.line, mark.column, CountCharacters(fText.substr(offset, size)), offset, size};
}

}  // namespace standalone
