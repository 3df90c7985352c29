#include "standalone/program/program.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <unistd.h>

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <exception>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "standalone/program/declarations.h"
#include "standalone/program/delivery.h"
#include "standalone/program/exit_status.h"
#include "standalone/program/failure_advice.h"
#include "standalone/program/signals.h"
#include "standalone/program/usage.h"
#include "standalone/text/failure.h"
#include "standalone/text/notice.h"
#include "standalone/text/visible.h"

namespace standalone {
namespace {

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
  Action chosen;
  const std::unique_ptr<CLI::App> program = DeclareProgram(chosen);
  CLI::App& app = *program;
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return EndOfParse(app, error, argc > 1 ? argv[argc - 1] : "");
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
