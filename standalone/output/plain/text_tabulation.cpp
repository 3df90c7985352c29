#include "standalone/output/plain/text_tabulation.h"

#include <algorithm>
#include <iterator>
#include <utility>
#include <vector>

#include "standalone/output/plain/tabulation_strips.h"
#include "standalone/output/plain/text_line.h"
#include "standalone/output/plain/text_table.h"
#include "standalone/output/plain/wrap.h"
#include "standalone/output/tabulation_view.h"
#include "standalone/output/tabulation_words.h"
#include "standalone/text/unicode.h"
#include "standalone/text/visible.h"

namespace standalone {
namespace {

using Lines = std::vector<std::string>;

constexpr std::size_t kLeastLabels = 8;
constexpr std::size_t kLeastBar = 10;
constexpr std::size_t kMostBar = 40;

std::size_t TwoFifths(std::size_t width) {
  return width * 2 / 5;
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

/// Lays out one tabulation.
class TabulationLayout {
 public:
  TabulationLayout(const Tabulation& tabulation, std::size_t width, Chart chart);

  std::string Text() const;

 private:
  /// Strips side by side, and where on the screen each begins.
  struct Block {
    std::size_t begin;
    std::size_t end;
    std::vector<std::size_t> places;
  };

  std::size_t BarWidth(const std::vector<Strip>& withoutBars) const;
  std::size_t LabelWidth() const;
  std::vector<Block> Blocks() const;
  Block BlockFrom(std::size_t begin) const;
  void WriteBlock(std::string& text, const Block& block) const;
  void WriteGroups(std::string& text, const Block& block) const;
  void WriteColumnLabels(std::string& text, const Block& block) const;
  void WriteStripHeadings(std::string& text, const Block& block) const;
  void WriteRule(std::string& text, const Block& block) const;
  void WriteRow(std::string& text, const Block& block, std::size_t row) const;
  std::size_t EndOf(const Block& block, std::size_t strip) const;
  const std::string& ByOf(std::size_t strip) const { return fTabulation.columns[fStrips[strip].column].by; }

  const Tabulation& fTabulation;
  std::size_t fWidth;
  std::vector<BaseRow> fBases;
  Lines fLabels;  // of the rows, then of the bases
  std::size_t fLabelWidth = 0;
  std::vector<Strip> fStrips;
};

/// With one column the bases are told in sentences.
TabulationLayout::TabulationLayout(const Tabulation& tabulation, std::size_t width, Chart chart)
    : fTabulation(tabulation), fWidth(width) {
  if (tabulation.columns.size() > 1) {
    fBases = BaseRows(tabulation);
  }
  for (const TabulationRow& row : tabulation.rows) {
    fLabels.push_back(LabelOf(row));
  }
  for (const BaseRow& base : fBases) {
    fLabels.push_back(base.label);
  }
  fStrips = Strips(tabulation, fBases, Chart::kNone, 0);
  if (chart != Chart::kNone) {
    fStrips = Strips(tabulation, fBases, chart, BarWidth(fStrips));
  }
  fLabelWidth = LabelWidth();
}

/// Bars of one column take what room there is.
std::size_t TabulationLayout::BarWidth(const std::vector<Strip>& withoutBars) const {
  if (fTabulation.columns.size() > 1) {
    return kLeastBar;
  }
  const std::size_t others = TwoFifths(fWidth) + WidthOf(withoutBars, 0, withoutBars.size()) + 2 * kStripGap;
  return std::clamp(fWidth - std::min(fWidth, others), kLeastBar, kMostBar);
}

/// Labels are wrapped where that makes all strips fit; where they don't, labels take what the widest column leaves, up
/// to two fifths.
std::size_t TabulationLayout::LabelWidth() const {
  std::size_t natural = 1;
  std::size_t word = 1;
  for (const std::string& label : fLabels) {
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
  std::size_t widest = 0;
  for (std::size_t strip = 0; strip < fStrips.size(); strip = EndOfColumn(fStrips, strip)) {
    widest = std::max(widest, kStripGap + WidthOf(fStrips, strip, EndOfColumn(fStrips, strip)));
  }
  const std::size_t left = std::max(least, std::min(TwoFifths(fWidth), fWidth - std::min(fWidth, widest)));
  return std::min(natural, std::max(kLeastLabels, std::min(left, fWidth - std::min(fWidth, widest))));
}

std::vector<TabulationLayout::Block> TabulationLayout::Blocks() const {
  std::vector<Block> blocks;
  for (std::size_t begin = 0; begin < fStrips.size(); begin = blocks.back().end) {
    blocks.push_back(BlockFrom(begin));
  }
  return blocks;
}

/// As many whole columns as fit; where not even one does, as many strips of it, one at least.
TabulationLayout::Block TabulationLayout::BlockFrom(std::size_t begin) const {
  const std::size_t first = fLabelWidth + kStripGap;
  const auto fits = [&](std::size_t end) { return first + WidthOf(fStrips, begin, end) <= fWidth; };
  Block block{begin, begin, {}};
  for (std::size_t end = EndOfColumn(fStrips, begin); block.end < fStrips.size() && fits(end);) {
    block.end = end;
    end = EndOfColumn(fStrips, end < fStrips.size() ? end : begin);
  }
  if (block.end == begin) {
    block.end = begin + 1;
    while (block.end < fStrips.size() && fStrips[block.end].column == fStrips[begin].column && fits(block.end + 1)) {
      ++block.end;
    }
  }
  for (std::size_t strip = begin; strip < block.end; ++strip) {
    block.places.push_back(first + WidthOf(fStrips, begin, strip + 1) - fStrips[strip].width);
  }
  return block;
}

/// The screen's column after a strip.
std::size_t TabulationLayout::EndOf(const Block& block, std::size_t strip) const {
  return block.places[strip - block.begin] + fStrips[strip].width;
}

void TabulationLayout::WriteBlock(std::string& text, const Block& block) const {
  WriteGroups(text, block);
  WriteColumnLabels(text, block);
  WriteStripHeadings(text, block);
  WriteRule(text, block);
  for (std::size_t row = 0; row < fLabels.size(); ++row) {
    if (row == fTabulation.rows.size()) {
      WriteRule(text, block);
    }
    WriteRow(text, block, row);
  }
  if (fTabulation.rows.empty() && fBases.empty()) {
    text += "(none)\n";
  }
}

/// Each BY above its columns, with a line as wide as they are.
void TabulationLayout::WriteGroups(std::string& text, const Block& block) const {
  TextLine line;
  bool isEmpty = true;
  for (std::size_t strip = block.begin; strip < block.end;) {
    const std::string& by = ByOf(strip);
    const std::size_t place = block.places[strip - block.begin];
    while (strip < block.end && ByOf(strip) == by) {
      ++strip;
    }
    if (!by.empty()) {
      std::string heading = Visible(by) + ' ';
      const std::size_t width = EndOf(block, strip - 1) - place;
      line.PutAt(place, heading.append(width - std::min(width, DisplayWidth(heading)), '-'));
      isEmpty = false;
    }
  }
  text += isEmpty ? "" : line.Take();
}

/// A label stands at the left of its column's strips, or at the right of the only one, as the numbers do.
void TabulationLayout::WriteColumnLabels(std::string& text, const Block& block) const {
  std::vector<Heading> headings;
  for (std::size_t strip = block.begin; strip < block.end;) {
    const std::size_t end = std::min(EndOfColumn(fStrips, strip), block.end);
    const std::size_t place = block.places[strip - block.begin];
    const std::string label = Visible(LabelOf(fTabulation.columns[fStrips[strip].column]));
    headings.push_back({place, EndOf(block, end - 1), end - strip == 1, {}});
    headings.back().lines = WrapText(label, headings.back().end - place);
    strip = end;
  }
  WriteHeadings(text, headings);
}

void TabulationLayout::WriteStripHeadings(std::string& text, const Block& block) const {
  std::vector<Heading> headings;
  for (std::size_t strip = block.begin; strip < block.end; ++strip) {
    headings.push_back({0, EndOf(block, strip), true, fStrips[strip].heading});
  }
  WriteHeadings(text, headings);
}

void TabulationLayout::WriteRule(std::string& text, const Block& block) const {
  TextLine line;
  line.PutAt(0, std::string(fLabelWidth, '-'));
  for (std::size_t strip = block.begin; strip < block.end; ++strip) {
    line.PutAt(block.places[strip - block.begin], std::string(fStrips[strip].width, '-'));
  }
  text += line.Take();
}

/// The figures stand on the first line of the label.
void TabulationLayout::WriteRow(std::string& text, const Block& block, std::size_t row) const {
  const Lines label = WrappedLabel(fLabels[row], fLabelWidth);
  TextLine line;
  line.PutAt(0, label.front());
  for (std::size_t strip = block.begin; strip < block.end; ++strip) {
    const std::string& cell = fStrips[strip].cells[row];
    const std::size_t begin = block.places[strip - block.begin];
    const std::size_t blanks = fStrips[strip].isBar ? 0 : fStrips[strip].width - DisplayWidth(cell);
    line.PutAt(begin, cell.empty() ? cell : std::string(blanks, ' ') + cell);
  }
  text += line.Take();
  for (std::size_t index = 1; index < label.size(); ++index) {
    line.PutAt(0, label[index]);
    text += line.Take();
  }
}

std::string TabulationLayout::Text() const {
  std::string text;
  for (const Block& block : Blocks()) {
    text += text.empty() ? "" : "\n";
    WriteBlock(text, block);
  }
  return text;
}

void AddWrapped(std::string& text, const std::string& sentence, std::size_t width) {
  for (const std::string& line : WrapText(Visible(sentence), width)) {
    text += line + '\n';
  }
}

/// With sentences below an empty line, where there are any.
void AddSentences(std::string& text, const std::vector<std::string>& sentences, std::size_t width) {
  text += sentences.empty() ? "" : "\n";
  for (const std::string& sentence : sentences) {
    AddWrapped(text, sentence, width);
  }
}

/// The table with the numbers of each column aligned, from that of an index on.
Table WithAlignedNumbers(Table table, std::size_t first) {
  for (std::size_t column = first; column < table.columns.size(); ++column) {
    std::vector<std::string> numbers;
    for (const TableRow& row : table.rows) {
      const auto* text = std::get_if<std::string>(&row.cells[column].value);
      numbers.push_back(text == nullptr ? "" : *text);
    }
    AlignAtPoint(numbers);
    for (std::size_t row = 0; row < table.rows.size(); ++row) {
      table.rows[row].cells[column].value = numbers[row];
    }
  }
  return table;
}

}  // namespace

std::string TextTabulation(const Tabulation& tabulation, std::size_t width, Colour colour, Chart chart) {
  std::string text;
  for (const std::string& line : WrapText(Visible(TitleOf(tabulation)), width)) {
    text += Painted(line, Style::kHeading, colour) + '\n';
  }
  for (const std::string& line : ScopeOf(tabulation)) {
    AddWrapped(text, line, width);
  }
  text += '\n' + TabulationLayout(tabulation, width, chart).Text();
  if (tabulation.columns.size() == 1) {
    AddSentences(text, BaseSentences(tabulation), width);
  }
  for (const TabulationTest& test : tabulation.tests) {
    text += '\n' + TextTable(WithAlignedNumbers(TestTable(tabulation, test), IsSet(test.by) ? 1 : 0), width);
  }
  AddSentences(text, tabulation.notes, width);
  return text;
}

}  // namespace standalone
