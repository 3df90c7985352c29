#include "standalone/output/plain/split_table.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <utility>

#include "standalone/output/plain/text_line.h"
#include "standalone/output/plain/wrap.h"
#include "standalone/text/unicode.h"
#include "standalone/text/visible.h"

namespace standalone {
namespace {

using Lines = std::vector<std::string>;
using Strips = std::vector<Strip>;

constexpr std::size_t kColumnGap = 3;
constexpr std::size_t kLeastLabels = 8;

/// A column is at least as wide as a word above it that is no wider than this.
constexpr std::size_t kWidestKeptWord = 12;

std::size_t Widest(const Lines& texts) {
  std::size_t widest = 0;
  for (const std::string& text : texts) {
    widest = std::max(widest, DisplayWidth(text));
  }
  return widest;
}

std::size_t WidthOf(const Strips& strips, std::size_t begin, std::size_t end) {
  std::size_t width = 0;
  for (std::size_t strip = begin; strip < end; ++strip) {
    const bool isFirst = strip == begin;
    const std::size_t gap = isFirst ? 0 : strips[strip - 1].column == strips[strip].column ? kStripGap : kColumnGap;
    width += gap + strips[strip].width;
  }
  return width;
}

/// The end of the column that begins at a strip.
std::size_t EndOfColumn(const Strips& strips, std::size_t begin) {
  std::size_t end = begin;
  while (end < strips.size() && strips[end].column == strips[begin].column) {
    ++end;
  }
  return end;
}

Lines WrappedLabel(const std::string& label, std::size_t width) {
  Lines lines;
  for (const std::string& line : VisibleLines(label)) {
    Lines parts = WrapTextHanging(line, width);
    std::move(parts.begin(), parts.end(), std::back_inserter(lines));
  }
  return lines;
}

/// What stands above some part of the screen's columns.
struct Heading {
  std::size_t begin;
  std::size_t end;
  bool isAtRight;
  Lines lines;
};

/// Headings side by side that all end with the last line.
void WriteHeadings(std::string& text, const std::vector<Heading>& headings) {
  std::size_t height = 0;
  for (const Heading& heading : headings) {
    height = std::max(height, heading.lines.size());
  }
  for (std::size_t left = height; left > 0; --left) {
    TextLine line;
    for (const Heading& heading : headings) {
      if (left <= heading.lines.size()) {
        const std::string& part = heading.lines[heading.lines.size() - left];
        heading.isAtRight ? line.PutBefore(heading.end, part) : line.PutAt(heading.begin, part);
      }
    }
    text += line.Take();
  }
}

/// Lays out one table.
class SplitLayout {
 public:
  SplitLayout(const SplitTable& table, std::size_t width);

  std::string Text() const;

 private:
  /// Strips side by side, and where on the screen each begins.
  struct Block {
    std::size_t begin;
    std::size_t end;
    std::vector<std::size_t> places;
  };

  std::size_t LabelWidth() const;
  std::size_t WidestColumn() const;
  Block BlockFrom(std::size_t begin) const;
  void WriteBlock(std::string& text, const Block& block) const;
  void WriteGroups(std::string& text, const Block& block) const;
  void WriteColumnLabels(std::string& text, const Block& block) const;
  void WriteStripHeadings(std::string& text, const Block& block) const;
  void WriteRule(std::string& text, const Block& block) const;
  void WriteRow(std::string& text, const Block& block, std::size_t row) const;
  bool HasFoot(const Block& block) const;
  std::size_t EndOf(const Block& block, std::size_t strip) const;
  const StripColumn& ColumnOf(std::size_t strip) const { return fTable.columns[fStrips[strip].column]; }

