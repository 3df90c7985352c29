#include "standalone/output/plain/text_tabulation.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

#include "standalone/output/plain/split_table.h"
#include "standalone/output/plain/wrap.h"
#include "standalone/output/tabulation_view.h"
#include "standalone/output/tabulation_words.h"
#include "standalone/text/visible.h"

namespace standalone {
namespace {

constexpr std::size_t kLeastBar = 10;
constexpr std::size_t kMostBar = 40;
constexpr int kScaleDecimals = 2;

Strip FigureStrip(const Tabulation& tabulation, std::size_t column, const ShownFigure& figure) {
  Strip strip{column, figure.heading, {}, 0, false};
  for (const TabulationRow& row : tabulation.rows) {
    strip.cells.push_back(FigureText(figure.of(row.cells[column]), figure.decimals));
  }
  return strip;
}

/// Makes the table of a tabulation: a column's first strip holds its bases. With one column the bases are told in
/// sentences.
SplitTable TableOf(const Tabulation& tabulation) {
  const std::vector<ShownFigure> figures = ShownFigures(tabulation);
  const std::vector<BaseRow> bases = tabulation.columns.size() > 1 ? BaseRows(tabulation) : std::vector<BaseRow>();
  SplitTable table;
  for (const TabulationRow& row : tabulation.rows) {
    table.labels.push_back(LabelOf(row));
  }
  table.footBegin = table.labels.size();
  for (const BaseRow& base : bases) {
    table.labels.push_back(base.label);
  }
  for (std::size_t column = 0; column < tabulation.columns.size(); ++column) {
    table.columns.push_back({tabulation.columns[column].by, LabelOf(tabulation.columns[column])});
    const std::size_t first = table.strips.size();
    for (const ShownFigure& figure : figures) {
      table.strips.push_back(FigureStrip(tabulation, column, figure));
    }
    for (const BaseRow& base : bases) {
      table.strips[first].cells.push_back(FigureText(base.figures[column], base.decimals));
    }
  }
  for (Strip& strip : table.strips) {
    strip.cells.resize(table.labels.size());
  }
  return table;
}

/// Makes the bars beside a table.
class Bars {
 public:
  /// Nothing where no figure has a length.
  Bars(const Tabulation& tabulation, Chart chart)
      : fTabulation(tabulation),
        fChart(chart),
        fFigure(chart == Chart::kNone ? std::nullopt : ChartedFigure(tabulation)),
        fLargest(fFigure ? Largest(tabulation, *fFigure, 0, tabulation.columns.size()) : 0) {}

  /// Adds bars after the other strips of each column.
  void AddTo(SplitTable& table, std::size_t width) const;

 private:
  std::size_t Width(const SplitTable& table, std::size_t width) const;
  std::string Scale() const { return FigureText(fLargest, std::min(fFigure->decimals, kScaleDecimals)); }
  Strip StripOf(std::size_t column, std::size_t width) const;

  const Tabulation& fTabulation;
  Chart fChart;
  std::optional<ShownFigure> fFigure;
  double fLargest;
};

void Bars::AddTo(SplitTable& table, std::size_t width) const {
  if (fLargest <= 0) {
    return;
  }
  const std::size_t barWidth = Width(table, width);
  std::vector<Strip> strips;
  for (Strip& strip : table.strips) {
    if (!strips.empty() && strips.back().column != strip.column) {
      strips.push_back(StripOf(strips.back().column, barWidth));
    }
    strips.push_back(std::move(strip));
  }
  strips.push_back(StripOf(strips.back().column, barWidth));
  for (Strip& strip : strips) {
    strip.cells.resize(table.labels.size());
  }
  table.strips = std::move(strips);
}

/// Bars of one column take what room there is beside labels of two fifths of the width.
std::size_t Bars::Width(const SplitTable& table, std::size_t width) const {
  const std::size_t least = std::max(kLeastBar, Scale().size() + 3);  // "0  59.0"
  if (table.columns.size() > 1) {
    return least;
  }
  const std::size_t others = width * 2 / 5 + WidthOf(table.strips) + 2 * kStripGap;
  return std::clamp(width - std::min(width, others), least, std::max(least, kMostBar));
}

/// Below its heading a scale from 0 to the largest.
Strip Bars::StripOf(std::size_t column, std::size_t width) const {
  const std::string largest = Scale();
  const std::string scale = '0' + std::string(width - 1 - largest.size(), ' ') + largest;
  Strip strip{column, fFigure->heading + '\n' + scale, {}, width, true};
  for (const TabulationRow& row : fTabulation.rows) {
    strip.cells.push_back(TextBar(fFigure->of(row.cells[column]).value_or(0) / fLargest, width, fChart));
  }
  return strip;
}

std::string MembersText(const Tabulation& tabulation, std::size_t width, Chart chart) {
  SplitTable table = TableOf(tabulation);
  AlignStrips(table);
  Bars(tabulation, chart).AddTo(table, width);
  return SplitTableText(table, width);
}

void AddWrapped(std::string& text, const std::string& sentence, std::size_t width) {
  for (const std::string& line : WrapText(Visible(sentence), width)) {
    text += line + '\n';
  }
}

/// Sentences below an empty line, where there are any.
void AddSentences(std::string& text, const std::vector<std::string>& sentences, std::size_t width) {
  text += sentences.empty() ? "" : "\n";
  for (const std::string& sentence : sentences) {
    AddWrapped(text, sentence, width);
  }
}

void AddTest(std::string& text, const Tabulation& tabulation, const TabulationTest& test, std::size_t width) {
  const Table texts = TestTable(tabulation, test);
  const std::size_t labels = IsSet(test.by) ? 1 : 0;  // that stand beside the member's
  SplitTable table;
  table.footBegin = texts.rows.size();
  table.columns.emplace_back();
  for (std::size_t column = labels; column < texts.columns.size(); ++column) {
    table.strips.push_back({0, texts.columns[column], {}, 0, false});
  }
  for (const TableRow& row : texts.rows) {
    const auto textAt = [&](std::size_t column) {
      const auto* cell = std::get_if<std::string>(&row.cells[column].value);
      return cell == nullptr ? std::string() : *cell;
    };
    const std::string byLabel = labels == 0 ? "" : textAt(0);
    table.labels.push_back(byLabel.empty() ? row.name : row.name + ", " + byLabel);
    for (std::size_t column = labels; column < texts.columns.size(); ++column) {
      table.strips[column - labels].cells.push_back(textAt(column));
    }
  }
  AlignStrips(table);
  text += '\n';
  AddWrapped(text, texts.title, width);
  text += '\n' + SplitTableText(table, width);
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
  text += '\n' + MembersText(tabulation, width, chart);
  if (tabulation.columns.size() == 1) {
    AddSentences(text, BaseSentences(tabulation), width);
  }
  for (const TabulationTest& test : tabulation.tests) {
    AddTest(text, tabulation, test, width);
  }
  AddSentences(text, NotesOf(tabulation), width);
  return text;
}

}  // namespace standalone
