#include "standalone/output/html/html_tabulation.h"

#include <fmt/format.h>

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

#include "standalone/output/html/html_chart.h"
#include "standalone/output/html/html_table.h"
#include "standalone/output/html/html_text.h"
#include "standalone/output/tabulation_view.h"
#include "standalone/output/tabulation_words.h"

namespace standalone {
namespace {

/// Writes the table.
class TabulationHtml {
 public:
  explicit TabulationHtml(const Tabulation& tabulation)
      : fTabulation(tabulation), fFigures(ShownFigures(tabulation)), fGroups(ColumnGroups(tabulation)) {}

  std::size_t FiguresOfRow() const { return fTabulation.columns.size() * fFigures.size(); }
  std::string Table(const std::string& id) const;
  std::string Charts(const std::string& id) const;

 private:
  bool HasBy() const { return fGroups.size() > 1; }
  std::string CaptionHtml(const std::string& id) const;
  std::string GroupsHtml() const;
  std::string HeadHtml() const;
  std::string GroupHeadings() const;
  std::string ColumnHeadings() const;
  std::string FigureHeadings() const;
  std::string RowHtml(const TabulationRow& row) const;
  std::string BaseHtml(const BaseRow& base) const;

  const Tabulation& fTabulation;
  std::vector<ShownFigure> fFigures;
  std::vector<ColumnGroup> fGroups;
};

std::string TabulationHtml::Table(const std::string& id) const {
  std::string html = fmt::format(
      "<div class=\"scroll\" role=\"group\" aria-labelledby=\"{}\" tabindex=\"0\">\n<table>\n{}{}{}<tbody>\n", id,
      CaptionHtml(id), GroupsHtml(), HeadHtml());
  for (const TabulationRow& row : fTabulation.rows) {
    html += RowHtml(row);
  }
  html += "</tbody>\n<tfoot>\n";
  for (const BaseRow& base : BaseRows(fTabulation)) {
    html += BaseHtml(base);
  }
  return html + "</tfoot>\n</table>\n</div>\n";
}

std::string TabulationHtml::CaptionHtml(const std::string& id) const {
  std::string html = fmt::format("<caption id=\"{}\" dir=\"auto\">{}", id, HtmlText(TitleOf(fTabulation)));
  for (const std::string& line : ScopeOf(fTabulation)) {
    html += fmt::format(" <span class=\"scope\">{}</span>", HtmlText(line));
  }
  return html + "</caption>\n";
}

std::string TabulationHtml::GroupsHtml() const {
  std::string html = "<colgroup></colgroup>";
  for (const ColumnGroup& group : fGroups) {
    html += fmt::format("<colgroup span=\"{}\"></colgroup>", (group.end - group.begin) * fFigures.size());
  }
  return html + '\n';
}

/// The columns of a BY stand below its name; the total is a group of its own.
std::string TabulationHtml::HeadHtml() const {
  const std::string columns = HasBy() ? fmt::format("<tr>{}</tr>\n", ColumnHeadings()) : "";
  return fmt::format("<thead>\n<tr><td rowspan=\"{}\"></td>{}</tr>\n{}<tr>{}</tr>\n</thead>\n", HasBy() ? 3 : 2,
                     GroupHeadings(), columns, FigureHeadings());
}

std::string TabulationHtml::GroupHeadings() const {
  std::string html;
  for (const ColumnGroup& group : fGroups) {
    const bool isTotal = group.by.empty();
    html += fmt::format("<th scope=\"colgroup\" colspan=\"{}\"{} dir=\"auto\">{}</th>",
                        (group.end - group.begin) * fFigures.size(), isTotal && HasBy() ? " rowspan=\"2\"" : "",
                        HtmlLines(isTotal ? LabelOf(fTabulation.columns[group.begin]) : group.by));
  }
  return html;
}

std::string TabulationHtml::ColumnHeadings() const {
  std::string html;
  for (const TabulationColumn& column : fTabulation.columns) {
    if (!column.by.empty()) {
      html += fmt::format("<th scope=\"col\" colspan=\"{}\" dir=\"auto\">{}</th>", fFigures.size(),
                          HtmlLines(LabelOf(column)));
    }
  }
  return html;
}

std::string TabulationHtml::FigureHeadings() const {
  std::string html;
  for (std::size_t column = 0; column < fTabulation.columns.size(); ++column) {
    for (const ShownFigure& figure : fFigures) {
      html += fmt::format("<th scope=\"col\" class=\"number\">{}</th>", HtmlText(figure.heading));
    }
  }
  return html;
}

std::string TabulationHtml::RowHtml(const TabulationRow& row) const {
  std::string html = fmt::format(R"(<tr{}><th scope="row" dir="auto">{}</th>)", row.isNet ? " class=\"net\"" : "",
                                 HtmlLines(LabelOf(row)));
  for (const TabulationCell& cell : row.cells) {
    for (const ShownFigure& figure : fFigures) {
      html += fmt::format("<td class=\"number\">{}</td>", FigureText(figure.of(cell), figure.decimals));
    }
  }
  return html + "</tr>\n";
}

/// A base stands below the first figure of its column.
std::string TabulationHtml::BaseHtml(const BaseRow& base) const {
  const std::string rest =
      fFigures.size() > 1 ? fmt::format("<td colspan=\"{}\"></td>", fFigures.size() - 1) : std::string();
  std::string html = fmt::format("<tr><th scope=\"row\">{}</th>", HtmlText(base.label));
  for (const Figure& figure : base.figures) {
    html += fmt::format("<td class=\"number\">{}</td>{}", FigureText(figure, base.decimals), rest);
  }
  return html + "</tr>\n";
}

/// A chart for each BY, else one of the total.
std::string TabulationHtml::Charts(const std::string& id) const {
  const std::optional<ShownFigure> figure = ChartedFigure(fTabulation);
  std::string html;
  std::size_t number = 0;
  for (const ColumnGroup& group : fGroups) {
    if (figure && (!group.by.empty() || !HasBy())) {
      html += HtmlChart(fTabulation, group, *figure, fmt::format("{}-chart-{}", id, ++number));
    }
  }
  return html;
}

std::string NotesHtml(const std::vector<std::string>& notes) {
  std::string html;
  for (const std::string& note : notes) {
    html += fmt::format("<li dir=\"auto\">{}</li>\n", HtmlText(note));
  }
  return html.empty() ? html : "<ul class=\"notes\">\n" + html + "</ul>\n";
}

}  // namespace

std::string HtmlTabulation(const Tabulation& tabulation, const std::string& id) {
  const TabulationHtml table(tabulation);
  std::string html = fmt::format("<div class=\"tabulation\" style=\"--figures: {}\">\n", table.FiguresOfRow()) +
                     table.Table(id) + table.Charts(id) + "</div>\n";
  for (std::size_t test = 0; test < tabulation.tests.size(); ++test) {
    html += HtmlTable(TestTable(tabulation, tabulation.tests[test]), fmt::format("{}-test-{}", id, test + 1));
  }
  return html + NotesHtml(NotesOf(tabulation));
}

}  // namespace standalone
