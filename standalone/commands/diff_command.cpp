#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "standalone/commands/subcommands.h"
#include "standalone/console/terminal.h"
#include "standalone/dataset/dataset.h"
#include "standalone/dataset/dataset_operand.h"
#include "standalone/options/dataset_options.h"
#include "standalone/options/format_option.h"
#include "standalone/sets/diff_report.h"
#include "standalone/sets/set_diff.h"

namespace standalone {
namespace {

struct DiffOptions {
  std::string a;
  std::string b;
  std::string format;
  DatasetOptions datasetOptions;
};

std::vector<StoredSet> ReadSets(const std::string& text, const DatasetOptions& options) {
  const DatasetOperand operand = ReadDatasetOperand(text);
  Dataset dataset(operand.path, options);
  return SetsOf(dataset, operand);
}

ExitStatus Diff(const DiffOptions& options) {
  const SetsDifference difference =
      CompareSets(ReadSets(options.a, options.datasetOptions), ReadSets(options.b, options.datasetOptions));
  if (options.format == kJsonFormat) {
    JsonWriter json(std::cout);
    WriteDiffJson(json, difference, options.a, options.b);
    std::cout << '\n';
  } else {
    std::cout << DiffText(difference, options.a, options.b, OutputWidth());
  }
  return difference.IsNone() ? kSuccess : kErrors;
}

}  // namespace

Action DeclareDiff(CLI::App& app) {
  const auto options = std::make_shared<DiffOptions>();
  AddDatasetArgument(app, options->a,
                     "Dataset file, or DATASET@N: its sets as change N left them; 0 is before the first", "A");
  AddDatasetArgument(app, options->b, "Dataset file to compare with A, likewise", "B");
  AddFormatOption(app, {kTextFormat, kJsonFormat}, options->format);
  AddLockTimeoutOption(app, options->datasetOptions);
  app.footer(
      "Exit status: 0 the sets are the same, 1 they differ, 2 wrong usage or an\n"
      "unusable file.\n"
      "Examples:\n"
      "  mrset diff wave1.mrset wave2.mrset\n"
      "  mrset diff survey.mrset@3 survey.mrset\n");
  return [options] { return Diff(*options); };
}

}  // namespace standalone
