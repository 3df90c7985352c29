#include <array>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "standalone/output/message_text.h"
#include "standalone/output/plain/excerpt.h"
#include "standalone/output/renderer.h"
#include "standalone/output/xlsx/sheets.h"
#include "standalone/output/xlsx/workbook.h"

namespace standalone {
namespace {

/// A row of the sheet of messages: the command's number, the place, what kind of message it is, its text, the hint.
using MessageRow = std::array<std::string, 5>;

class XlsxRenderer final : public Renderer {
 public:
  explicit XlsxRenderer(std::ostream& stream) : fStream(stream) {}

  void Write(const CommandResult& result) override;
  void Finish() override;

 private:
  void WriteItem(const CommandResult& result, const Message& message);
  void WriteItem(const CommandResult& /*result*/, const Table& table) { AddSheet(fWorkbook, table); }
  void WriteItem(const CommandResult& /*result*/, const Tabulation& tabulation) { AddSheets(fWorkbook, tabulation); }
  void Tell(const CommandResult& result, std::string_view kind, std::string_view text);
  void AddMessageSheet();

  std::ostream& fStream;
  Workbook fWorkbook;
  std::vector<MessageRow> fMessages;
};

void XlsxRenderer::Write(const CommandResult& result) {
  for (const Item& item : result.items) {
    std::visit([&](const auto& one) { WriteItem(result, one); }, item);
  }
  for (const std::string& hint : result.hints) {
    Tell(result, "Hint", hint);
  }
  if (result.dryRun) {
    Tell(result, "Dry run", *result.dryRun);
  }
  if (result.status == Status::kAborted) {
    Tell(result, "Aborted", AbortedSentence(result));
  }
}

void XlsxRenderer::WriteItem(const CommandResult& result, const Message& message) {
  Tell(result, LevelName(message.level), TrimmedText(message));
  if (message.place) {
    fMessages.back()[1] = PlaceInWords(result, *message.place);
  }
  fMessages.back()[4] = message.hint.value_or("");
}

void XlsxRenderer::Tell(const CommandResult& result, std::string_view kind, std::string_view text) {
  fMessages.push_back(
      {std::to_string(result.number), CommandInWords(result), std::string(kind), std::string(text), ""});
}

/// The messages are the last sheet, which is there where there is no other.
void XlsxRenderer::Finish() {
  if (!fMessages.empty() || fWorkbook.IsEmpty()) {
    AddMessageSheet();
  }
  fWorkbook.WriteTo(fStream);
}

void XlsxRenderer::AddMessageSheet() {
  Table table{"Messages", "Command", "", {"Place", "Level", "Text", "Hint"}, {}};
  for (const MessageRow& row : fMessages) {
    table.rows.push_back({row[0], {{row[1], {}}, {row[2], {}}, {row[3], {}}, {row[4], {}}}});
  }
  AddSheet(fWorkbook, table);
}

}  // namespace

std::unique_ptr<Renderer> MakeXlsxRenderer(std::ostream& stream, const OutputLook& /*look*/) {
  return std::make_unique<XlsxRenderer>(stream);
}

}  // namespace standalone
