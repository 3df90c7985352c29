#include "standalone/output/csv/csv_table_writer.h"

#include <fmt/format.h>

#include <algorithm>

#include "standalone/output/csv/csv_text.h"
#include "standalone/text/notice.h"
#include "standalone/text/unicode.h"
#include "standalone/text/visible.h"

namespace standalone {
namespace {

/// An entry of a list stands on one line.
std::string OneLined(std::string text) {
  std::replace_if(
      text.begin(), text.end(), [](char c) { return c == '\r' || c == '\n'; }, ' ');
  return text;
}

std::string Joined(const std::vector<std::string>& entries) {
  std::vector<std::string> lines(entries.size());
  std::transform(entries.begin(), entries.end(), lines.begin(), OneLined);
  return fmt::format("{}", fmt::join(lines, "\n"));
}

std::string TextOf(const Cell& cell) {
  if (const auto* list = std::get_if<std::vector<std::string>>(&cell.value)) {
    return Joined(*list);
  }
  const auto* text = std::get_if<std::string>(&cell.value);
  return text == nullptr ? std::string() : *text;
}

std::vector<std::string> Concatenated(std::vector<std::string> first, const std::vector<std::string>& second) {
  first.insert(first.end(), second.begin(), second.end());
  return first;
}

}  // namespace

void CsvTableWriter::Place(const std::vector<std::string>& headings, const std::vector<std::string>& cells) {
  fPlaceHeadings = headings;
  fPlace = cells;
}

void CsvTableWriter::Begin(const Table& heading) {
  fColumns = heading.columns;
  std::vector<std::string> header = Concatenated(fPlaceHeadings, {heading.rowDimension});
  header = Concatenated(header, heading.columns);
  if (!fPlace.empty()) {
    header.emplace_back("Notes");
  }
  if (header != fHeader) {
    WriteRecord(header);
    fHeader = std::move(header);
  }
}

void CsvTableWriter::Add(const TableRow& row) {
  std::vector<std::string> texts = Concatenated(fPlace, {row.name});
  for (const Cell& cell : row.cells) {
    texts.push_back(TextOf(cell));
  }
  if (!fPlace.empty()) {
    texts.push_back(NotesOf(row));
  }
  WriteRecord(texts);
}

void CsvTableWriter::WriteNotes(const std::vector<std::string>& notes) {
  for (const std::string& note : notes) {
    fMessages << NoticeLine(note);
  }
}

void CsvTableWriter::WriteRecord(const std::vector<std::string>& texts) {
  std::vector<std::string> cells;
  for (const std::string& text : texts) {
    const std::string valid = fIsTerminal ? Visible(text) : ReplaceInvalidUtf8(text);
    cells.push_back(HarmlessInSpreadsheets(valid));
  }
  WriteCsvRecord(fStream, cells);
}

/// The notes of the row's cells, each after the heading of its column, a line each.
std::string CsvTableWriter::NotesOf(const TableRow& row) const {
  std::vector<std::string> notes;
  for (std::size_t column = 0; column < row.cells.size(); ++column) {
    if (row.cells[column].note) {
      notes.push_back(OneLined(fmt::format("{}: {}", fColumns.at(column), *row.cells[column].note)));
    }
  }
  return Joined(notes);
}

std::unique_ptr<TableWriter> MakeCsvTableWriter(std::ostream& stream, const OutputLook& look) {
  return std::make_unique<CsvTableWriter>(stream, look);
}

}  // namespace standalone
