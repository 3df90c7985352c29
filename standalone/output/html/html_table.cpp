#include "standalone/output/html/html_table.h"

#include <fmt/format.h>

#include <algorithm>
#include <set>
#include <string_view>
#include <vector>

#include "standalone/output/footnotes.h"
#include "standalone/output/html/html_text.h"
#include "standalone/text/number_text.h"

namespace standalone {
namespace {

constexpr std::string_view kNotApplicable = "N/A";
constexpr std::string_view kNoFigure = "-";

/// A number, or "<" and a number.
bool IsNumber(const Cell& cell) {
  const auto* text = std::get_if<std::string>(&cell.value);
  return text != nullptr && NumberValue(text->substr(text->find_first_not_of('<') == 1 ? 1 : 0)).has_value();
}

bool MayStandAmongNumbers(const Cell& cell) {
  const auto* text = std::get_if<std::string>(&cell.value);
  return std::holds_alternative<std::monostate>(cell.value) || IsNumber(cell) ||
         (text != nullptr && (*text == kNotApplicable || *text == kNoFigure));
}

/// Whether the column has numbers and nothing else.
bool IsNumeric(const Table& table, std::size_t column) {
  const auto holds = [&](bool (*test)(const Cell&)) {
    return [column, test](const TableRow& row) { return test(row.cells.at(column)); };
  };
  return std::any_of(table.rows.begin(), table.rows.end(), holds(IsNumber)) &&
         std::all_of(table.rows.begin(), table.rows.end(), holds(MayStandAmongNumbers));
}

std::string ListHtml(const std::vector<std::string>& entries) {
  std::string html = "<ul>";
  for (const std::string& entry : entries) {
    html += fmt::format("<li dir=\"auto\">{}</li>", HtmlLines(entry));
  }
  return html + "</ul>";
}

std::string ContentHtml(const Cell& cell) {
  if (const auto* list = std::get_if<std::vector<std::string>>(&cell.value)) {
    return list->empty() ? std::string() : ListHtml(*list);
  }
  const auto* text = std::get_if<std::string>(&cell.value);
  return text == nullptr ? std::string() : HtmlLines(*text);
}

/// Writes one table.
class TableHtml {
 public:
  TableHtml(const Table& table, const std::string& id);

  std::string Html();

 private:
  std::string HeadHtml() const;
  std::string RowHtml(const TableRow& row);
  std::string CellHtml(const Cell& cell, bool isNumeric);
  std::string ReferenceHtml(const std::string& note);
  std::string NotesHtml() const;

  const Table& fTable;
  const std::string& fId;
  std::vector<bool> fIsNumeric;
  Notes fNotes;
};

TableHtml::TableHtml(const Table& table, const std::string& id) : fTable(table), fId(id) {
  for (std::size_t column = 0; column < table.columns.size(); ++column) {
    fIsNumeric.push_back(IsNumeric(table, column));
  }
}

std::string TableHtml::Html() {
  std::string html = fmt::format(
      "<div class=\"scroll\" role=\"group\" aria-labelledby=\"{0}\" tabindex=\"0\">\n"
      "<table>\n<caption id=\"{0}\">{1}</caption>\n{2}<tbody>\n",
      fId, HtmlText(fTable.title), HeadHtml());
  for (const TableRow& row : fTable.rows) {
    html += RowHtml(row);
  }
  if (fTable.rows.empty()) {
    html += fmt::format("<tr><td colspan=\"{}\" class=\"none\">(none)</td></tr>\n", fTable.columns.size() + 1);
  }
  return html + "</tbody>\n</table>\n</div>\n" + NotesHtml();
}

std::string TableHtml::HeadHtml() const {
  std::string html = fmt::format("<thead>\n<tr><th scope=\"col\">{}</th>", HtmlText(fTable.rowDimension));
  for (std::size_t column = 0; column < fTable.columns.size(); ++column) {
    html += fmt::format("<th scope=\"col\"{}>{}</th>", fIsNumeric[column] ? " class=\"number\"" : "",
                        HtmlText(fTable.columns[column]));
  }
  return html + "</tr>\n</thead>\n";
}

std::string TableHtml::RowHtml(const TableRow& row) {
  std::string html = fmt::format(R"(<tr><th scope="row" dir="auto">{}</th>)", HtmlLines(row.name));
  for (std::size_t column = 0; column < row.cells.size(); ++column) {
    html += CellHtml(row.cells[column], fIsNumeric.at(column));
  }
  return html + "</tr>\n";
}

std::string TableHtml::CellHtml(const Cell& cell, bool isNumeric) {
  const std::string reference = cell.note ? ReferenceHtml(*cell.note) : "";
  return fmt::format("<td{} dir=\"auto\">{}{}</td>", isNumeric ? " class=\"number\"" : "", ContentHtml(cell),
                     reference);
}

/// The first reference to a note is where the note leads back to.
std::string TableHtml::ReferenceHtml(const std::string& note) {
  const std::size_t known = fNotes.Texts().size();
  const std::string letters = NoteLetters(fNotes.IndexOf(note));
  const std::string name = fNotes.Texts().size() > known ? fmt::format(" id=\"{}-to-{}\"", fId, letters) : "";
  return fmt::format(R"(<sup><a href="#{0}-note-{1}"{2} aria-label="Note {1}">{1}</a></sup>)", fId, letters, name);
}

std::string TableHtml::NotesHtml() const {
  std::string html;
  for (std::size_t i = 0; i < fNotes.Texts().size(); ++i) {
    html += fmt::format(
        "<li id=\"{0}-note-{1}\"><a href=\"#{0}-to-{1}\" aria-label=\"Note {1}, back to the table\">{1}</a> "
        "<span dir=\"auto\">{2}</span></li>\n",
        fId, NoteLetters(i), HtmlText(fNotes.Texts()[i]));
  }
  return html.empty() ? html : "<ul class=\"notes\">\n" + html + "</ul>\n";
}

}  // namespace

std::string HtmlTable(const Table& table, const std::string& id) {
  return TableHtml(table, id).Html();
}

}  // namespace standalone
