#include "standalone/program/program.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <unistd.h>

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <array>
#include <exception>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "standalone/program/delivery.h"
#include "standalone/program/exit_status.h"
#include "standalone/program/failure_advice.h"
#include "standalone/program/help_formatter.h"
#include "standalone/program/signals.h"
#include "standalone/program/subcommands.h"
#include "standalone/program/usage.h"
#include "standalone/program/version.h"
#include "standalone/text/failure.h"
#include "standalone/text/notice.h"
#include "standalone/text/visible.h"

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

void PrintError(const std::string& sentence) {
  std::cerr << NoticeLine(sentence);
}

void PrintSteps(const NextSteps& steps) {
  for (const std::string& line : steps) {
    std::cerr << Visible(line) << '\n';
  }
}

/// What CLI11 throws for --help and --version is no error; all else is wrong usage.
int EndOfParse(const CLI::App& app, const CLI::ParseError& error) {
  if (error.get_exit_code() == 0) {
    return app.exit(error, std::cout, std::cerr);
  }
  const UsageAdvice advice = AdviceFor(app, error);
  PrintError(advice.sentence);
  PrintSteps(advice.nextSteps);
  return kUnusable;
}

int Perform(const CLI::App& subcommand, const Action& action) {
  try {
    return action();
  } catch (const std::exception& error) {
    const std::string sentence = SentenceOf(error);
    PrintError(sentence);
    try {
      PrintSteps(AdviceOnFailure(subcommand, sentence));
    } catch (const std::bad_alloc&) {
      return kUnusable;  // the sentence was said
    }
    return kUnusable;
  }
}

/// A descriptor that is closed would be given to the next file that is opened, which then took in the results or
/// errors.
void OccupyStandardDescriptors() {
  for (int descriptor = STDIN_FILENO; descriptor <= STDERR_FILENO; ++descriptor) {
    if (fcntl(descriptor, F_GETFD) == -1) {
      open("/dev/null", O_RDONLY);  // gets the lowest number that is free; cannot be written, as one that is closed
    }
  }
}

int ParseAndPerform(int argc, const char* const* argv) {
  CLI::App app("mrset defines, displays and deletes the multiple response sets of a survey.", "mrset");
  app.set_version_flag("--version", "mrset " + Version(), "Show the version");
  app.formatter(std::make_shared<HelpFormatter>());
  app.set_help_flag("-h,--help", "Show this help");
  app.require_subcommand(1);
  app.footer(kExample);
  Action chosen;
  for (const Subcommand& subcommand : kSubcommands) {
    CLI::App& options = *app.add_subcommand(subcommand.name, subcommand.description);
    options.callback([action = subcommand.declare(options), &chosen] { chosen = action; });
  }
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return EndOfParse(app, error);
  }
  return Perform(*app.get_subcommands().front(), chosen);
}

}  // namespace

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
