#include <fmt/format.h>
#include <unistd.h>

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <filesystem>
#include <iostream>
#include <memory>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include "standalone/commands/subcommands.h"
#include "standalone/dataset/dataset.h"
#include "standalone/dataset/dataset_operand.h"
#include "standalone/files/output_file.h"
#include "standalone/files/same_file.h"
#include "standalone/options/dataset_options.h"
#include "standalone/options/output_option.h"
#include "standalone/options/value_type.h"
#include "standalone/sets/chosen_sets.h"
#include "standalone/sets/set_script.h"
#include "standalone/storage/companions.h"
#include "standalone/text/error.h"
#include "standalone/text/notice.h"
#include "standalone/text/visible.h"

namespace standalone {
namespace {

struct ScriptOptions {
  std::string dataset;
  std::vector<std::string> names;
  std::optional<std::string> outputPath;
  bool deleteAll = false;
  DatasetOptions datasetOptions;
};

std::string Title(const ScriptOptions& options, bool hasSets) {
  const std::string file = std::filesystem::path(options.dataset).filename().string();
  if (!hasSets) {
    return fmt::format("{} has no multiple response sets.", file);
  }
  return fmt::format("Multiple response sets of {}. {}", file,
                     options.deleteAll ? "All sets of the dataset on which this runs are deleted first."
                                       : "A set that has one of these names already is replaced in its place.");
}

/// The script with what would act on a terminal in a harmless form.
std::string VisibleScript(const std::string& script) {
  std::istringstream lines(script);
  std::string visible;
  for (std::string line; std::getline(lines, line);) {
    visible += Visible(line) + "\n";
  }
  return visible;
}

void PrintScript(const std::string& script) {
  if (isatty(STDOUT_FILENO) == 0) {
    std::cout << script;
    return;
  }
  const std::string visible = VisibleScript(script);
  std::cout << visible << std::flush;
  if (visible != script) {
    std::cerr << NoticeLine(
        "Characters that would act on the terminal are shown as escapes; --output writes them as they are.");
  }
}

void WriteScript(const std::string& script, const ScriptOptions& options) {
  if (!options.outputPath) {
    PrintScript(script);
    return;
  }
  if (IsSameFile(*options.outputPath, ReadDatasetOperand(options.dataset).path)) {
    throw Error(fmt::format("The output file {} is the dataset that is read; give another one.", *options.outputPath));
  }
  OutputFile file(*options.outputPath, ComplaintOnReservedName);
  file.Stream() << script;
  file.Commit();
}

/// Notes come last, so that they are seen.
ExitStatus TellNotes(const std::vector<ScriptedSet>& sets) {
  ExitStatus status = kSuccess;
  for (const ScriptedSet& set : sets) {
    if (set.note) {
      std::cerr << NoticeLine(*set.note);
    }
    status = set.command.empty() ? kErrors : status;
  }
  return status;
}

ExitStatus Script(const ScriptOptions& options) {
  const DatasetOperand operand = ReadDatasetOperand(options.dataset);
  Dataset dataset(operand.path, options.datasetOptions);
  dataset.BeginTransaction(Access::kShared);
  const std::vector<StoredSet> sets = ChooseSets(SetsOf(dataset, operand), options.names, options.dataset);
  const std::vector<ScriptedSet> scripted = ScriptSets(dataset, sets);
  dataset.EndTransaction();
  WriteScript(ScriptOf(Title(options, !sets.empty()), scripted, options.deleteAll), options);
  return TellNotes(scripted);
}

}  // namespace

Action DeclareScript(CLI::App& app) {
  const auto options = std::make_shared<ScriptOptions>();
  AddDatasetArgument(app, options->dataset, "Dataset file, or DATASET@N: its sets as change N left them");
  app.add_option("SET", options->names, "Names of the sets to write; without any, all")->type_name(kSetType);
  AddOutputOption(app, "Write the script to this file", options->outputPath);
  app.add_flag("--delete-all", options->deleteAll,
               "Begin by deleting all sets of the dataset on which the script runs");
  AddLockTimeoutOption(app, options->datasetOptions);
  app.footer(
      "Exit status: 0 all sets are written, 1 a set cannot be written as a command,\n"
      "2 wrong usage or an unusable file.\n"
      "Example:\n"
      "  mrset script survey.mrset --output sets.script\n"
      "  mrset run other.mrset sets.script\n");
  return [options] { return Script(*options); };
}

}  // namespace standalone
