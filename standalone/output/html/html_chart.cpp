#include "standalone/output/html/html_chart.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <string_view>

#include "standalone/output/html/html_text.h"
#include "standalone/output/plain/wrap.h"
#include "standalone/output/tabulation_words.h"
#include "standalone/text/unicode.h"
#include "standalone/text/visible.h"

namespace standalone {
namespace {

constexpr std::size_t kMostBars = 200;
constexpr std::size_t kColours = 7;
constexpr int kMostDecimals = 2;

// Places in percent of the chart's width, which the style sheet keeps at 400 pixels or more; heights in pixels.
constexpr double kBarsBegin = 44;
constexpr double kLongestBar = 44;
constexpr double kLeastBar = 10;
constexpr double kPixelsOfPercent = 4;
constexpr std::size_t kRoomAroundValue = 12;
constexpr std::size_t kLineHeight = 18;
constexpr std::size_t kBarHeight = 14;
constexpr std::size_t kBaseline = 12;
constexpr std::size_t kGap = 4;

/// A room for text: columns at which it is wrapped, its width in pixels, and how wide its characters are in percent of
/// ordinary ones.
struct Room {
  std::size_t columns;
  std::size_t pixels;
  std::size_t scale;
};

constexpr Room kLabelRoom = {20, 174, 100};
constexpr Room kMemberRoom = {40, 392, 120};  // bold

/// About how wide the text is; more than it is in most typefaces.
std::size_t PixelsOf(std::string_view text) {
  constexpr std::string_view kWide = "ABCDEFGHIJKLMNOPQRSTUVWXYZmw@%&<>=+~^#";
  std::size_t pixels = 0;
  for (std::size_t offset = 0; offset < text.size(); offset += CharacterLength(text, offset)) {
    const std::string_view character = text.substr(offset, CharacterLength(text, offset));
    const bool isWide = kWide.find(character) != std::string_view::npos || DisplayWidth(character) > 1;
    pixels += isWide ? 14 : character.size() > 1 ? 10 : 8;
  }
  return pixels;
}

/// Writes the bars from the top down.
class BarChart {
 public:
  BarChart(const Tabulation& tabulation, const ColumnGroup& group, const ShownFigure& figure)
      : fTabulation(tabulation),
        fGroup(group),
        fFigure(figure),
        fLargest(Largest(tabulation, figure, group.begin, group.end)) {}

  bool IsEmpty() const { return fLargest <= 0; }

  std::string Html(const std::string& id);

 private:
  bool HasOneSeries() const { return fGroup.end - fGroup.begin == 1; }
  std::string ValueText(const Figure& value) const;
  double LongestBar() const;
  void AddScale();
  void AddMember(const TabulationRow& row);
  void AddBar(const std::string& label, const Figure& value, const std::string& className);
  std::size_t AddText(const std::string& text, const Room& room, std::string_view className);
  std::string Title() const;
  std::string Description() const;

