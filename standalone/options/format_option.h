#ifndef STANDALONE_OPTIONS_FORMAT_OPTION_H
#define STANDALONE_OPTIONS_FORMAT_OPTION_H

#include <CLI/App.hpp>
#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "standalone/output/plain/paint.h"

namespace standalone {

/// How a subcommand's results are written, as the user gave it.
struct FormatOptions {
  std::string format;
  std::string colour;
  std::optional<std::size_t> width;
};

/// The names of formats, structs with a member `name`.
template <typename Formats>
std::vector<std::string> FormatNames(const Formats& formats) {
  std::vector<std::string> names(formats.size());
  std::transform(formats.begin(), formats.end(), names.begin(), [](const auto& format) { return format.name; });
  return names;
}

/// The format of that name, which is there.
template <typename Formats>
const auto& FormatNamed(const Formats& formats, const std::string& name) {
  return *std::find_if(formats.begin(), formats.end(), [&](const auto& format) { return name == format.name; });
}

/// Adds --format, one of `names`, the first unless the user says otherwise.
void AddFormatOption(CLI::App& app, const std::vector<std::string>& names, std::string& format);

/// Adds --width.
void AddWidthOption(CLI::App& app, std::optional<std::size_t>& width);

/// Adds --format, as above, --color and --width.
void AddFormatOptions(CLI::App& app, const std::vector<std::string>& names, FormatOptions& options);

/// The colour of text output: unless --color says otherwise, where it goes to a terminal that knows colours and
/// NO_COLOR is not set to anything.
Colour ChosenColour(const FormatOptions& options, bool isTerminal);

}  // namespace standalone

#endif  // STANDALONE_OPTIONS_FORMAT_OPTION_H
