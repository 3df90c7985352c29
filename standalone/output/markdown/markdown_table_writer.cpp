#include <ostream>
#include <string>
#include <vector>

#include "standalone/output/footnotes.h"
#include "standalone/output/markdown/markdown_text.h"
#include "standalone/output/table_writer.h"

namespace standalone {
namespace {

std::string TextOf(const Cell& cell) {
  if (const auto* list = std::get_if<std::vector<std::string>>(&cell.value)) {
    return MarkdownLines(*list);
  }
  const auto* text = std::get_if<std::string>(&cell.value);
  return text == nullptr ? std::string() : MarkdownLines({*text});
}

std::string Marker(std::size_t note) {
  return "\\[" + NoteLetters(note) + "\\]";
}

class MarkdownTableWriter final : public TableWriter {
 public:
  explicit MarkdownTableWriter(std::ostream& stream) : fStream(stream) {}

  void Begin(const Table& heading) override;
  void Add(const TableRow& row) override;
  void End() override;
  void WriteNotes(const std::vector<std::string>& notes) override;

 private:
  std::string TextWithMarker(const Cell& cell);

  std::ostream& fStream;
  Notes fNotes;
  bool fIsEmpty = true;
};

void MarkdownTableWriter::Begin(const Table& heading) {
  fNotes = {};
  fIsEmpty = true;
  fStream << "**" << MarkdownText(heading.title) << "**\n\n| " << MarkdownText(heading.rowDimension) << " |";
  for (const std::string& column : heading.columns) {
    fStream << ' ' << MarkdownText(column) << " |";
  }
  fStream << "\n| --- |";
  for (std::size_t i = 0; i < heading.columns.size(); ++i) {
    fStream << " --- |";
  }
  fStream << '\n';
}

void MarkdownTableWriter::Add(const TableRow& row) {
  fIsEmpty = false;
  fStream << "| " << MarkdownLines({row.name}) << " |";
  for (const Cell& cell : row.cells) {
    fStream << ' ' << TextWithMarker(cell) << " |";
  }
  fStream << '\n';
}

std::string MarkdownTableWriter::TextWithMarker(const Cell& cell) {
  std::string text = TextOf(cell);
  if (cell.note) {
    text += (text.empty() ? "" : " ") + Marker(fNotes.IndexOf(*cell.note));
  }
  return text;
}

void MarkdownTableWriter::End() {
  if (fIsEmpty) {
    fStream << "\n(none)\n";
  }
  for (std::size_t i = 0; i < fNotes.Texts().size(); ++i) {
    fStream << '\n' << Marker(i) << ' ' << MarkdownText(fNotes.Texts()[i]) << '\n';
  }
}

void MarkdownTableWriter::WriteNotes(const std::vector<std::string>& notes) {
  for (const std::string& note : notes) {
    fStream << '\n' << MarkdownText(note) << '\n';
  }
}

}  // namespace

std::unique_ptr<TableWriter> MakeMarkdownTableWriter(std::ostream& stream, const OutputLook& /*look*/) {
  return std::make_unique<MarkdownTableWriter>(stream);
}

}  // namespace standalone
