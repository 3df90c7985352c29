#include "standalone/output/plain/tabulation_strips.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "standalone/output/plain/text_line.h"
#include "standalone/output/plain/wrap.h"
#include "standalone/output/tabulation_words.h"
#include "standalone/text/unicode.h"
#include "standalone/text/visible.h"

namespace standalone {
namespace {

/// A column is at least as wide as a word of its label that is no wider than this.
constexpr std::size_t kWidestKeptWord = 12;

std::size_t Widest(const std::vector<std::string>& texts) {
  std::size_t widest = 0;
  for (const std::string& text : texts) {
    widest = std::max(widest, DisplayWidth(text));
  }
  return widest;
}

/// The largest percentage of cases, which the longest bar stands for.
double LargestPercentage(const Tabulation& tabulation) {
  double largest = 0;
  for (const TabulationRow& row : tabulation.rows) {
    for (const TabulationCell& cell : row.cells) {
      largest = std::max(largest, cell.percentOfCases.value_or(0));
    }
  }
  return largest;
}

/// Makes the strips of a tabulation, column by column.
class StripMaker {
 public:
  StripMaker(const Tabulation& tabulation, const std::vector<BaseRow>& bases, Chart chart, std::size_t barWidth)
      : fTabulation(tabulation),
        fBases(bases),
        fChart(chart),
        fBarWidth(barWidth),
        fLargest(chart == Chart::kNone ? 0 : LargestPercentage(tabulation)) {}

  std::vector<Strip> Make();

 private:
  void AddColumn(std::size_t column);
  Strip FigureStrip(std::size_t column, const ShownFigure& figure, bool isFirst) const;
  Strip BarStrip(std::size_t column) const;
  void WidenFor(std::size_t column, std::size_t begin);

  const Tabulation& fTabulation;
  const std::vector<BaseRow>& fBases;
  Chart fChart;
  std::size_t fBarWidth;
  double fLargest;
  std::vector<ShownFigure> fFigures;
  std::vector<Strip> fStrips;
};

std::vector<Strip> StripMaker::Make() {
  fFigures = ShownFigures(fTabulation);
  for (std::size_t column = 0; column < fTabulation.columns.size(); ++column) {
    AddColumn(column);
  }
  return std::move(fStrips);
}

void StripMaker::AddColumn(std::size_t column) {
  const std::size_t begin = fStrips.size();
  for (const ShownFigure& figure : fFigures) {
    fStrips.push_back(FigureStrip(column, figure, fStrips.size() == begin));
  }
  if (fChart != Chart::kNone) {
    fStrips.push_back(BarStrip(column));
  }
  WidenFor(column, begin);
}

Strip StripMaker::FigureStrip(std::size_t column, const ShownFigure& figure, bool isFirst) const {
  Strip strip;
  strip.column = column;
  for (const TabulationRow& row : fTabulation.rows) {
    strip.cells.push_back(FigureText(figure.of(row.cells[column]), figure.decimals));
  }
  for (const BaseRow& base : fBases) {
    strip.cells.push_back(isFirst ? FigureText(base.figures[column], base.decimals) : "");
  }
  AlignAtPoint(strip.cells);
  strip.width = std::max(Widest(strip.cells), WidestWord(figure.heading));
  strip.heading = WrapText(figure.heading, strip.width);
  return strip;
}

Strip StripMaker::BarStrip(std::size_t column) const {
  Strip strip;
  strip.column = column;
  strip.isBar = true;
  strip.width = fBarWidth;
  for (const TabulationRow& row : fTabulation.rows) {
    const double percentage = row.cells[column].percentOfCases.value_or(0);
    strip.cells.push_back(percentage > 0 ? TextBar(percentage / fLargest, fBarWidth, fChart) : "");
  }
  strip.cells.resize(strip.cells.size() + fBases.size());
  return strip;
}

/// Widens the last strip of the column for the words of its label.
void StripMaker::WidenFor(std::size_t column, std::size_t begin) {
  const std::size_t wanted = std::min(WidestWord(Visible(LabelOf(fTabulation.columns[column]))), kWidestKeptWord);
  const std::size_t width = WidthOf(fStrips, begin, fStrips.size());
  if (!fStrips.empty() && width < wanted) {
    fStrips.back().width += wanted - width;
  }
}

}  // namespace

std::vector<Strip> Strips(const Tabulation& tabulation, const std::vector<BaseRow>& bases, Chart chart,
                          std::size_t barWidth) {
  return StripMaker(tabulation, bases, chart, barWidth).Make();
}

std::size_t WidthOf(const std::vector<Strip>& strips, std::size_t begin, std::size_t end) {
  std::size_t width = 0;
  for (std::size_t strip = begin; strip < end; ++strip) {
    const bool isFirst = strip == begin;
    const std::size_t gap = isFirst ? 0 : strips[strip - 1].column == strips[strip].column ? kStripGap : kColumnGap;
    width += gap + strips[strip].width;
  }
  return width;
}

std::size_t EndOfColumn(const std::vector<Strip>& strips, std::size_t begin) {
  std::size_t end = begin;
  while (end < strips.size() && strips[end].column == strips[begin].column) {
    ++end;
  }
  return end;
}

}  // namespace standalone
