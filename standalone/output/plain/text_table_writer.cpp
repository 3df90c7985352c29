#include <ostream>
#include <string>
#include <string_view>

#include "standalone/output/plain/text_table.h"
#include "standalone/output/table_writer.h"

namespace standalone {
namespace {

class TextTableWriter final : public TableWriter {
 public:
  TextTableWriter(std::ostream& stream, std::size_t width, Colour colour)
      : fStream(stream), fWidth(width), fColour(colour) {}

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

 private:
  std::ostream& fStream;
  std::size_t fWidth;
  Colour fColour;
  Table fTable;
};

}  // namespace

std::unique_ptr<TableWriter> MakeTextTableWriter(std::ostream& stream, std::size_t width, Colour colour) {
  return std::make_unique<TextTableWriter>(stream, width, colour);
}

}  // namespace standalone
