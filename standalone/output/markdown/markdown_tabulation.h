#ifndef STANDALONE_OUTPUT_MARKDOWN_MARKDOWN_TABULATION_H
#define STANDALONE_OUTPUT_MARKDOWN_MARKDOWN_TABULATION_H

#include <iosfwd>

#include "standalone/output/table_writer.h"
#include "standalone/tabulation/tabulation.h"

namespace standalone {

/// A tabulation as a table of GitHub Flavored Markdown, with bases, tests and notes. The tests go through the writer,
/// which writes to the same stream.
void WriteMarkdown(std::ostream& stream, const Tabulation& tabulation, TableWriter& tables);

}  // namespace standalone

#endif  // STANDALONE_OUTPUT_MARKDOWN_MARKDOWN_TABULATION_H
