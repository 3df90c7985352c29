#include "standalone/output/plain/text_table.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <string_view>
#include <utility>
#include <vector>

#include "standalone/output/footnotes.h"
#include "standalone/output/plain/column_widths.h"
#include "standalone/output/plain/wrap.h"
#include "standalone/text/trim.h"
#include "standalone/text/unicode.h"
#include "standalone/text/visible.h"

namespace standalone {
namespace {

constexpr std::string_view kGap = "  ";

/// The lines of one cell.
using Lines = std::vector<std::string>;

std::string MarkerAt(std::size_t index) {
  return fmt::format("[{}]", NoteLetters(index));
}

/// A line for each note.
Lines Explained(const Notes& notes) {
  Lines lines;
  for (const std::string& text : notes.Texts()) {
    lines.push_back(MarkerAt(lines.size()) + ' ' + Visible(text));
  }
  return lines;
}

/// All lines but the first begin with the indent.
void AppendLines(Lines& lines, const std::string& text, std::string_view indent) {
  bool isFirst = true;
  for (const std::string& line : VisibleLines(text)) {
    lines.emplace_back(TrimmedEnd(std::string(isFirst ? "" : indent) + line));
    isFirst = false;
  }
}

Lines LinesOf(const Cell& cell) {
  Lines lines;
  if (const auto* text = std::get_if<std::string>(&cell.value)) {
    AppendLines(lines, *text, "");
  } else if (const auto* list = std::get_if<std::vector<std::string>>(&cell.value)) {
    for (const std::string& entry : *list) {
      AppendLines(lines, entry, kHangingIndent);
    }
  }
  return lines;
}

void AppendMarker(Lines& lines, const std::string& marker) {
  if (lines.empty() || lines.back().empty()) {
    lines.resize(std::max<std::size_t>(lines.size(), 1));
    lines.back() = marker;
    return;
  }
  lines.back() += ' ' + marker;
}

std::size_t HeightOf(const std::vector<Lines>& row) {
  std::size_t height = 1;
  for (const Lines& lines : row) {
    height = std::max(height, lines.size());
  }
  return height;
}

/// Lays out one table.
class Layout {
 public:
  Layout(const Table& table, std::size_t width);

  std::string Text() const;

 private:
  void AddHeading(const std::string& text);
  void AddRow(const TableRow& row);
  void AddWrapped(std::string& text, const std::string& line) const;
  void AddRows(std::string& text) const;
  void Wrap(std::vector<Lines>& row) const;
  void AddBlock(std::string& text, const std::vector<Lines>& wrapped) const;
  void AddLine(std::string& text, const std::vector<Lines>& wrapped, std::size_t index) const;
  std::string Rule() const;
  std::vector<ColumnNeeds> Needs() const;

