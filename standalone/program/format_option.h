#ifndef STANDALONE_PROGRAM_FORMAT_OPTION_H
#define STANDALONE_PROGRAM_FORMAT_OPTION_H

#include <CLI/App.hpp>
#include <string>

namespace standalone {

inline constexpr const char* kTextFormat = "text";
inline constexpr const char* kJsonFormat = "json";

/// Adds --format to a subcommand; `format` is text unless the user says otherwise.
void AddFormatOption(CLI::App& options, std::string& format);

}  // namespace standalone

#endif  // STANDALONE_PROGRAM_FORMAT_OPTION_H
