#ifndef STANDALONE_OUTPUT_TABLE_WRITER_H
#define STANDALONE_OUTPUT_TABLE_WRITER_H

#include <cstddef>
#include <iosfwd>
#include <memory>

#include "standalone/output/items.h"
#include "standalone/output/plain/paint.h"

namespace standalone {

/// Writes tables to a stream, a row at a time.
class TableWriter {
 public:
  virtual ~TableWriter() = default;

  /// Begins a table; of `heading` all but the rows counts.
  virtual void Begin(const Table& heading) = 0;

  /// The next row of the table that was begun.
  virtual void Add(const TableRow& row) = 0;

  /// Ends the table.
  virtual void End() = 0;

  /// A whole table.
  virtual void Write(const Table& table);
};

// The stream must outlive the writer.

/// For people: see TextTable(). Holds the rows until the table ends.
std::unique_ptr<TableWriter> MakeTextTableWriter(std::ostream& stream, std::size_t width, Colour colour);

/// As a table of GitHub Flavored Markdown, with its title before and its notes after it.
std::unique_ptr<TableWriter> MakeMarkdownTableWriter(std::ostream& stream);

/// Whether characters that would act on a terminal are written as they are or in a visible form.
enum class CsvCharacters { kAsTheyAre, kVisible };

/// As CSV with a header row; see CsvCell().
std::unique_ptr<TableWriter> MakeCsvTableWriter(std::ostream& stream, CsvCharacters characters);

}  // namespace standalone

#endif  // STANDALONE_OUTPUT_TABLE_WRITER_H
