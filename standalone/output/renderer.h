#ifndef STANDALONE_OUTPUT_RENDERER_H
#define STANDALONE_OUTPUT_RENDERER_H

#include <iosfwd>
#include <memory>

#include "standalone/output/items.h"
#include "standalone/output/table_writer.h"

namespace standalone {

/// Writes the results of a run to a stream, a command at a time.
class Renderer {
 public:
  virtual ~Renderer() = default;
  virtual void Write(const CommandResult& result) = 0;

  /// After the last command of a run that came to its end. Throws std::runtime_error with one sentence.
  virtual void Finish() {}
};

// The streams must outlive the renderer.

/// For people: messages, and tables that fit the look's width.
std::unique_ptr<Renderer> MakeTextRenderer(std::ostream& stream, const OutputLook& look);

/// For programs: one JSON object a line.
std::unique_ptr<Renderer> MakeJsonRenderer(std::ostream& stream, const OutputLook& look);

/// For people: one self-contained HTML page with a summary at the top. Nothing is written before Finish(); until then
/// the page waits on the disk. Throws std::runtime_error with one sentence where that cannot be.
std::unique_ptr<Renderer> MakeHtmlRenderer(std::ostream& stream, const OutputLook& look);

/// For documents: GitHub Flavored Markdown.
std::unique_ptr<Renderer> MakeMarkdownRenderer(std::ostream& stream, const OutputLook& look);

/// For spreadsheets and programs: the rows of all tables as CSV with a header row; messages go to the look's stream.
std::unique_ptr<Renderer> MakeCsvRenderer(std::ostream& stream, const OutputLook& look);

/// For spreadsheets: a workbook with a sheet for each table, and one for the messages. Written as a page is.
std::unique_ptr<Renderer> MakeXlsxRenderer(std::ostream& stream, const OutputLook& look);

}  // namespace standalone

#endif  // STANDALONE_OUTPUT_RENDERER_H
