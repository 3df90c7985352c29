#include "standalone/advice/usage_advice.h"

#include <fmt/format.h>

#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <algorithm>
#include <array>
#include <sstream>
#include <utility>
#include <vector>

#include "standalone/options/value_type.h"
#include "standalone/storage/file_format.h"
#include "standalone/text/unicode.h"
#include "standalone/text/visible.h"

namespace standalone {
namespace {

NextSteps FirstSteps() {
  return {"To begin:", "  mrset import survey.csv survey.mrset    creates a dataset from a CSV survey",
          "  mrset variables survey.mrset            lists its variables",
          "  mrset shell survey.mrset                takes commands", "Run \"mrset --help\" for all subcommands."};
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
  return {"To run the commands of a script, or to create a dataset from a CSV survey:",
          fmt::format("  mrset run survey.mrset {}", word), StepsToImport(path).back()};
}

std::string StepToHelp(const std::string& subcommand) {
  return subcommand.empty() ? "Run \"mrset --help\" for the subcommands."
                            : fmt::format("Run \"mrset {} --help\" for its options.", subcommand);
}

bool LooksLikeOption(const std::string& word) {
  return word.size() > 1 && word[0] == '-' && word != "--";
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
    return {"Options of a subcommand come after it."};
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
  if (CompareNoCase(word, "redo") == 0) {
    return {"Undoing is itself a change; to take back an undo, undo again:", "  mrset undo survey.mrset"};
  }
  std::vector<std::string> words = SubcommandsOf(app);
  words.emplace_back("help");
  NextSteps steps = LooksLikeOption(word) ? StepsOnUnknownOption(app, WithoutValue(word)) : StepsToNearest(word, words);
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
  NextSteps steps =
      LooksLikeOption(word) ? StepsToNearest(WithoutValue(word), OptionsOf(subcommand)) : ExampleOf(subcommand);
  steps.push_back(StepToHelp(subcommand.get_name()));
  return steps;
}

std::string SentenceOnExtra(const std::string& word, const char* kindOfOperand) {
  return LooksLikeOption(word) ? fmt::format("Unknown option: {}.", WithoutValue(word))
                               : fmt::format("{}: {}.", kindOfOperand, ShownValue(word));
}

/// A state of an option for which CLI11 throws an error of that kind.
struct Complaint {
  CLI::ExitCodes kind;
  bool (*isConcerned)(const CLI::Option& option);
  const char* sentence;
};

const std::array<Complaint, 3> kComplaints = {{
    {CLI::ExitCodes::RequiredError, [](auto& option) { return option.get_required() && option.empty(); },
     "{} is missing."},
    {CLI::ExitCodes::ArgumentMismatch,
     [](auto& option) { return int(option.count()) > std::max(option.get_items_expected_max(), 1); },
     "{} can be given only once."},
    {CLI::ExitCodes::ConversionError,
     [](auto& option) { return option.get_items_expected_max() == 0 && !option.empty(); }, "{} takes no value."},
}};

/// Two options that exclude each other and are both given.
std::string SentenceOnExclusion(const CLI::App& subcommand) {
  for (const CLI::Option* option : subcommand.get_options([](const CLI::Option* one) { return !one->empty(); })) {
    for (const CLI::Option* other : option->get_excludes()) {
      if (!other->empty()) {
        return fmt::format("{} and {} cannot be given together.", option->get_name(), other->get_name());
      }
    }
  }
  return {};
}

/// What is wrong with the subcommand's options. Only the last word can lack a value.
std::string SentenceOnOptions(const CLI::App& subcommand, const CLI::ParseError& error, const std::string& lastWord) {
  const auto kind = static_cast<CLI::ExitCodes>(error.get_exit_code());
  if (kind == CLI::ExitCodes::ExcludesError) {
    return SentenceOnExclusion(subcommand);
  }
  for (const Complaint& complaint : kComplaints) {
    for (const CLI::Option* option : subcommand.get_options()) {
      if (kind == complaint.kind && complaint.isConcerned(*option)) {
        return fmt::format(complaint.sentence, option->get_name());
      }
    }
  }
  const CLI::Option* last = subcommand.get_option_no_throw(WithoutValue(lastWord));
  return last != nullptr && kind == CLI::ExitCodes::ArgumentMismatch
             ? last->get_name() + " needs a value."
             : fmt::format("{}.", error.what());  // the option, and what its validator says
}

}  // namespace

UsageAdvice AdviceFor(const CLI::App& app, const CLI::ParseError& error, const std::string& lastWord) {
  if (const std::vector<std::string> unknown = app.remaining(); !unknown.empty()) {
    const std::string& word = unknown.front();
    return {SentenceOnExtra(word, "Unknown subcommand"), StepsOnUnknownSubcommand(app, word)};
  }
  const std::vector<CLI::App*> chosen = app.get_subcommands();
  if (chosen.empty()) {
    return {"A subcommand is missing.", FirstSteps()};
  }
  const CLI::App& subcommand = *chosen.front();
  if (const std::vector<std::string> extras = subcommand.remaining(); !extras.empty()) {
    const std::string& word = extras[extras.size() > 1 && extras[0] == "--" ? 1 : 0];
    return {SentenceOnExtra(word, "Unexpected argument"), StepsOnExtra(subcommand, word)};
  }
  NextSteps steps = ExampleOf(subcommand);
  steps.push_back(StepToHelp(subcommand.get_name()));
  return {SentenceOnOptions(subcommand, error, lastWord), std::move(steps)};
}

}  // namespace standalone
