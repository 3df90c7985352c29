#include "standalone/program/usage.h"

#include <fmt/format.h>

#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <algorithm>
#include <sstream>
#include <string_view>
#include <utility>
#include <vector>

#include "standalone/data/dataset.h"

namespace standalone {
namespace {

NextSteps FirstSteps() {
  return {"To begin:", "  mrset import survey.csv survey.mrset    makes a dataset of a survey in CSV",
          "  mrset variables survey.mrset            lists its variables",
          "  mrset shell survey.mrset                takes commands", "Run \"mrset --help\" for all subcommands."};
}

bool EndsWith(std::string_view text, std::string_view end) {
  return text.size() >= end.size() && text.substr(text.size() - end.size()) == end;
}

NextSteps StepsWithFile(const std::string& path) {
  const std::string word = ShellWord(path);
  if (IsNameOfCsv(path)) {
    return StepsToImport(path);
  }
  if (IsDatasetFile(path)) {
    return {"To work with this dataset:", fmt::format("  mrset shell {}", word),
            fmt::format("  mrset run {} -c 'MRSET /DISPLAY NAME=ALL'", word)};
  }
  return {"To run the commands of a script, or to make a dataset of a survey in CSV:",
          fmt::format("  mrset run survey.mrset {}", word), StepsToImport(path).back()};
}

std::string StepToHelp(const std::string& subcommand) {
  return subcommand.empty() ? "Run \"mrset --help\" for the subcommands."
                            : fmt::format("Run \"mrset {} --help\" for its options.", subcommand);
}

std::string WithoutValue(const std::string& option) {
  return option.substr(0, option.find('='));
}

std::vector<std::string> OptionsOf(const CLI::App& app) {
  std::vector<std::string> names;
  for (const CLI::Option* option : app.get_options()) {
    for (const std::string& name : option->get_lnames()) {
      names.push_back("--" + name);
    }
  }
  return names;
}

/// Whether a subcommand has the option, which is given with its dashes.
bool IsOptionOfSubcommand(const CLI::App& app, const std::string& option) {
  const std::vector<const CLI::App*> subcommands = app.get_subcommands([](const CLI::App*) { return true; });
  return std::any_of(subcommands.begin(), subcommands.end(),
                     [&](const CLI::App* subcommand) { return subcommand->get_option_no_throw(option) != nullptr; });
}

NextSteps StepsOnUnknownOption(const CLI::App& app, const std::string& option) {
  if (IsOptionOfSubcommand(app, option)) {
    return {"Options of a subcommand stand behind it."};
  }
  return StepsToNearest(option, OptionsOf(app));
}

std::vector<std::string> SubcommandsOf(const CLI::App& app) {
  std::vector<std::string> names;
  for (const CLI::App* subcommand : app.get_subcommands([](const CLI::App*) { return true; })) {
    names.push_back(subcommand->get_name());
  }
  return names;
}

NextSteps StepsOnUnknownSubcommand(const CLI::App& app, const std::string& word) {
  if (IsExistingFile(word) || IsNameOfCsv(word)) {
    return StepsWithFile(word);
  }
  if (IsPieceOfCommand(word)) {
    return StepsToQuote("survey.mrset");
  }
  const bool isOption = word[0] == '-';
  NextSteps steps = isOption ? StepsOnUnknownOption(app, WithoutValue(word)) : StepsToNearest(word, SubcommandsOf(app));
  steps.push_back(StepToHelp(""));
  return steps;
}

/// The example of a subcommand's help, which its footer ends with.
NextSteps ExampleOf(const CLI::App& subcommand) {
  const std::string footer = subcommand.get_footer();
  std::istringstream lines(footer.substr(std::min(footer.rfind("Example"), footer.size())));
  NextSteps example;
  for (std::string line; std::getline(lines, line);) {
    example.push_back(line);
  }
  return example;
}

NextSteps StepsOnExtra(const CLI::App& subcommand, const std::string& word) {
  if (subcommand.get_name() == "run" && IsPieceOfCommand(word)) {
    return StepsToQuote(subcommand["DATASET"]->as<std::string>());
  }
  NextSteps steps = word[0] == '-' ? StepsToNearest(WithoutValue(word), OptionsOf(subcommand)) : ExampleOf(subcommand);
  steps.push_back(StepToHelp(subcommand.get_name()));
  return steps;
}

/// CLI11 tells what is wrong with an option's values in counts of them.
std::string SentenceOnOption(const CLI::ParseError& error) {
  const std::string_view text = error.what();
  const std::string option(text.substr(0, text.find(": ")));
  if (EndsWith(text, " missing")) {
    return option + " needs a value.";
  }
  if (text.find(": At Most 1 required") != std::string_view::npos) {
    return option + " can be given once only.";
  }
  constexpr std::string_view kExcludes = " excludes ";
  if (const std::size_t found = text.find(kExcludes); found != std::string_view::npos) {
    return fmt::format("{} and {} cannot be given together.", text.substr(0, found),
                       text.substr(found + kExcludes.size()));
  }
  return std::string(text) + ".";
}

}  // namespace

UsageAdvice AdviceFor(const CLI::App& app, const CLI::ParseError& error) {
  if (const std::vector<std::string> unknown = app.remaining(); !unknown.empty()) {
    const std::string& word = unknown.front();
    const char* sentence = word[0] == '-' ? "{} is no option of mrset itself." : "{} is no subcommand.";
    return {fmt::format(sentence, word), StepsOnUnknownSubcommand(app, word)};
  }
  const std::vector<CLI::App*> chosen = app.get_subcommands();
  if (chosen.empty()) {
    return {"A subcommand is missing.", FirstSteps()};
  }
  const CLI::App& subcommand = *chosen.front();
  if (const std::vector<std::string> extras = subcommand.remaining(); !extras.empty()) {
    const std::string& word = extras[extras.size() > 1 && extras[0] == "--" ? 1 : 0];
    return {fmt::format("{} is not expected by mrset {}.", word, subcommand.get_name()),
            StepsOnExtra(subcommand, word)};
  }
  NextSteps steps = ExampleOf(subcommand);
  steps.push_back(StepToHelp(subcommand.get_name()));
  return {SentenceOnOption(error), std::move(steps)};
}

}  // namespace standalone
