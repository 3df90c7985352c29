#ifndef STANDALONE_OUTPUT_TABLE_WRITER_H
#define STANDALONE_OUTPUT_TABLE_WRITER_H

#include <cstddef>
#include <iostream>
#include <memory>
#include <string>

#include "standalone/output/items.h"
#include "standalone/output/plain/paint.h"
#include "standalone/output/plain/text_bar.h"

namespace standalone {

/// How output is to look.
struct OutputLook {
  std::size_t width = 80;               ///< of text, in terminal columns
  Colour colour = Colour::kNone;        ///< of text
  bool isTerminal = false;              ///< characters that would act on a terminal are shown in CSV, too
  bool showsCommands = true;            ///< whether results are told with their commands; a page always does
  std::string dataset = {};             ///< its name, for a page
  bool isDryRun = false;                ///< nothing is saved, as a page says
  std::ostream* messages = &std::cerr;  ///< for those that CSV has no place for; must outlive the renderer
  Chart chart = Chart::kNone;           ///< of text: bars beside the figures of tabulations
};

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

  /// Sentences for people, below a table; of CSV among the messages.
  virtual void WriteNotes(const std::vector<std::string>& /*notes*/) {}
};

// The stream must outlive the writer.

/// For people: see TextTable(). Holds the rows until the table ends.
std::unique_ptr<TableWriter> MakeTextTableWriter(std::ostream& stream, const OutputLook& look);

/// As a table of GitHub Flavored Markdown, with its title before and its notes after it.
std::unique_ptr<TableWriter> MakeMarkdownTableWriter(std::ostream& stream, const OutputLook& look);

/// As CSV with a header row; see CsvCell().
std::unique_ptr<TableWriter> MakeCsvTableWriter(std::ostream& stream, const OutputLook& look);

}  // namespace standalone

#endif  // STANDALONE_OUTPUT_TABLE_WRITER_H
