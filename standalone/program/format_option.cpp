#include "standalone/program/format_option.h"

#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

namespace standalone {

void AddFormatOption(CLI::App& options, std::string& format) {
  format = kTextFormat;
  const auto isKnown = [](const std::string& value) {
    return value == kTextFormat || value == kJsonFormat ? std::string() : value + " is neither text nor json";
  };
  options.add_option("--format", format, "Form of the output: text for people, json for programs")
      ->check(isKnown)
      ->type_name("text|json");
}

}  // namespace standalone
