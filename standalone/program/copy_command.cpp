#include <fmt/format.h>

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <iostream>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "standalone/data/dataset.h"
#include "standalone/program/dataset_options.h"
#include "standalone/program/same_file.h"
#include "standalone/program/subcommands.h"
#include "standalone/sets/chosen_sets.h"
#include "standalone/sets/copy_transaction.h"
#include "standalone/text/visible.h"

namespace standalone {
namespace {

struct CopyOptions {
  std::string sourcePath;
  std::string targetPath;
  std::vector<std::string> names;
  bool skipIncomplete = false;
  bool dryRun = false;
  DatasetOptions datasetOptions;
};

/// A copy cannot be made from or to what the options name; what() is one sentence.
class CopyError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

CopyPlan CopyChosen(const CopyOptions& options) {
  Dataset source(options.sourcePath, options.datasetOptions);
  source.BeginCommand(false);
  const std::vector<StoredSet> chosen = ChooseSets(source.Sets(), options.names, options.sourcePath);
  Dataset target(options.targetPath, options.datasetOptions);
  return CopySets(chosen, SideOf(source, options.sourcePath), target, options.targetPath, [&](const CopyPlan& plan) {
    return !options.dryRun && (plan.IsComplete() || options.skipIncomplete);
  });
}

std::string_view WordsOf(CopiedSet::Outcome outcome) {
  switch (outcome) {
    case CopiedSet::Outcome::kAdded:
      return "added";
    case CopiedSet::Outcome::kReplaced:
      return "replaced";
    case CopiedSet::Outcome::kUnchanged:
      return "the same already";
    case CopiedSet::Outcome::kIncomplete:
      break;
  }
  return "left out";
}

void TellOutcome(const CopiedSet& set) {
  std::cout << Visible(fmt::format("{}: {}", set.name, WordsOf(set.outcome))) << '\n';
  for (const std::string& remark : set.remarks) {
    std::cout << Visible(fmt::format("  {}", remark)) << '\n';
  }
}

void TellProblems(const CopyPlan& plan) {
  std::cout.flush();
  for (const CopiedSet& set : plan.outcome) {
    if (!set.problems.empty()) {
      PrintError(fmt::format("The set {} cannot be copied: {}.", set.name, fmt::join(set.problems, "; ")));
    }
  }
}

ExitStatus Copy(const CopyOptions& options) {
  if (IsSameFile(options.sourcePath, options.targetPath)) {
    throw CopyError(fmt::format("{} and {} are the same dataset.", options.sourcePath, options.targetPath));
  }
  const CopyPlan plan = CopyChosen(options);
  if (!plan.IsComplete() && !options.skipIncomplete) {
    TellProblems(plan);
    PrintError("Nothing is copied; --skip-incomplete copies the other sets.");
    return kErrors;
  }
  for (const CopiedSet& set : plan.outcome) {
    TellOutcome(set);
  }
  if (plan.outcome.empty()) {
    std::cout << Visible(options.sourcePath) << " has no multiple response sets.\n";
  } else if (options.dryRun) {
    std::cout << "A dry run: " << Visible(options.targetPath) << " is as it was.\n";
  }
  TellProblems(plan);
  return plan.IsComplete() ? kSuccess : kErrors;
}

}  // namespace

Action DeclareCopy(CLI::App& app) {
  const auto options = std::make_shared<CopyOptions>();
  app.add_option("SOURCE", options->sourcePath, "Dataset file from which sets are taken")->required()->type_name("");
  app.add_option("TARGET", options->targetPath, "Dataset file into which they are copied")->required()->type_name("");
  app.add_option("SET", options->names, "Names of the sets to copy; without any, all")->type_name("");
  app.add_flag("--skip-incomplete", options->skipIncomplete,
               "Leave out the sets whose variables the target lacks and copy the others");
  app.add_flag("--dry-run", options->dryRun, "Show what would be copied and leave the target as it is");
  AddLockTimeoutOption(app, options->datasetOptions);
  app.footer(
      "Exit status: 0 all sets are copied, 1 a set cannot be copied, 2 wrong usage or an unusable file.\n"
      "Example:\n"
      "  mrset copy wave1.mrset wave2.mrset '$drinks' '$toppings'\n");
  return [options] { return Copy(*options); };
}

}  // namespace standalone