  const SplitTable& fTable;
  const Strips& fStrips;
  std::size_t fWidth;
  std::size_t fLabelWidth;
};

SplitLayout::SplitLayout(const SplitTable& table, std::size_t width)
    : fTable(table), fStrips(table.strips), fWidth(width), fLabelWidth(LabelWidth()) {}

/// Labels are wrapped where that makes all strips fit; where they don't, labels take what the widest column leaves, up
/// to two fifths.
std::size_t SplitLayout::LabelWidth() const {
  std::size_t natural = 1;
  std::size_t word = 1;
  for (const std::string& label : fTable.labels) {
    for (const std::string& line : VisibleLines(label)) {
      natural = std::max(natural, DisplayWidth(line));
      word = std::max(word, HangingWidth(line));
    }
  }
  const std::size_t total = kStripGap + WidthOf(fStrips, 0, fStrips.size());
  const std::size_t least = std::min(natural, std::max(kLeastLabels, std::min(word, fWidth / 3)));
  if (least + total <= fWidth) {
    return std::min(natural, fWidth - total);
  }
  const std::size_t left = fWidth - std::min(fWidth, kStripGap + WidestColumn());
  return std::min(natural, std::max(least, std::min(left, fWidth * 2 / 5)));
}

std::size_t SplitLayout::WidestColumn() const {
  std::size_t widest = 0;
  for (std::size_t begin = 0; begin < fStrips.size();) {
    const std::size_t end = EndOfColumn(fStrips, begin);
    widest = std::max(widest, WidthOf(fStrips, begin, end));
    begin = end;
  }
  return widest;
}

/// As many whole columns as fit; where not even one does, as many strips of it, one at least.
SplitLayout::Block SplitLayout::BlockFrom(std::size_t begin) const {
  const std::size_t first = fLabelWidth + kStripGap;
  const auto fits = [&](std::size_t end) { return first + WidthOf(fStrips, begin, end) <= fWidth; };
  Block block{begin, begin, {}};
  while (block.end < fStrips.size() && fits(EndOfColumn(fStrips, block.end))) {
    block.end = EndOfColumn(fStrips, block.end);
  }
  if (block.end == begin) {
    const std::size_t end = EndOfColumn(fStrips, begin);
    block.end = begin + 1;
    while (block.end < end && fits(block.end + 1)) {
      ++block.end;
    }
  }
  for (std::size_t strip = begin; strip < block.end; ++strip) {
    block.places.push_back(first + WidthOf(fStrips, begin, strip + 1) - fStrips[strip].width);
  }
  return block;
}

/// The screen's column after a strip.
std::size_t SplitLayout::EndOf(const Block& block, std::size_t strip) const {
  return block.places[strip - block.begin] + fStrips[strip].width;
}

bool SplitLayout::HasFoot(const Block& block) const {
  for (std::size_t strip = block.begin; strip < block.end; ++strip) {
    const auto foot = fStrips[strip].cells.begin() + static_cast<std::ptrdiff_t>(fTable.footBegin);
    if (std::any_of(foot, fStrips[strip].cells.end(), [](const std::string& cell) { return !cell.empty(); })) {
      return true;
    }
  }
  return false;
}

void SplitLayout::WriteBlock(std::string& text, const Block& block) const {
  WriteGroups(text, block);
  WriteColumnLabels(text, block);
  WriteStripHeadings(text, block);
  WriteRule(text, block);
  const bool hasFoot = HasFoot(block);
  const std::size_t rows = hasFoot ? fTable.labels.size() : fTable.footBegin;
  for (std::size_t row = 0; row < rows; ++row) {
    if (row == fTable.footBegin) {
      WriteRule(text, block);
    }
    WriteRow(text, block, row);
  }
  text += rows == 0 ? "(none)\n" : "";
}

/// Each group above its columns, with a line as wide as they are.
void SplitLayout::WriteGroups(std::string& text, const Block& block) const {
  std::vector<Heading> headings;
  for (std::size_t strip = block.begin; strip < block.end;) {
    const std::string& group = ColumnOf(strip).group;
    const std::size_t place = block.places[strip - block.begin];
    while (strip < block.end && ColumnOf(strip).group == group) {
      ++strip;
    }
    if (!group.empty()) {
      const std::size_t end = EndOf(block, strip - 1);
      headings.push_back({place, end, false, WrapLines(group, end - place)});
      std::string& last = headings.back().lines.back();
      const std::size_t width = DisplayWidth(last) + 1;
      last += width < end - place ? ' ' + std::string(end - place - width, '-') : "";
    }
  }
  WriteHeadings(text, headings);
}

/// A label stands at the left of its column's strips, or at the right of the only one, as the numbers do.
void SplitLayout::WriteColumnLabels(std::string& text, const Block& block) const {
  std::vector<Heading> headings;
  for (std::size_t strip = block.begin; strip < block.end;) {
    const std::size_t end = std::min(EndOfColumn(fStrips, strip), block.end);
    const std::size_t place = block.places[strip - block.begin];
    headings.push_back({place, EndOf(block, end - 1), end - strip == 1, {}});
    if (!ColumnOf(strip).label.empty()) {
      headings.back().lines = WrapLines(ColumnOf(strip).label, headings.back().end - place);
    }
    strip = end;
  }
  WriteHeadings(text, headings);
}

void SplitLayout::WriteStripHeadings(std::string& text, const Block& block) const {
  std::vector<Heading> headings;
  for (std::size_t strip = block.begin; strip < block.end; ++strip) {
    const Strip& one = fStrips[strip];
    if (!one.heading.empty()) {
      headings.push_back(
          {block.places[strip - block.begin], EndOf(block, strip), !one.isBar, WrapLines(one.heading, one.width)});
    }
  }
  WriteHeadings(text, headings);
}

void SplitLayout::WriteRule(std::string& text, const Block& block) const {
  TextLine line;
  line.PutAt(0, std::string(fLabelWidth, '-'));
  for (std::size_t strip = block.begin; strip < block.end; ++strip) {
    line.PutAt(block.places[strip - block.begin], std::string(fStrips[strip].width, '-'));
  }
  text += line.Take();
}

/// The figures stand on the first line of the label.
void SplitLayout::WriteRow(std::string& text, const Block& block, std::size_t row) const {
  const Lines label = WrappedLabel(fTable.labels[row], fLabelWidth);
  TextLine line;
  line.PutAt(0, label.front());
  for (std::size_t strip = block.begin; strip < block.end; ++strip) {
    const std::string& cell = fStrips[strip].cells[row];
    const std::size_t blanks = fStrips[strip].isBar || cell.empty() ? 0 : fStrips[strip].width - DisplayWidth(cell);
    line.PutAt(block.places[strip - block.begin], std::string(blanks, ' ') + cell);
  }
  text += line.Take();
  for (std::size_t index = 1; index < label.size(); ++index) {
    line.PutAt(0, label[index]);
    text += line.Take();
  }
}

std::string SplitLayout::Text() const {
  std::string text;
  for (std::size_t begin = 0; begin < fStrips.size();) {
    const Block block = BlockFrom(begin);
    text += text.empty() ? "" : "\n";
    WriteBlock(text, block);
    begin = block.end;
  }
  return text;
}

/// Widens the last strip of the column that begins at a strip for the words above it.
void WidenForWords(SplitTable& table, std::size_t begin, std::size_t end) {
  const StripColumn& column = table.columns[table.strips[begin].column];
  std::size_t word = 0;
  for (const std::string& text : {column.label, column.group}) {
    for (const std::string& line : VisibleLines(text)) {
      word = std::max(word, WidestWord(line));
    }
  }
  const std::size_t wanted = std::min(word, kWidestKeptWord);
  const std::size_t width = WidthOf(table.strips, begin, end);
  table.strips[end - 1].width += wanted - std::min(wanted, width);
}

}  // namespace

std::size_t WidthOf(const std::vector<Strip>& strips) {
  return WidthOf(strips, 0, strips.size());
}

void AlignStrips(SplitTable& table) {
  for (Strip& strip : table.strips) {
    if (!strip.isBar) {
      AlignAtPoint(strip.cells);
    }
    strip.width = std::max({strip.width, Widest(strip.cells), WidestWord(strip.heading)});
  }
  for (std::size_t begin = 0; begin < table.strips.size();) {
    const std::size_t end = EndOfColumn(table.strips, begin);
    WidenForWords(table, begin, end);
    begin = end;
  }
}

std::string SplitTableText(const SplitTable& table, std::size_t width) {
  return SplitLayout(table, width).Text();
}

}  // namespace standalone