  const Tabulation& fTabulation;
  const ColumnGroup& fGroup;
  const ShownFigure& fFigure;
  double fLargest;
  double fLongest = LongestBar();  // in percent of the width
  std::string fBody;
  std::size_t fTop = 0;
};

std::string BarChart::ValueText(const Figure& value) const {
  return FigureText(value, std::min(fFigure.decimals, kMostDecimals));
}

/// The largest value has room after the longest bar; no other takes more.
double BarChart::LongestBar() const {
  const auto room = static_cast<double>(PixelsOf(ValueText(fLargest)) + kRoomAroundValue);
  return std::clamp(100 - kBarsBegin - room / kPixelsOfPercent, kLeastBar, kLongestBar);
}

std::string BarChart::Html(const std::string& id) {
  AddScale();
  for (const TabulationRow& row : fTabulation.rows) {
    AddMember(row);
  }
  return fmt::format(
      "<div class=\"scroll chart\" role=\"group\" aria-labelledby=\"{0}\" tabindex=\"0\">\n"
      "<p id=\"{0}\" class=\"chart-title\" dir=\"auto\">{2}</p>\n"
      "<svg role=\"img\" aria-labelledby=\"{0}-title {0}-desc\" width=\"100%\" height=\"{1}\">\n"
      "<title id=\"{0}-title\">{3}: {2}</title>\n<desc id=\"{0}-desc\">{4}</desc>\n{5}</svg>\n</div>\n",
      id, fTop, HtmlText(Title()), HtmlText(TitleOf(fTabulation)), Description(), fBody);
}

/// A line above the bars, as long as the longest.
void BarChart::AddScale() {
  fBody += fmt::format(
      "<text class=\"scale\" x=\"{0:.2f}%\" y=\"{2}\">0</text>"
      "<text class=\"scale\" x=\"{1:.2f}%\" y=\"{2}\" text-anchor=\"end\">{3}</text>"
      "<line class=\"scale\" x1=\"{0:.2f}%\" y1=\"{4}\" x2=\"{1:.2f}%\" y2=\"{4}\"/>\n",
      kBarsBegin, kBarsBegin + fLongest, kBaseline, ValueText(fLargest), kLineHeight);
  fTop = kLineHeight + kGap;
}

/// "% of cases", "% of cases by region", or "% of cases by region: North" where there is no other column.
std::string BarChart::Title() const {
  const std::string by = fGroup.by.empty() ? "" : " by " + fGroup.by;
  const std::string column =
      fGroup.by.empty() || !HasOneSeries() ? "" : ": " + LabelOf(fTabulation.columns[fGroup.begin]);
  return fFigure.heading + by + VisibleOnOneLine(column);
}

std::string BarChart::Description() const {
  return fmt::format("Bars of the table's figures: {}. The scale goes from 0 to {}.", HtmlText(fFigure.heading),
                     ValueText(fLargest));
}

/// One bar beside the member's label, or a bar for each column below it.
void BarChart::AddMember(const TabulationRow& row) {
  if (HasOneSeries()) {
    AddBar(LabelOf(row), fFigure.of(row.cells[fGroup.begin]), "bar");
    return;
  }
  fTop += 2 * kGap;
  fTop += AddText(LabelOf(row), kMemberRoom, "member");
  const bool areColoured = fGroup.end - fGroup.begin <= kColours;
  for (std::size_t column = fGroup.begin; column < fGroup.end; ++column) {
    AddBar(LabelOf(fTabulation.columns[column]), fFigure.of(row.cells[column]),
           areColoured ? fmt::format("bar bar-{}", column - fGroup.begin + 1) : "bar");
  }
}

void BarChart::AddBar(const std::string& label, const Figure& value, const std::string& className) {
  const std::size_t height = AddText(label, kLabelRoom, "label");
  const double length = value.value_or(0) / fLargest * fLongest;
  fBody += fmt::format(
      "<rect class=\"{}\" x=\"{:.2f}%\" y=\"{}\" width=\"{:.2f}%\" height=\"{}\"/>"
      "<text x=\"{:.2f}%\" dx=\"6\" y=\"{}\">{}</text>\n",
      className, kBarsBegin, fTop, length, kBarHeight, kBarsBegin + length, fTop + kBaseline, ValueText(value));
  fTop += height + kGap;
}

/// Writes the lines of a text from the top on, each no wider than its room, and returns their height.
std::size_t BarChart::AddText(const std::string& text, const Room& room, std::string_view className) {
  std::size_t height = 0;
  for (const std::string& line : WrapLines(text, room.columns)) {
    const bool isTooWide = PixelsOf(line) * room.scale > room.pixels * 100;
    const std::string squeezed =
        isTooWide ? fmt::format(" textLength=\"{}\" lengthAdjust=\"spacingAndGlyphs\"", room.pixels) : "";
    fBody += fmt::format("<text class=\"{}\" x=\"0\" y=\"{}\"{}>{}</text>\n", className, fTop + kBaseline + height,
                         squeezed, HtmlText(line));
    height += kLineHeight;
  }
  return height;
}

}  // namespace

std::string HtmlChart(const Tabulation& tabulation, const ColumnGroup& group, const ShownFigure& figure,
                      const std::string& id) {
  const std::size_t bars = tabulation.rows.size() * (group.end - group.begin);
  if (bars > kMostBars) {
    return {};
  }
  BarChart chart(tabulation, group, figure);
  return chart.IsEmpty() ? std::string() : chart.Html(id);
}

}  // namespace standalone
