#include "standalone/program/failure_advice.h"

#include <fmt/format.h>
#include <unistd.h>

#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <algorithm>
#include <array>
#include <filesystem>
#include <optional>
#include <system_error>
#include <vector>

#include "standalone/data/dataset.h"
#include "standalone/language/nearest_name.h"
#include "standalone/program/dataset_operand.h"
#include "standalone/text/unicode.h"

namespace standalone {
namespace {

namespace fs = std::filesystem;

/// The operands that name a dataset, which must exist, by the names that they have in the help.
constexpr std::array<const char*, 5> kDatasetOperands = {"DATASET", "SOURCE", "TARGET", "A", "B"};

constexpr const char* kImport = "import";  // makes its dataset
constexpr const char* kScript = "SCRIPT";
constexpr const char* kCommand = "--command";

/// The value of an option or operand; nothing where it is not given, or there is none of that name.
std::optional<std::string> ValueOf(const CLI::App& subcommand, const char* name) {
  const CLI::Option* option = subcommand.get_option_no_throw(name);
  return option == nullptr || option->empty() ? std::nullopt : std::optional(option->results().front());
}

/// Whether one is the other but for a typing error or the ending.
bool AreNear(const fs::path& first, const fs::path& second) {
  NearestName nearest(first.stem().string());
  nearest.Offer(second.stem().string());
  return nearest.Result() || CompareNoCase(first.stem().string(), second.stem().string()) == 0;
}

/// The datasets in the folder of a path that are near to it.
std::vector<std::string> NearDatasets(const fs::path& missing) {
  constexpr int kMostLookedAt = 10'000;
  std::vector<std::string> found;
  std::error_code unreadable;
  fs::directory_iterator entry(missing.has_parent_path() ? missing.parent_path() : fs::path("."), unreadable);
  for (int count = 0; !unreadable && entry != fs::directory_iterator() && count < kMostLookedAt; ++count) {
    const std::string path = (missing.parent_path() / entry->path().filename()).string();
    if (AreNear(missing, path) && IsDatasetFile(path)) {
      found.push_back(path);
    }
    entry.increment(unreadable);
  }
  return found;
}

NextSteps StepsWithoutDataset(const std::string& path) {
  if (const std::vector<std::string> near = NearDatasets(path); near.size() == 1) {
    return {fmt::format("Did you mean {}?", near.front())};
  }
  if (IsNameOfCsv(path)) {
    return StepsToImport(path);
  }
  return {"To make it of a survey in CSV:", fmt::format("  mrset import survey.csv {}", ShellWord(path))};
}

NextSteps StepsWithOtherFile(const CLI::App& subcommand, const std::string& path) {
  if (IsNameOfCsv(path)) {
    return StepsToImport(path);
  }
  if (const std::optional<std::string> script = ValueOf(subcommand, kScript); script && IsDatasetFile(*script)) {
    return {"The dataset stands before the script:",
            fmt::format("  mrset run {} {}", ShellWord(*script), ShellWord(path))};
  }
  return StepsToImport("survey.csv");
}

/// The dataset on which the sentence is.
std::optional<std::string> DatasetNamedBy(const CLI::App& subcommand, const std::string& sentence) {
  for (const char* operand : kDatasetOperands) {
    const std::optional<std::string> value = ValueOf(subcommand, operand);
    const std::string path = value ? ReadDatasetOperand(*value).path : "";
    if (!path.empty() && sentence.rfind(path + " ", 0) == 0) {
      return path;
    }
  }
  return std::nullopt;
}

NextSteps StepsToRun(const std::string& dataset) {
  const std::string word = ShellWord(dataset);
  return {fmt::format("  mrset run {} commands.script", word),
          fmt::format("  mrset run {} -c 'MRSET /DISPLAY NAME=ALL'", word), fmt::format("  mrset shell {}", word)};
}

/// On what there is to run. It is looked at before the dataset is.
NextSteps AdviceOnCommands(const CLI::App& subcommand) {
  const bool runs = subcommand.get_option_no_throw(kCommand) != nullptr;
  const std::optional<std::string> script = ValueOf(subcommand, kScript);
  if (runs && !script && !ValueOf(subcommand, kCommand)) {
    return StepsToRun(*ValueOf(subcommand, "DATASET"));
  }
  if (script && IsPieceOfCommand(*script) && !IsExistingFile(*script)) {
    const bool isWhole = script->find(' ') != std::string::npos;
    const std::string dataset = *ValueOf(subcommand, "DATASET");
    return isWhole ? StepsToQuote(dataset, *script) : StepsToQuote(dataset);
  }
  return {};
}

/// On a path that is not that of a dataset. What else is wrong with one is said by the sentence.
NextSteps AdviceOnDataset(const CLI::App& subcommand, const std::string& path) {
  std::error_code notThere;
  const fs::file_type type = fs::status(path, notThere).type();
  if (type == fs::file_type::not_found) {
    return StepsWithoutDataset(path);
  }
  return type == fs::file_type::regular && access(path.c_str(), R_OK) == 0 && !IsDatasetFile(path)
             ? StepsWithOtherFile(subcommand, path)
             : NextSteps();
}

}  // namespace

NextSteps AdviceOnFailure(const CLI::App& subcommand, const std::string& sentence) {
  if (NextSteps steps = AdviceOnCommands(subcommand); !steps.empty()) {
    return steps;
  }
  const std::optional<std::string> dataset = DatasetNamedBy(subcommand, sentence);
  const bool isWanted = dataset && subcommand.get_name() != kImport;
  return isWanted ? AdviceOnDataset(subcommand, *dataset) : NextSteps();
}

}  // namespace standalone
