#include "standalone/advice/next_steps.h"

#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "standalone/language/grammar.h"
#include "standalone/language/nearest_name.h"
#include "standalone/text/unicode.h"

namespace standalone {
namespace {

/// Whether the word, which is in upper case, is "/" and a subcommand of MRSET.
bool NamesSubcommand(const std::string& word) {
  const std::vector<SubcommandRule>& rules = MrsetSubcommands();
  return word[0] == '/' && std::any_of(rules.begin(), rules.end(), [&](const SubcommandRule& rule) {
           return NamesKeyword(std::string_view(word).substr(1), rule.name);
         });
}

}  // namespace

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

bool IsExistingFile(const std::string& path) {
  std::error_code notThere;
  return std::filesystem::exists(path, notThere) && !std::filesystem::is_directory(path, notThere);
}

bool IsNameOfCsv(std::string_view path) {
  constexpr std::string_view kEnding = ".csv";
  return path.size() > kEnding.size() && CompareNoCase(path.substr(path.size() - kEnding.size()), kEnding) == 0;
}

bool IsPieceOfCommand(const std::string& argument) {
  const std::string word = ToUpper(argument.substr(0, argument.find_first_of(" \t\n")));
  const bool isAssignment = word[0] != '-' && word.find('=') != std::string::npos;
  return isAssignment || NamesCommand(word) || NamesSubcommand(word);
}

NextSteps StepsToImport(const std::string& survey) {
  const std::string sameName = std::filesystem::path(survey).replace_extension(".mrset").string();
  const std::string dataset = sameName == survey ? "survey.mrset" : sameName;
  return {"To create a dataset from a CSV survey:",
          fmt::format("  mrset import {} {}", ShellWord(survey), ShellWord(dataset))};
}

NextSteps StepsToQuote(const std::string& dataset, const std::string& command) {
  return {"A command comes after -c, in single quotes, so that the shell neither splits it nor replaces $names.",
          fmt::format("  mrset run {} -c {}", ShellWord(dataset), ShellWord(command))};
}

NextSteps StepsToNearest(const std::string& word, const std::vector<std::string>& words) {
  const std::optional<std::string> nearest = MeantWord(word, words);
  return nearest ? NextSteps{fmt::format("Did you mean {}?", *nearest)} : NextSteps{};
}

}  // namespace standalone
