#include <fmt/format.h>

#include <ostream>
#include <string>
#include <string_view>

#include "standalone/output/plain/text_table.h"
#include "standalone/output/plain/wrap.h"
#include "standalone/output/table_writer.h"
#include "standalone/text/visible.h"

namespace standalone {
namespace {

class TextTableWriter final : public TableWriter {
 public:
  TextTableWriter(std::ostream& stream, const OutputLook& look)
      : fStream(stream), fWidth(look.width), fColour(look.colour) {}

  void Begin(const Table& heading) override {
    fTable = {heading.title, heading.rowDimension, heading.columnDimension, heading.columns, {}};
  }

  void Add(const TableRow& row) override { fTable.rows.push_back(row); }

  void End() override {
    Write(fTable);
    fTable = {};
  }

  /// The title ends where the first empty line begins.
  void Write(const Table& table) override {
    const std::string text = TextTable(table, fWidth);
    const std::size_t titleEnd = text.find("\n\n");
    fStream << Painted(std::string_view(text).substr(0, titleEnd), Style::kHeading, fColour)
            << std::string_view(text).substr(titleEnd);
  }

  void WriteNotes(const std::vector<std::string>& notes) override {
    fStream << (notes.empty() ? "" : "\n");
    for (const std::string& note : notes) {
      fStream << fmt::format("{}\n", fmt::join(WrapText(Visible(note), fWidth), "\n"));
    }
  }

 private:
  std::ostream& fStream;
  std::size_t fWidth;
  Colour fColour;
  Table fTable;
};

}  // namespace

std::unique_ptr<TableWriter> MakeTextTableWriter(std::ostream& stream, const OutputLook& look) {
  return std::make_unique<TextTableWriter>(stream, look);
}

}  // namespace standalone
