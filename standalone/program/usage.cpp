#include "standalone/program/usage.h"

#include <fmt/format.h>

#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

namespace standalone {
namespace {

using Lines = std::vector<std::string>;

Lines FirstSteps() {
  return {"To begin:", "  mrset import survey.csv survey.mrset    makes a dataset of a survey in CSV",
          "  mrset variables survey.mrset            lists its variables",
          "  mrset shell survey.mrset                takes commands", "Run \"mrset --help\" for all subcommands."};
}

bool EndsWith(std::string_view text, std::string_view end) {
  return text.size() >= end.size() && text.substr(text.size() - end.size()) == end;
}

bool IsFile(const std::string& path) {
  std::error_code notThere;
  return std::filesystem::is_regular_file(path, notThere);
}

bool IsDatasetFile(const std::string& path) {
  constexpr std::string_view kMagic = "SQLite format 3";
  std::string begin(kMagic.size(), '\0');
  std::ifstream(path, std::ios::binary).read(begin.data(), static_cast<std::streamsize>(begin.size()));
  return begin == kMagic;
}

/// The text as one word of a POSIX shell.
std::string ShellWord(const std::string& text) {
  constexpr std::string_view kPlain = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_-./+,:@%";
  if (!text.empty() && text[0] != '-' && text.find_first_not_of(kPlain) == std::string::npos) {
    return text;
  }
  std::string word = "'";
  for (const char c : text) {
    word += c == '\'' ? "'\\''" : std::string(1, c);
  }
  return word + "'";
}

std::string DatasetNameFor(const std::string& survey) {
  return std::filesystem::path(survey).replace_extension(".mrset").string();
}

/// Whether the argument is a part of a command, such as "MRSET" or "/DISPLAY" or "NAME=".
bool IsPieceOfCommand(std::string word) {
  std::transform(word.begin(), word.end(), word.begin(), [](unsigned char c) { return std::toupper(c); });
  return word == "MRSET" || word[0] == '/' || word.find('=') != std::string::npos;
}

Lines AdviceOnCommand(const std::string& dataset) {
  return {"A command is one argument, in single quotes, so that the shell neither splits it nor replaces $names:",
          fmt::format("  mrset run {} -c 'MRSET /DISPLAY NAME=ALL'", dataset)};
}

std::string ImportOf(const std::string& survey) {
  return fmt::format("  mrset import {} {}", ShellWord(survey), ShellWord(DatasetNameFor(survey)));
}

Lines AdviceOnFile(const std::string& path) {
  const std::string word = ShellWord(path);
  if (EndsWith(path, ".csv")) {
    return {"To make a dataset of a survey in CSV:", ImportOf(path)};
  }
  if (IsDatasetFile(path)) {
    return {"To work with this dataset:", fmt::format("  mrset shell {}", word),
            fmt::format("  mrset run {} -c 'MRSET /DISPLAY NAME=ALL'", word)};
  }
  return {"To run the commands of a script, or to make a dataset of a survey in CSV:",
          fmt::format("  mrset run survey.mrset {}", word), ImportOf(path)};
}

std::string AdviceOnHelp(const std::string& subcommand) {
  return subcommand.empty() ? "Run \"mrset --help\" for the subcommands."
                            : fmt::format("Run \"mrset {} --help\" for its options.", subcommand);
}

UsageAdvice AdviceOnUnknownSubcommand(const std::string& word) {
  const std::string sentence = fmt::format("{} is neither a subcommand nor an option.", word);
  if (IsPieceOfCommand(word) && !IsFile(word)) {
    return {sentence, AdviceOnCommand("survey.mrset")};
  }
  if (IsFile(word) || EndsWith(word, ".csv")) {
    return {sentence, AdviceOnFile(word)};
  }
  return {sentence, {AdviceOnHelp("")}};
}

/// The example of a subcommand's help, which its footer ends with.
Lines ExampleOf(const CLI::App& subcommand) {
  const std::string footer = subcommand.get_footer();
  std::istringstream lines(footer.substr(std::min(footer.rfind("Example:"), footer.size())));
  Lines example;
  for (std::string line; std::getline(lines, line);) {
    example.push_back(line);
  }
  return example;
}

UsageAdvice AdviceOnExtra(const CLI::App& subcommand, const std::string& word) {
  const std::string sentence = fmt::format("{} is not expected by mrset {}.", word, subcommand.get_name());
  if (subcommand.get_name() == "run" && word[0] != '-' && IsPieceOfCommand(word)) {
    return {sentence, AdviceOnCommand("DATASET")};
  }
  return {sentence, {AdviceOnHelp(subcommand.get_name())}};
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
  return std::string(text) + ".";
}

}  // namespace

UsageAdvice AdviceFor(const CLI::App& app, const CLI::ParseError& error) {
  if (const std::vector<std::string> unknown = app.remaining(); !unknown.empty()) {
    return AdviceOnUnknownSubcommand(unknown.front());
  }
  const std::vector<CLI::App*> chosen = app.get_subcommands();
  if (chosen.empty()) {
    return {"A subcommand is missing.", FirstSteps()};
  }
  const CLI::App& subcommand = *chosen.front();
  if (const std::vector<std::string> extras = subcommand.remaining(); !extras.empty()) {
    return AdviceOnExtra(subcommand, extras.front());
  }
  Lines nextStep = ExampleOf(subcommand);
  nextStep.push_back(AdviceOnHelp(subcommand.get_name()));
  return {SentenceOnOption(error), std::move(nextStep)};
}

}  // namespace standalone
