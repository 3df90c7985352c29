#include "standalone/program/declarations.h"

#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <array>

#include "standalone/program/help_formatter.h"

namespace standalone {
namespace {

constexpr std::array<Subcommand, 11> kSubcommands = {{
    {"import", "Read a survey from CSV into a dataset", DeclareImport},
    {"run", "Run commands on a dataset", DeclareRun},
    {"shell", "Type commands on a dataset, with help and completion", DeclareShell},
    {"sets", "List a dataset's multiple response sets", DeclareSets},
    {"variables", "List a dataset's variables", DeclareVariables},
    {"log", "List the changes of a dataset's sets", DeclareLog},
    {"undo", "Go back to the sets as they were", DeclareUndo},
    {"check", "Verify that a dataset is sound", DeclareCheck},
    {"script", "Write the commands that make a dataset's sets", DeclareScript},
    {"diff", "Compare the sets of two datasets", DeclareDiff},
    {"copy", "Copy sets from one dataset to another", DeclareCopy},
}};

constexpr const char* kExample =
    "Example:\n"
    "  mrset import --schema survey.schema.json survey.csv survey.mrset\n"
    "  mrset run survey.mrset -c 'MRSET /DISPLAY NAME=ALL'\n";

}  // namespace

std::unique_ptr<CLI::App> DeclareProgram(Action& chosen) {
  auto app = std::make_unique<CLI::App>("mrset defines, displays and deletes the multiple response sets of a survey.",
                                        "mrset");
  app->set_version_flag("--version", "mrset " MRSET_VERSION, "Show the version");
  app->formatter(std::make_shared<HelpFormatter>());
  app->set_help_flag("-h,--help", "Show this help");
  app->require_subcommand(1);
  app->footer(kExample);
  for (const Subcommand& subcommand : kSubcommands) {
    CLI::App& options = *app->add_subcommand(subcommand.name, subcommand.description);
    options.callback([action = subcommand.declare(options), &chosen] { chosen = action; });
  }
  return app;
}

}  // namespace standalone
