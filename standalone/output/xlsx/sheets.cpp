#include "standalone/output/xlsx/sheets.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

#include "standalone/output/footnotes.h"
#include "standalone/output/tabulation_view.h"
#include "standalone/output/tabulation_words.h"
#include "standalone/text/unicode.h"

namespace standalone {
namespace {

constexpr double kNumberWidth = 12;

/// A column's width for texts.
double WidthFor(std::size_t longest) {
  constexpr std::size_t kLeast = 12;
  constexpr std::size_t kMost = 60;
  return static_cast<double>(std::clamp(longest + 2, kLeast, kMost));
}

/// Begins a sheet with its title; says so where the rest does not fit.
bool BeginSheet(Workbook& workbook, const std::string& name, const std::string& title, std::size_t rows,
                std::size_t columns) {
  workbook.AddSheet(name);
  workbook.Text(0, 0, title, CellStyle::kTitle);
  if (rows > Workbook::kRows || columns > Workbook::kColumns) {
    workbook.Text(1, 0,
                  fmt::format("A sheet cannot hold {} rows and {} columns; ask for another format.", rows, columns));
    return false;
  }
  return true;
}

std::string ContentOf(const Cell& cell) {
  if (const auto* list = std::get_if<std::vector<std::string>>(&cell.value)) {
    return fmt::format("{}", fmt::join(*list, "\n"));
  }
  const auto* text = std::get_if<std::string>(&cell.value);
  return text == nullptr ? std::string() : *text;
}

std::string Marker(std::size_t note) {
  return fmt::format("[{}]", NoteLetters(note));
}

void WriteFigure(Workbook& workbook, std::size_t row, std::size_t column, const Figure& figure, int decimals,
                 CellStyle style = CellStyle::kNumber) {
  if (figure) {
    workbook.Number(row, column, *figure, decimals, style);
  }
}

/// Writes the sheet of a tabulation from the top down.
class TabulationSheet {
 public:
  TabulationSheet(Workbook& workbook, const Tabulation& tabulation)
      : fWorkbook(workbook),
        fTabulation(tabulation),
        fFigures(ShownFigures(tabulation)),
        fGroups(ColumnGroups(tabulation)),
        fBases(BaseRows(tabulation)) {}

  void Write();

 private:
  std::size_t FirstOf(std::size_t column) const { return 1 + column * fFigures.size(); }
  void WriteHeadings();
  void WriteRow(const TabulationRow& row);
  void WriteBase(const BaseRow& base);

