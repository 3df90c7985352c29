#include "standalone/output/plain/excerpt.h"

#include <fmt/format.h>

#include <algorithm>
#include <string_view>
#include <utility>
#include <vector>

#include "standalone/text/unicode.h"
#include "standalone/text/visible.h"

namespace standalone {
namespace {

constexpr std::string_view kCut = "...";
constexpr std::size_t kMinWidth = 20;
constexpr std::size_t kTabStop = 8;

/// How many bytes of a line are looked at on either side of a place, for each column that there is room for. Enough for
/// any text that is meant to be read.
constexpr std::size_t kBytesPerColumn = 16;

/// A character with all that combines with it, in visible form; never cut.
struct Piece {
  std::string text;
  std::size_t width;
};

/// One side of a place on its line, or the place itself.
struct Part {
  std::vector<Piece> pieces;
  std::size_t width = 0;
  bool isCut = false;  ///< the line has more of it, farther from the place's beginning
};

std::string_view FirstBytes(std::string_view text, std::size_t bytes) {
  return PrefixOfWholeCharacters(text, bytes);
}

std::string_view LastBytes(std::string_view text, std::size_t bytes) {
  if (bytes >= text.size()) {
    return text;
  }
  const auto isContinuation = [](char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; };
  const std::string_view last = text.substr(text.size() - bytes);
  return last.substr(
      static_cast<std::size_t>(std::find_if_not(last.begin(), last.end(), isContinuation) - last.begin()));
}

std::string VisibleCharacter(std::string_view character, std::size_t column) {
  return character == "\t" ? std::string(kTabStop - column % kTabStop, ' ') : Visible(character);
}

/// The part whose text begins at a column, as far as `isCut` tells.
Part PartOf(std::string_view text, std::size_t column, bool isCut) {
  Part part{{}, 0, isCut};
  for (std::size_t offset = 0; offset < text.size();) {
    const std::size_t length = CharacterLength(text, offset);
    std::string shown = VisibleCharacter(text.substr(offset, length), column + part.width);
    const std::size_t width = DisplayWidth(shown);
    if (width == 0 && !part.pieces.empty()) {
      part.pieces.back().text += shown;
    } else {
      part.pieces.push_back({std::move(shown), width});
    }
    part.width += width;
    offset += length;
  }
  return part;
}

Part PartBefore(const CommandResult& command, std::size_t offset, std::size_t reach) {
  std::string line(LastBytes(command.before, reach));
  line += LastBytes(std::string_view(command.text).substr(0, offset), reach);
  const std::size_t lineEnd = line.rfind('\n');
  if (lineEnd != std::string::npos) {
    return PartOf(std::string_view(line).substr(lineEnd + 1), 0, false);
  }
  return PartOf(LastBytes(line, reach), 0, line.size() >= reach);
}

Part PartAfter(const CommandResult& command, std::size_t offset, std::size_t reach, std::size_t column) {
  std::string line(FirstBytes(std::string_view(command.text).substr(offset), reach));
  line += FirstBytes(command.after, reach);
  const std::size_t lineEnd = line.find('\n');
  if (lineEnd == std::string::npos && line.size() >= reach) {
    return PartOf(FirstBytes(line, reach), column, true);
  }
  line.resize(std::min(lineEnd, line.size()));
  if (!line.empty() && line.back() == '\r') {
    line.pop_back();
  }
  return PartOf(line, column, false);
}

/// Drops pieces at the end until no more than `width` columns are left.
void CutEnd(Part& part, std::size_t width) {
  while (part.width > width) {
    part.width -= part.pieces.back().width;
    part.pieces.pop_back();
    part.isCut = true;
  }
}

void CutBeginning(Part& part, std::size_t width) {
  std::reverse(part.pieces.begin(), part.pieces.end());
  CutEnd(part, width);
  std::reverse(part.pieces.begin(), part.pieces.end());
}

/// Leaves of the three parts what fits `width` columns: of the place what can be shown, then as much of either side.
void Fit(Part& before, Part& token, Part& after, std::size_t width) {
  if (!before.isCut && !after.isCut && before.width + std::max<std::size_t>(token.width + after.width, 1) <= width) {
    return;
  }
  const std::size_t room = width - 2 * kCut.size();
  CutEnd(token, room);
  const std::size_t left = token.isCut ? 0 : room - std::max<std::size_t>(token.width, 1);
  CutBeginning(before, std::max(left / 2, left - std::min(left, after.width)));
  CutEnd(after, token.isCut ? 0 : left - before.width);
}

std::string TextOf(const Part& part) {
  std::string text;
  for (const Piece& piece : part.pieces) {
    text += piece.text;
  }
  return text;
}

}  // namespace

Excerpt ExcerptAt(const CommandResult& command, const Place& place, std::size_t width) {
  width = std::max(width, kMinWidth);
  const std::size_t reach = width * kBytesPerColumn;
  const std::string_view written = std::string_view(command.text).substr(place.offset, place.size);
  Part before = PartBefore(command, place.offset, reach);
  Part token = PartOf(FirstBytes(written, reach), before.width, written.size() > reach);
  Part after = PartAfter(command, place.offset + place.size, reach, before.width + token.width);
  Fit(before, token, after, width);

  Excerpt excerpt;
  excerpt.line = fmt::format("{}{}", before.isCut ? kCut : "", TextOf(before));
  excerpt.tokenBegin = excerpt.line.size();
  excerpt.caretColumn = before.width + (before.isCut ? kCut.size() : 0);
  excerpt.line += TextOf(token);
  excerpt.tokenEnd = excerpt.line.size();
  excerpt.line += TextOf(after);
  excerpt.line += token.isCut || after.isCut ? kCut : "";
  excerpt.caretWidth = std::max<std::size_t>(token.width, 1);
  if (token.width == 0 && !written.empty() && excerpt.caretColumn > 0) {
    --excerpt.caretColumn;  // it is drawn over the character before it
  }
  return excerpt;
}

std::string Carets(const Excerpt& excerpt) {
  std::string carets(excerpt.caretWidth, '^');
  return carets;
}

std::string PlaceInWords(const CommandResult& command, const Place& place) {
  const std::string source = command.source.empty() ? "" : Visible(command.source) + ", ";
  return fmt::format("{}line {}, column {}", source, place.line, place.column);
}

}  // namespace standalone
