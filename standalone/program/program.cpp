#include "standalone/program/program.h"

#include <fmt/format.h>

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <algorithm>
#include <array>
#include <exception>
#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "standalone/advice/failure_advice.h"
#include "standalone/advice/usage_advice.h"
#include "standalone/console/delivery.h"
#include "standalone/console/exit_status.h"
#include "standalone/files/io.h"
#include "standalone/program/help_formatter.h"
#include "standalone/program/signals.h"
#include "standalone/program/version.h"
#include "standalone/shell/help.h"
#include "standalone/text/error.h"
#include "standalone/text/notice.h"
#include "standalone/text/visible.h"

namespace standalone {
namespace {

constexpr std::array<Subcommand, 12> kSubcommands = {{
    {"import", "Read a survey from CSV into a dataset", DeclareImport},
    {"run", "Run commands on a dataset", DeclareRun},
    {"shell", "Type commands on a dataset, with help and completion", DeclareShell},
    {"tabulate", "Count multiple response sets in tables", DeclareTabulate},
    {"sets", "List a dataset's multiple response sets", DeclareSets},
    {"variables", "List a dataset's variables", DeclareVariables},
    {"log", "List the changes of a dataset's sets, and its imports", DeclareLog},
    {"undo", "Go back to the sets as they were", DeclareUndo},
    {"check", "Verify that a dataset is sound", DeclareCheck},
    {"script", "Write the commands that make a dataset's sets", DeclareScript},
    {"diff", "Compare the sets of two datasets", DeclareDiff},
    {"copy", "Copy sets from one dataset to another", DeclareCopy},
}};

constexpr const char* kExample =
    "\"mrset help run\" shows the options of run, \"mrset help MDGROUP\" the language.\n"
    "Example:\n"
    "  mrset import --schema survey.schema.json survey.csv survey.mrset\n";

void PrintError(const std::string& sentence) {
  std::cerr << NoticeLine(sentence);
}

void PrintSteps(const NextSteps& steps) {
  for (const std::string& line : steps) {
    std::cerr << Visible(line) << '\n';
  }
}

/// What CLI11 throws for --help and --version is no error; all else is wrong usage.
int EndOfParse(const CLI::App& app, const CLI::ParseError& error, const std::string& lastWord) {
  if (error.get_exit_code() == 0) {
    return app.exit(error, std::cout, std::cerr);
  }
  const UsageAdvice advice = AdviceFor(app, error, lastWord);
  PrintError(advice.sentence);
  PrintSteps(advice.nextSteps);
  return kUnusable;
}

int Perform(const CLI::App& subcommand, const Action& action) {
  try {
    return action();
  } catch (const std::exception& error) {
    PrintError(SentenceOf(error));
    try {
      if (const auto* known = dynamic_cast<const Error*>(&error)) {
        PrintSteps(AdviceOnFailure(subcommand, *known));
      }
    } catch (const std::bad_alloc&) {
      return kUnusable;  // the sentence was said
    }
    return kUnusable;
  }
}

/// The arguments of "help", as in a shell, put as the options that do it: those of the program or of a subcommand.
std::vector<std::string> WithoutHelpWord(std::vector<std::string> arguments) {
  if (arguments.empty() || arguments[0] != "help") {
    return arguments;
  }
  arguments.erase(arguments.begin());
  const auto isAsked = [&](const Subcommand& subcommand) { return arguments[0] == subcommand.name; };
  if (arguments.empty() || std::any_of(kSubcommands.begin(), kSubcommands.end(), isAsked)) {
    arguments.emplace_back("--help");
  }
  return arguments;
}

/// Help on the command language, which is no subcommand of the program.
std::optional<std::string> HelpOnLanguage(const std::vector<std::string>& arguments) {
  return arguments.size() == 2 && arguments[0] == "help" && !arguments[1].empty() ? HelpOn(arguments[1]) : std::nullopt;
}

int ParseAndPerform(int argc, const char* const* argv) {
  const std::vector<std::string> arguments(argv + std::min(argc, 1), argv + argc);
  if (const std::optional<std::string> help = HelpOnLanguage(arguments)) {
    std::cout << *help;
    return kSuccess;
  }
  Action chosen;
  const std::unique_ptr<CLI::App> program = DeclareProgram(chosen);
  CLI::App& app = *program;
  try {
    std::vector<std::string> reversed = WithoutHelpWord(arguments);
    std::reverse(reversed.begin(), reversed.end());
    app.parse(std::move(reversed));
  } catch (const CLI::ParseError& error) {
    return EndOfParse(app, error, argc > 1 ? argv[argc - 1] : "");
  }
  return Perform(*app.get_subcommands().front(), chosen);
}

}  // namespace

std::unique_ptr<CLI::App> DeclareProgram(Action& chosen) {
  auto app =
      std::make_unique<CLI::App>("mrset defines, displays and counts the multiple response sets of a survey.", "mrset");
  app->set_version_flag("--version", "mrset " + Version(), "Show the version");
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

int RunProgram(int argc, const char* const* argv) {
  OccupyStandardDescriptors();
  PrepareForSignals();
  int status = kUnusable;
  try {
    status = ParseAndPerform(argc, argv);
  } catch (const std::exception& error) {
    PrintError(SentenceOf(error));
  }
  std::cout.flush();
  EndDelivery();
  if (!std::cout && status != kUnusable) {  // or else the reason was given
    PrintError("Standard output cannot be written.");
  }
  return std::cout ? status : kUnusable;
}

}  // namespace standalone