  Workbook& fWorkbook;
  const Tabulation& fTabulation;
  std::vector<ShownFigure> fFigures;
  std::vector<ColumnGroup> fGroups;
  std::vector<BaseRow> fBases;
  std::size_t fRow = 1;
};

void TabulationSheet::Write() {
  constexpr std::size_t kOtherRows = 10;
  const std::size_t rows = fTabulation.rows.size() + fBases.size() + fTabulation.notes.size() + kOtherRows;
  const std::size_t columns = FirstOf(fTabulation.columns.size());
  if (!BeginSheet(fWorkbook, fTabulation.set, TitleOf(fTabulation), rows, columns)) {
    return;
  }
  for (const std::string& line : ScopeOf(fTabulation)) {
    fWorkbook.Text(fRow++, 0, line);
  }
  WriteHeadings();
  fWorkbook.Freeze(fRow, 1);
  std::size_t longest = 0;
  for (const TabulationRow& row : fTabulation.rows) {
    longest = std::max(longest, DisplayWidth(LabelOf(row)));
    WriteRow(row);
  }
  ++fRow;
  for (const BaseRow& base : fBases) {
    WriteBase(base);
  }
  ++fRow;
  for (const std::string& note : NotesOf(fTabulation)) {
    fWorkbook.Text(fRow++, 0, note);
  }
  fWorkbook.SetWidth(0, 0, WidthFor(longest));
  fWorkbook.SetWidth(1, columns - 1, kNumberWidth);
}

/// BY, columns and figures; without a BY, columns and figures.
void TabulationSheet::WriteHeadings() {
  if (fGroups.size() > 1) {
    for (const ColumnGroup& group : fGroups) {
      if (!group.by.empty()) {
        fWorkbook.Heading(fRow, FirstOf(group.begin), FirstOf(group.end) - 1, group.by);
      }
    }
    ++fRow;
  }
  for (std::size_t column = 0; column < fTabulation.columns.size(); ++column) {
    fWorkbook.Heading(fRow, FirstOf(column), FirstOf(column + 1) - 1, LabelOf(fTabulation.columns[column]));
    for (std::size_t figure = 0; figure < fFigures.size(); ++figure) {
      fWorkbook.Text(fRow + 1, FirstOf(column) + figure, fFigures[figure].heading, CellStyle::kHeading);
    }
  }
  fRow += 2;
}

void TabulationSheet::WriteRow(const TabulationRow& row) {
  fWorkbook.Text(fRow, 0, LabelOf(row), CellStyle::kLines);
  for (std::size_t column = 0; column < row.cells.size(); ++column) {
    for (std::size_t i = 0; i < fFigures.size(); ++i) {
      const ShownFigure& figure = fFigures[i];
      WriteFigure(fWorkbook, fRow, FirstOf(column) + i, figure.of(row.cells[column]), figure.decimals,
                  figure.isPercentage ? CellStyle::kPercentage : CellStyle::kNumber);
    }
  }
  ++fRow;
}

void TabulationSheet::WriteBase(const BaseRow& base) {
  fWorkbook.Text(fRow, 0, base.label);
  for (std::size_t column = 0; column < base.figures.size(); ++column) {
    WriteFigure(fWorkbook, fRow, FirstOf(column), base.figures[column], base.decimals);
  }
  ++fRow;
}

void AddTestSheet(Workbook& workbook, const Tabulation& tabulation, const TabulationTest& test) {
  constexpr int kStatisticDecimals = 2;
  const std::vector<std::string> headings = TestHeadings(tabulation, test);
  const std::vector<TestRow> rows = TestRows(tabulation, test);
  if (!BeginSheet(workbook, fmt::format("{} by {}", tabulation.set, test.by), TitleOf(tabulation, test),
                  rows.size() + 2, headings.size())) {
    return;
  }
  for (std::size_t column = 0; column < headings.size(); ++column) {
    workbook.Text(1, column, headings[column], CellStyle::kHeading);
  }
  workbook.Freeze(2, 1);
  const std::size_t first = headings.size() - 5;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const TestRow& row = rows[i];
    workbook.Text(i + 2, 0, row.label);
    if (first > 1 && !row.byLabel.empty()) {
      workbook.Text(i + 2, 1, row.byLabel);
    }
    WriteFigure(workbook, i + 2, first, row.statistic, kStatisticDecimals);
    WriteFigure(workbook, i + 2, first + 1, row.corrected, kStatisticDecimals);
    WriteFigure(workbook, i + 2, first + 2, row.degreesOfFreedom, DecimalsOfDegrees(row.degreesOfFreedom));
    WriteFigure(workbook, i + 2, first + 3, row.p, 0, CellStyle::kProbability);
    WriteFigure(workbook, i + 2, first + 4, row.adjustedP, 0, CellStyle::kProbability);
  }
  workbook.SetWidth(0, first - 1, WidthFor(30));
  workbook.SetWidth(first, headings.size() - 1, kNumberWidth);
}

}  // namespace

void AddSheet(Workbook& workbook, const Table& table) {
  constexpr std::size_t kFirstRow = 2;
  if (!BeginSheet(workbook, table.title, table.title, 2 * (table.rows.size() + kFirstRow), table.columns.size() + 1)) {
    return;
  }
  workbook.Text(1, 0, table.rowDimension, CellStyle::kHeading);
  for (std::size_t column = 0; column < table.columns.size(); ++column) {
    workbook.Text(1, column + 1, table.columns[column], CellStyle::kHeading);
  }
  workbook.Freeze(kFirstRow, 1);
  Notes notes;
  for (std::size_t row = 0; row < table.rows.size(); ++row) {
    workbook.Text(row + kFirstRow, 0, table.rows[row].name, CellStyle::kLines);
    for (std::size_t column = 0; column < table.rows[row].cells.size(); ++column) {
      const Cell& cell = table.rows[row].cells[column];
      const std::string content = ContentOf(cell);
      const std::string marker = cell.note ? Marker(notes.IndexOf(*cell.note)) : "";
      workbook.Text(row + kFirstRow, column + 1, content + (content.empty() || marker.empty() ? "" : " ") + marker,
                    CellStyle::kLines);
    }
  }
  for (std::size_t note = 0; note < notes.Texts().size(); ++note) {
    workbook.Text(table.rows.size() + kFirstRow + 1 + note, 0, Marker(note) + ' ' + notes.Texts()[note]);
  }
  workbook.SetWidth(0, table.columns.size(), WidthFor(18));
}

void AddSheets(Workbook& workbook, const Tabulation& tabulation) {
  TabulationSheet(workbook, tabulation).Write();
  for (const TabulationTest& test : tabulation.tests) {
    AddTestSheet(workbook, tabulation, test);
  }
}

}  // namespace standalone
