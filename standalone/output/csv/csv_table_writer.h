#ifndef STANDALONE_OUTPUT_CSV_CSV_TABLE_WRITER_H
#define STANDALONE_OUTPUT_CSV_CSV_TABLE_WRITER_H

#include <iosfwd>
#include <string>
#include <vector>

#include "standalone/output/items.h"
#include "standalone/output/table_writer.h"

namespace standalone {

/// Writes tables as records of CSV, each row after cells that tell where it belongs, and before a cell with its notes,
/// where they are asked for. Tables with the same columns share one header. The stream must outlive the writer.
class CsvTableWriter final : public TableWriter {
 public:
  CsvTableWriter(std::ostream& stream, const OutputLook& look)
      : fStream(stream), fMessages(*look.messages), fIsTerminal(look.isTerminal) {}

  /// What the rows of the tables to come have in front, and that they have their notes at the end.
  void Place(const std::vector<std::string>& headings, const std::vector<std::string>& cells);

  void Begin(const Table& heading) override;
  void Add(const TableRow& row) override;
  void End() override {}
  void WriteNotes(const std::vector<std::string>& notes) override;

 private:
  void WriteRecord(const std::vector<std::string>& texts);
  std::string NotesOf(const TableRow& row) const;

  std::ostream& fStream;
  std::ostream& fMessages;
  bool fIsTerminal;
  std::vector<std::string> fPlaceHeadings;
  std::vector<std::string> fPlace;
  std::vector<std::string> fColumns;
  std::vector<std::string> fHeader;
};

}  // namespace standalone

#endif  // STANDALONE_OUTPUT_CSV_CSV_TABLE_WRITER_H
