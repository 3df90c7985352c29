#ifndef STANDALONE_OUTPUT_FORMATS_H
#define STANDALONE_OUTPUT_FORMATS_H

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "standalone/output/renderer.h"

namespace standalone {

/// A form in which results can be had. What makes it stands in a folder of its own.
struct OutputFormat {
  const char* name;
  std::vector<std::string_view> endings;  ///< of names of files that have this form
  bool isTablesAlone;                     ///< messages go to standard error, and an empty table is its heading
  const char* refusalOfTerminal;          ///< null where it can go to a terminal
  std::unique_ptr<Renderer> (*makeRenderer)(std::ostream& stream, const OutputLook& look);
  /// Null where lists cannot be had in it, or, in JSON, have a form of their own.
  std::unique_ptr<TableWriter> (*makeTableWriter)(std::ostream& stream, const OutputLook& look);
};

inline constexpr const char* kTextFormat = "text";
inline constexpr const char* kJsonFormat = "json";
inline constexpr const char* kHtmlFormat = "html";

/// The names of the formats of a run's results, the default first.
std::vector<std::string> RunFormatNames();

/// The same of lists.
std::vector<std::string> ListFormatNames();

/// The format of that name, which is there.
const OutputFormat& FormatNamed(const std::string& name);

/// The format that the name of a file asks for; text where it asks for none.
const OutputFormat& FormatOfFile(const std::string& path);

}  // namespace standalone

#endif  // STANDALONE_OUTPUT_FORMATS_H
