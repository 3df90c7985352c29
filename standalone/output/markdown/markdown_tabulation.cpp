#include "standalone/output/markdown/markdown_tabulation.h"

#include <fmt/format.h>

#include <ostream>
#include <string>
#include <vector>

#include "standalone/output/markdown/markdown_text.h"
#include "standalone/output/tabulation_view.h"
#include "standalone/output/tabulation_words.h"

namespace standalone {
namespace {

using Texts = std::vector<std::string>;

std::string TableRowText(const Texts& cells) {
  return fmt::format("| {} |\n", fmt::join(cells, " | "));
}

/// "Count" of the total, else "region: North: Count".
std::string Heading(const TabulationColumn& column, const ShownFigure& figure) {
  const std::string of = column.by.empty() ? LabelOf(column) : fmt::format("{}: {}", column.by, LabelOf(column));
  return MarkdownLines({of, figure.heading});
}

std::string HeadingRows(const Tabulation& tabulation, const std::vector<ShownFigure>& figures) {
  Texts headings = {""};
  Texts sides = {"---"};
  for (const TabulationColumn& column : tabulation.columns) {
    for (const ShownFigure& figure : figures) {
      headings.push_back(Heading(column, figure));
      sides.emplace_back("---:");
    }
  }
  return TableRowText(headings) + TableRowText(sides);
}

std::string MemberRow(const TabulationRow& row, const std::vector<ShownFigure>& figures) {
  Texts cells = {MarkdownLines({LabelOf(row)})};
  for (const TabulationCell& cell : row.cells) {
    for (const ShownFigure& figure : figures) {
      cells.push_back(FigureText(figure.of(cell), figure.decimals));
    }
  }
  return TableRowText(cells);
}

/// In the first of the columns that each column of the tabulation has.
std::string BaseRowText(const BaseRow& base, std::size_t figures) {
  Texts cells = {fmt::format("*{}*", MarkdownText(base.label))};
  for (const Figure& figure : base.figures) {
    cells.push_back(FigureText(figure, base.decimals));
    cells.resize(cells.size() + figures - 1);
  }
  return TableRowText(cells);
}

}  // namespace

void WriteMarkdown(std::ostream& stream, const Tabulation& tabulation, TableWriter& tables) {
  const std::vector<ShownFigure> figures = ShownFigures(tabulation);
  stream << "**" << MarkdownText(TitleOf(tabulation)) << "**\n\n";
  for (const std::string& line : ScopeOf(tabulation)) {
    stream << MarkdownText(line) << "\n\n";
  }
  stream << HeadingRows(tabulation, figures);
  for (const TabulationRow& row : tabulation.rows) {
    stream << MemberRow(row, figures);
  }
  for (const BaseRow& base : BaseRows(tabulation)) {
    stream << BaseRowText(base, figures.size());
  }
  for (const TabulationTest& test : tabulation.tests) {
    stream << '\n';
    tables.Write(TestTable(tabulation, test));
  }
  for (const std::string& note : NotesOf(tabulation)) {
    stream << '\n' << MarkdownText(note) << '\n';
  }
}

}  // namespace standalone