  std::size_t fWidth;
  std::string fTitle;
  std::vector<Lines> fHeadings;
  std::vector<std::vector<Lines>> fRows;
  std::vector<bool> fIsList;  // by column: cells are lists, whose entries must not blur where they are wrapped
  std::vector<std::size_t> fWidths;
  Notes fNotes;
};

Layout::Layout(const Table& table, std::size_t width) : fWidth(width), fTitle(Visible(table.title)) {
  AddHeading(table.rowDimension);
  for (const std::string& column : table.columns) {
    AddHeading(column);
  }
  fIsList.resize(fHeadings.size());
  for (const TableRow& row : table.rows) {
    AddRow(row);
  }
  const std::size_t gaps = kGap.size() * table.columns.size();
  fWidths = ColumnWidths(Needs(), width - std::min(gaps, width));
  for (Lines& heading : fHeadings) {
    heading = WrapText(heading[0], fWidths[static_cast<std::size_t>(&heading - fHeadings.data())]);
  }
  for (std::vector<Lines>& row : fRows) {
    Wrap(row);
  }
}

void Layout::AddHeading(const std::string& text) {
  fHeadings.push_back({Visible(text)});
}

void Layout::AddRow(const TableRow& row) {
  std::vector<Lines> cells = {VisibleLines(row.name)};
  for (const Cell& cell : row.cells) {
    if (std::holds_alternative<std::vector<std::string>>(cell.value) && cells.size() < fIsList.size()) {
      fIsList[cells.size()] = true;
    }
    cells.push_back(LinesOf(cell));
    if (cell.note) {
      AppendMarker(cells.back(), MarkerAt(fNotes.IndexOf(*cell.note)));
    }
  }
  cells.resize(fHeadings.size());
  fRows.push_back(std::move(cells));
}

std::vector<ColumnNeeds> Layout::Needs() const {
  std::vector<ColumnNeeds> needs;
  for (const Lines& heading : fHeadings) {
    needs.push_back({DisplayWidth(heading[0]), WidestWord(heading[0]), 0, 0});
  }
  for (const std::vector<Lines>& row : fRows) {
    for (std::size_t column = 0; column < row.size(); ++column) {
      for (const std::string& line : row[column]) {
        needs[column].content = std::max(needs[column].content, DisplayWidth(line));
        const std::size_t word = fIsList[column] ? HangingWidth(line) : WidestWord(line);
        needs[column].contentWord = std::max(needs[column].contentWord, word);
      }
    }
  }
  return needs;
}

std::string Layout::Text() const {
  std::string text;
  AddWrapped(text, fTitle);
  text += '\n';
  AddBlock(text, fHeadings);
  text += Rule();
  AddRows(text);
  const Lines notes = Explained(fNotes);
  text += notes.empty() ? "" : "\n";
  for (const std::string& note : notes) {
    AddWrapped(text, note);
  }
  return text;
}

void Layout::AddWrapped(std::string& text, const std::string& line) const {
  for (const std::string& part : WrapText(line, fWidth)) {
    text.append(TrimmedEnd(part)) += '\n';
  }
}

/// The rows are set apart by an empty line when one of them takes more than one line.
void Layout::AddRows(std::string& text) const {
  if (fRows.empty()) {
    text += "(none)\n";
  }
  const bool isTall = std::any_of(fRows.begin(), fRows.end(), [](const auto& row) { return HeightOf(row) > 1; });
  for (const std::vector<Lines>& row : fRows) {
    if (isTall && &row != &fRows.front()) {
      text += '\n';
    }
    AddBlock(text, row);
  }
}

void Layout::Wrap(std::vector<Lines>& row) const {
  for (std::size_t column = 0; column < row.size(); ++column) {
    const std::size_t width = fWidths[column];
    const auto fits = [width](const std::string& line) { return DisplayWidth(line) <= width; };
    if (std::all_of(row[column].begin(), row[column].end(), fits)) {
      continue;  // as a rule
    }
    Lines wrapped;
    for (const std::string& line : row[column]) {
      Lines parts = (fIsList[column] ? WrapTextHanging : WrapText)(line, width);
      std::move(parts.begin(), parts.end(), std::back_inserter(wrapped));
    }
    row[column] = std::move(wrapped);
  }
}

/// Appends a row of cells that have been wrapped.
void Layout::AddBlock(std::string& text, const std::vector<Lines>& wrapped) const {
  const std::size_t height = HeightOf(wrapped);
  for (std::size_t index = 0; index < height; ++index) {
    AddLine(text, wrapped, index);
  }
}

/// Blanks are written only where something follows them.
void Layout::AddLine(std::string& text, const std::vector<Lines>& wrapped, std::size_t index) const {
  std::size_t blanks = 0;
  for (std::size_t column = 0; column < wrapped.size(); ++column) {
    std::size_t width = 0;
    if (index < wrapped[column].size() && !wrapped[column][index].empty()) {
      const std::string& part = wrapped[column][index];
      text.append(blanks, ' ').append(part);
      blanks = 0;
      width = DisplayWidth(part);
    }
    blanks += fWidths[column] - std::min(fWidths[column], width) + kGap.size();
  }
  text.erase(text.find_last_not_of(' ') + 1);  // of the last part
  text += '\n';
}

std::string Layout::Rule() const {
  Lines rules;
  for (const std::size_t width : fWidths) {
    rules.emplace_back(width, '-');
  }
  return fmt::format("{}\n", fmt::join(rules, kGap));
}

}  // namespace

std::string TextTable(const Table& table, std::size_t width) {
  return Layout(table, width).Text();
}

}  // namespace standalone
