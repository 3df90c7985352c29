#ifndef STANDALONE_PROGRAM_HELP_FORMATTER_H
#define STANDALONE_PROGRAM_HELP_FORMATTER_H

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <string>

namespace standalone {

/// Lays out the help of the program and of its subcommands in two columns, no wider than 80 characters.
class HelpFormatter : public CLI::Formatter {
 public:
  std::string make_description(const CLI::App* app) const override;
  std::string make_option(const CLI::Option* option, bool isPositional) const override;
  std::string make_subcommand(const CLI::App* subcommand) const override;
  std::string make_footer(const CLI::App* app) const override;
};

}  // namespace standalone

#endif  // STANDALONE_PROGRAM_HELP_FORMATTER_H
