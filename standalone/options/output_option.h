#ifndef STANDALONE_OPTIONS_OUTPUT_OPTION_H
#define STANDALONE_OPTIONS_OUTPUT_OPTION_H

#include <CLI/App.hpp>
#include <optional>
#include <string>

namespace standalone {

/// Adds --output, whose value is a path. What begins with "-" is refused: it is the next option, after "--output=", or
/// meant as standard output.
void AddOutputOption(CLI::App& app, const std::string& description, std::optional<std::string>& path);

}  // namespace standalone

#endif  // STANDALONE_OPTIONS_OUTPUT_OPTION_H
