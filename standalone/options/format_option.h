#ifndef STANDALONE_OPTIONS_FORMAT_OPTION_H
#define STANDALONE_OPTIONS_FORMAT_OPTION_H

#include <CLI/App.hpp>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "standalone/output/formats.h"

namespace standalone {

/// How a subcommand's results are written, as the user gave it.
struct FormatOptions {
  std::string format = kTextFormat;
  std::string colour = "auto";
  std::optional<std::size_t> width;
};

/// Adds --format, one of `names`, the first unless the user says otherwise.
void AddFormatOption(CLI::App& app, const std::vector<std::string>& names, std::string& format);

/// Adds --width.
void AddWidthOption(CLI::App& app, std::optional<std::size_t>& width);

/// Adds --format, as above, --color and --width.
void AddFormatOptions(CLI::App& app, const std::vector<std::string>& names, FormatOptions& options);

/// How text looks in a file. The colour: unless --color says otherwise, where text goes to a terminal that knows
/// colours and NO_COLOR is not set to anything.
OutputLook LookOfFile(const FormatOptions& options);

/// The same on standard output.
OutputLook LookOfOutput(const FormatOptions& options);

}  // namespace standalone

#endif  // STANDALONE_OPTIONS_FORMAT_OPTION_H
