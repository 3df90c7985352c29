#ifndef STANDALONE_OUTPUT_RENDERER_H
#define STANDALONE_OUTPUT_RENDERER_H

#include <cstddef>
#include <iosfwd>
#include <memory>
#include <string>

#include "standalone/output/items.h"
#include "standalone/output/plain/paint.h"
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

/// Whether the commands are shown with their results.
enum class Echo { kCommands, kNothing };

/// For people: messages, and tables that fit `width` terminal columns.
std::unique_ptr<Renderer> MakeTextRenderer(std::ostream& stream, std::size_t width, Colour colour = Colour::kNone,
                                           Echo echo = Echo::kCommands);

/// For programs: one JSON object a line.
std::unique_ptr<Renderer> MakeJsonRenderer(std::ostream& stream);

/// What a page says of the whole run.
struct PageHeading {
  std::string dataset;    ///< its name
  bool isDryRun = false;  ///< nothing was saved
};

/// For people: one self-contained HTML page with a summary at the top. Nothing is written before Finish(); until then
/// the page waits on the disk. Throws std::runtime_error with one sentence where that cannot be.
std::unique_ptr<Renderer> MakeHtmlRenderer(std::ostream& stream, const PageHeading& heading);

/// For documents: GitHub Flavored Markdown.
std::unique_ptr<Renderer> MakeMarkdownRenderer(std::ostream& stream);

/// For spreadsheets and programs: the rows of all tables as CSV with a header row; messages go to `messages`.
std::unique_ptr<Renderer> MakeCsvRenderer(std::ostream& stream, std::ostream& messages, CsvCharacters characters);

}  // namespace standalone

#endif  // STANDALONE_OUTPUT_RENDERER_H
