#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <charconv>
#include <cstdint>
#include <filesystem>
#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <system_error>
#include <vector>

#include "standalone/data/dataset.h"
#include "standalone/program/dataset_options.h"
#include "standalone/program/format_option.h"
#include "standalone/program/subcommands.h"
#include "standalone/program/terminal.h"
#include "standalone/sets/diff_report.h"
#include "standalone/sets/set_diff.h"

namespace standalone {
namespace {

constexpr const char* kJsonFormat = "json";

struct DiffOptions {
  std::string a;
  std::string b;
  std::string format;
  DatasetOptions datasetOptions;
};

struct Operand {
  std::string path;
  std::optional<std::int64_t> version;
};

bool IsThere(const std::string& path) {
  std::error_code unknown;
  return std::filesystem::exists(path, unknown);
}

/// "survey.mrset@3" is version 3 of survey.mrset, unless there is a file of that very name.
Operand OperandOf(const std::string& text) {
  const std::size_t at = text.rfind('@');
  if (at == std::string::npos || IsThere(text)) {
    return {text, std::nullopt};
  }
  std::int64_t version = 0;
  const char* end = text.data() + text.size();
  const auto [rest, error] = std::from_chars(text.data() + at + 1, end, version);
  if (rest != end || error != std::errc() || version < 0) {
    return {text, std::nullopt};
  }
  return {text.substr(0, at), version};
}

std::vector<StoredSet> SetsOf(const std::string& text, const DatasetOptions& options) {
  const Operand operand = OperandOf(text);
  Dataset dataset(operand.path, options);
  return operand.version ? dataset.SetsOfVersion(*operand.version) : dataset.Sets();
}

ExitStatus Diff(const DiffOptions& options) {
  const SetsDifference difference =
      CompareSets(SetsOf(options.a, options.datasetOptions), SetsOf(options.b, options.datasetOptions));
  if (options.format == kJsonFormat) {
    std::cout << OneLine(DiffJson(difference, options.a, options.b)) << '\n';
  } else {
    std::cout << DiffText(difference, options.a, options.b, OutputWidth());
  }
  return difference.IsNone() ? kSuccess : kErrors;
}

}  // namespace

Action DeclareDiff(CLI::App& app) {
  const auto options = std::make_shared<DiffOptions>();
  app.add_option("A", options->a, "Dataset file, or a version of its sets: FILE@N is what change N left")
      ->required()
      ->type_name("");
  app.add_option("B", options->b, "What to compare with it")->required()->type_name("");
  AddFormatOption(app, {"text", kJsonFormat}, options->format);
  AddLockTimeoutOption(app, options->datasetOptions);
  app.footer(
      "Exit status: 0 the sets are the same, 1 they differ, 2 wrong usage or an unusable file.\n"
      "Examples:\n"
      "  mrset diff wave1.mrset wave2.mrset\n"
      "  mrset diff survey.mrset@3 survey.mrset\n");
  return [options] { return Diff(*options); };
}

}  // namespace standalone
