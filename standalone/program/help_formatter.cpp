#include "standalone/program/help_formatter.h"

#include <fmt/format.h>

#include <cstddef>
#include <vector>

#include "standalone/options/value_type.h"
#include "standalone/output/plain/wrap.h"

namespace standalone {
namespace {

constexpr std::size_t kWidth = 80;
constexpr std::size_t kNameWidth = 26;  // the longest, --lock-timeout SECONDS, indented, and two blanks

/// A name and, beside it, as many lines of text as it takes.
std::string Row(const std::string& name, const std::string& text) {
  std::string row;
  std::string left = "  " + name;
  for (const std::string& line : WrapText(text, kWidth - kNameWidth)) {
    row += fmt::format("{:<{}}{}\n", left, kNameWidth, line);
    left.clear();
  }
  return row;
}

}  // namespace

std::string HelpFormatter::make_description(const CLI::App* app) const {
  return app->get_description() + "\n";
}

std::string HelpFormatter::make_option(const CLI::Option* option, bool isPositional) const {
  const std::string type = NameOfType(*option);
  const std::string name = make_option_name(option, isPositional);
  return Row(type.empty() ? name : name + " " + type, option->get_description());
}

std::string HelpFormatter::make_subcommand(const CLI::App* subcommand) const {
  return Row(subcommand->get_name(), subcommand->get_description());
}

std::string HelpFormatter::make_footer(const CLI::App* app) const {
  return app->get_footer();
}

}  // namespace standalone
