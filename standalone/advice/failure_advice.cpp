#include "standalone/advice/failure_advice.h"

#include <fmt/format.h>

#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <algorithm>
#include <filesystem>
#include <optional>
#include <system_error>
#include <vector>

#include "standalone/language/nearest_name.h"
#include "standalone/storage/file_format.h"
#include "standalone/text/error.h"
#include "standalone/text/unicode.h"

namespace standalone {
namespace {

namespace fs = std::filesystem;

constexpr const char* kImport = "import";  // makes its dataset
constexpr const char* kScript = "SCRIPT";
constexpr const char* kDataset = "DATASET";

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
  constexpr int kMaxLookedAt = 10'000;
  std::vector<std::string> found;
  std::error_code unreadable;
  fs::directory_iterator entry(missing.has_parent_path() ? missing.parent_path() : fs::path("."), unreadable);
  for (int count = 0; !unreadable && entry != fs::directory_iterator() && count < kMaxLookedAt; ++count) {
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
  return {"To create it from a CSV survey:", fmt::format("  mrset import survey.csv {}", ShellWord(path))};
}

NextSteps StepsWithOtherFile(const CLI::App& subcommand, const std::string& path) {
  if (IsNameOfCsv(path)) {
    return StepsToImport(path);
  }
  if (const std::optional<std::string> script = ValueOf(subcommand, kScript); script && IsDatasetFile(*script)) {
    return {"The dataset comes before the script:",
            fmt::format("  mrset run {} {}", ShellWord(*script), ShellWord(path))};
  }
  return StepsToImport("survey.csv");
}

NextSteps StepsToRun(const std::string& dataset) {
  const std::string word = ShellWord(dataset);
  return {fmt::format("  mrset run {} commands.script", word),
          fmt::format("  mrset run {} -c 'MRSET /DISPLAY NAME=ALL'", word), fmt::format("  mrset shell {}", word)};
}

/// On a file that does not exist: the script, or a dataset.
NextSteps StepsWithoutFile(const CLI::App& subcommand, const std::string& path) {
  if (ValueOf(subcommand, kScript) != path) {
    return StepsWithoutDataset(path);
  }
  if (!IsPieceOfCommand(path)) {
    return {};
  }
  const bool isWhole = path.find(' ') != std::string::npos;
  const std::string dataset = *ValueOf(subcommand, kDataset);
  return isWhole ? StepsToQuote(dataset, path) : StepsToQuote(dataset);
}

}  // namespace

NextSteps AdviceOnFailure(const CLI::App& subcommand, const Error& error) {
  if (subcommand.get_name() == kImport) {
    return {};
  }
  switch (error.Kind()) {
    case ErrorKind::kNothingToRun:
      return StepsToRun(*ValueOf(subcommand, kDataset));
    case ErrorKind::kMissingFile:
      return StepsWithoutFile(subcommand, error.Subject());
    case ErrorKind::kNotADataset:
      return StepsWithOtherFile(subcommand, error.Subject());
    default:
      return {};
  }
}

}  // namespace standalone
