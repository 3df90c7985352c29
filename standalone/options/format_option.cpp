#include "standalone/options/format_option.h"

#include <fmt/format.h>

#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <algorithm>
#include <cstdlib>
#include <string_view>

#include "standalone/console/terminal.h"
#include "standalone/options/value_type.h"
#include "standalone/text/number_text.h"
#include "standalone/text/visible.h"

namespace standalone {
namespace {

constexpr const char* kAuto = "auto";
constexpr const char* kAlways = "always";
constexpr const char* kNever = "never";

/// The names as in "text, json or csv".
std::string Alternatives(const std::vector<std::string>& names) {
  return fmt::format("{} or {}", fmt::join(names.begin(), names.end() - 1, ", "), names.back());
}

/// An option whose value is one of `choices`, the first unless the user says otherwise.
void AddChoice(CLI::App& app, const char* name, const std::vector<std::string>& choices, const char* typeName,
               const std::string& description, std::string& value) {
  value = choices.front();
  const auto isKnown = [choices](const std::string& given) {
    const bool found = std::find(choices.begin(), choices.end(), given) != choices.end();
    return found ? std::string() : fmt::format("{} is not one of {}", ShownValue(given), fmt::join(choices, ", "));
  };
  app.add_option(name, value, description)->check(isKnown)->type_name(ChoiceType(typeName, choices));
}

std::string_view Environment(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? std::string_view() : value;
}

bool KnowsColours(std::string_view terminal) {
  return !terminal.empty() && terminal != "dumb";
}

/// What is wrong with a width; empty where nothing is.
std::string WidthComplaint(const std::string& value) {
  constexpr std::int64_t kMinWidth = 20;
  constexpr std::int64_t kMaxWidth = 10'000;
  const std::optional<std::int64_t> width = WholeNumber(value);
  const bool isUsable = width && *width >= kMinWidth && *width <= kMaxWidth;
  return isUsable ? std::string()
                  : fmt::format("{} is not a whole number from {} to {}", ShownValue(value), kMinWidth, kMaxWidth);
}

Colour ChosenColour(const FormatOptions& options, bool isTerminal) {
  const bool isWelcome = isTerminal && KnowsColours(Environment("TERM")) && Environment("NO_COLOR").empty();
  const bool isChosen = options.colour == kAlways || (options.colour == kAuto && isWelcome);
  return isChosen ? Colour::kAnsi : Colour::kNone;
}

}  // namespace

void AddFormatOption(CLI::App& app, const std::vector<std::string>& names, std::string& format) {
  AddChoice(app, "--format", names, "FORMAT", fmt::format("Output as {}", Alternatives(names)), format);
}

void AddWidthOption(CLI::App& app, std::optional<std::size_t>& width) {
  const auto set = [&width](const std::string& value) { width = static_cast<std::size_t>(*WholeNumber(value)); };
  app.add_option_function<std::string>("--width", set, "Columns of text; else the terminal's, or 80")
      ->check(WidthComplaint)
      ->type_name("N");
}

void AddFormatOptions(CLI::App& app, const std::vector<std::string>& names, FormatOptions& options) {
  AddFormatOption(app, names, options.format);
  AddChoice(app, "--color", {kAuto, kAlways, kNever}, "WHEN", "When text is coloured: auto, always or never",
            options.colour);
  AddWidthOption(app, options.width);
}

OutputLook LookOfFile(const FormatOptions& options) {
  return {options.width.value_or(kDefaultWidth), ChosenColour(options, false)};
}

OutputLook LookOfOutput(const FormatOptions& options) {
  const bool isTerminal = OutputIsTerminal();
  return {options.width.value_or(OutputWidth()), ChosenColour(options, isTerminal), isTerminal};
}

}  // namespace standalone
