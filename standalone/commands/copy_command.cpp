#include <fmt/format.h>

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <algorithm>
#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "standalone/commands/subcommands.h"
#include "standalone/console/delivery.h"
#include "standalone/dataset/dataset.h"
#include "standalone/dataset/dataset_operand.h"
#include "standalone/files/same_file.h"
#include "standalone/options/dataset_options.h"
#include "standalone/options/value_type.h"
#include "standalone/sets/chosen_sets.h"
#include "standalone/sets/copy_transaction.h"
#include "standalone/text/error.h"
#include "standalone/text/notice.h"
#include "standalone/text/visible.h"

namespace standalone {
namespace {

struct CopyOptions {
  std::string source;
  std::string targetPath;
  std::vector<std::string> names;
  bool skipIncomplete = false;
  bool dryRun = false;
  DatasetOptions datasetOptions;
};

/// The copy as the history of the target's sets names it.
std::string CommandOf(const CopyPlan& plan, const CopyOptions& options) {
  std::string command = "copy " + options.source;
  for (const CopiedSet& set : plan.outcome) {
    if (set.outcome != CopiedSet::Outcome::kIncomplete) {
      command += " " + set.name;
    }
  }
  return command;
}

std::optional<std::string> CommandIfWanted(const CopyPlan& plan, const CopyOptions& options) {
  const bool isWanted = !options.dryRun && (plan.IsComplete() || options.skipIncomplete);
  return isWanted ? std::make_optional(CommandOf(plan, options)) : std::nullopt;
}

/// Two datasets, or one and a version of it.
void CheckAreDifferent(const DatasetOperand& source, const CopyOptions& options) {
  if (!source.version && IsSameFile(source.path, options.targetPath)) {
    throw Error(ErrorKind::kUsage, fmt::format("{} and {} are the same dataset.", source.path, options.targetPath));
  }
}

/// The sets that are copied, and those of their variables that the source has.
struct SourceOfCopy {
  std::vector<StoredSet> sets;
  VariablesByName variables;
};

/// Reads all that the copy needs of its source, which is free before the target is taken: else two copies crosswise
/// would wait for each other, and nobody could save in the source while this one waits.
SourceOfCopy ReadSource(const CopyOptions& options) {
  const DatasetOperand operand = ReadDatasetOperand(options.source);
  CheckAreDifferent(operand, options);
  Dataset dataset(operand.path, options.datasetOptions);
  dataset.BeginTransaction(Access::kShared);
  SourceOfCopy source;
  source.sets = ChooseSets(SetsOf(dataset, operand), options.names, options.source);
  source.variables = VariablesByName(dataset, source.sets);
  return source;
}

CopyPlan CopyChosen(const CopyOptions& options) {
  const SourceOfCopy source = ReadSource(options);
  Dataset target(options.targetPath, options.datasetOptions);
  return CopySets(source.sets, {source.variables.Finder(), options.source}, target, options.targetPath,
                  [&](const CopyPlan& plan) { return CommandIfWanted(plan, options); });
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

void TellOfSet(const CopiedSet& set) {
  std::cout << Visible(fmt::format("{}: {}", set.name, WordsOf(set.outcome))) << '\n';
  for (const std::string& remark : set.remarks) {
    std::cout << Visible(fmt::format("  {}", remark)) << '\n';
  }
}

bool HasChanged(const CopyPlan& plan) {
  return std::any_of(plan.outcome.begin(), plan.outcome.end(), [](const CopiedSet& set) {
    return set.outcome == CopiedSet::Outcome::kAdded || set.outcome == CopiedSet::Outcome::kReplaced;
  });
}

void TellProblems(const CopyPlan& plan) {
  std::cout.flush();
  for (const CopiedSet& set : plan.outcome) {
    if (!set.problems.empty()) {
      std::cerr << NoticeLine(fmt::format("The set {} cannot be copied: {}.", set.name, fmt::join(set.problems, "; ")));
    }
  }
}

void TellSets(const CopyPlan& plan, const CopyOptions& options) {
  for (const CopiedSet& set : plan.outcome) {
    TellOfSet(set);
  }
  if (plan.outcome.empty()) {
    std::cout << Visible(options.source) << " has no multiple response sets.\n";
  } else if (options.dryRun) {
    std::cout << "A dry run: " << Visible(options.targetPath) << " is as it was.\n";
  }
}

ExitStatus Copy(const CopyOptions& options) {
  OutliveReader();
  const CopyPlan plan = CopyChosen(options);
  if (!plan.IsComplete() && !options.skipIncomplete) {
    TellProblems(plan);
    std::cerr << NoticeLine("Nothing is copied; --skip-incomplete copies the other sets.");
    return kErrors;
  }
  const bool isChanged = !options.dryRun && HasChanged(plan);
  TellOutcome(isChanged, [&] {
    TellSets(plan, options);
    if (isChanged) {
      EnsureToldOf(fmt::format("the sets are copied into {}", options.targetPath));
    }
    TellProblems(plan);
  });
  return plan.IsComplete() ? kSuccess : kErrors;
}

}  // namespace

Action DeclareCopy(CLI::App& app) {
  const auto options = std::make_shared<CopyOptions>();
  AddDatasetArgument(app, options->source,
                     "Dataset file from which sets are taken, or DATASET@N: its sets as change N left them", "SOURCE");
  AddDatasetArgument(app, options->targetPath, "Dataset file into which they are copied", "TARGET");
  app.add_option("SET", options->names, "Names of the sets to copy; without any, all")->type_name(kSetType);
  app.add_flag("--skip-incomplete", options->skipIncomplete,
               "Leave out the sets whose variables the target lacks and copy the others");
  app.add_flag("--dry-run", options->dryRun, "Show what would be copied and leave the target as it is");
  AddLockTimeoutOption(app, options->datasetOptions);
  app.footer(
      "Exit status: 0 all sets are copied, 1 a set cannot be copied, 2 wrong usage or\n"
      "an unusable file.\n"
      "Examples:\n"
      "  mrset copy wave1.mrset wave2.mrset '$drinks' '$toppings'\n"
      "  mrset copy survey.mrset@3 survey.mrset '$drinks'\n");
  return [options] { return Copy(*options); };
}

}  // namespace standalone
