#include <fmt/format.h>

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <algorithm>
#include <iostream>
#include <iterator>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "standalone/commands/history_actions.h"
#include "standalone/commands/subcommands.h"
#include "standalone/console/delivery.h"
#include "standalone/dataset/dataset_operand.h"
#include "standalone/dataset/undo.h"
#include "standalone/options/dataset_options.h"
#include "standalone/sets/set_diff.h"
#include "standalone/text/counted.h"
#include "standalone/text/error.h"
#include "standalone/text/notice.h"
#include "standalone/text/number_text.h"
#include "standalone/text/visible.h"

namespace standalone {
namespace {

struct UndoRequest {
  std::string datasetPath;
  std::optional<std::int64_t> to;
  DatasetOptions datasetOptions;
};

/// Names as in "$a", "$a and $b", or how many there are where they are many.
std::string NamesOrCount(const std::vector<std::string>& names) {
  constexpr std::size_t kMaxNames = 3;
  return names.size() > kMaxNames ? Counted(names.size(), "set") : Listed(names);
}

void AddPart(const char* verb, const std::vector<std::string>& names, std::vector<std::string>& parts) {
  if (!names.empty()) {
    parts.push_back(fmt::format("{} {}", verb, NamesOrCount(names)));
  }
}

/// What became of the sets from the version that is there again to the one that was undone.
std::string WhatWasUndone(const SetsDifference& difference) {
  std::vector<std::string> changed;
  std::transform(difference.changed.begin(), difference.changed.end(), std::back_inserter(changed),
                 [](const DifferingSet& set) { return set.a.name; });
  std::vector<std::string> parts;
  AddPart("defined", difference.names.onlyInB, parts);
  AddPart("changed", changed, parts);
  AddPart("deleted", difference.names.onlyInA, parts);
  if (difference.names.reordered) {
    parts.emplace_back("changed the order of the sets");
  }
  return Listed(parts);
}

std::string SentenceOf(const Undone& undone, const SetsDifference& difference) {
  const std::int64_t first = undone.target + 1;
  const std::int64_t last = undone.versions.last;
  const std::string changes =
      first == last ? fmt::format("change {}", last) : fmt::format("changes {} to {}", first, last);
  return fmt::format("Undone: {}, which {}. The sets are those of version {} again, as change {}.", changes,
                     WhatWasUndone(difference), undone.target, last + 1);
}

/// Where no set differs there is no change.
std::string SentenceOnOrder(const Undone& undone) {
  return fmt::format("The sets are those of version {} already; {}.", undone.target,
                     undone.written ? "only their order was restored" : "nothing was changed");
}

bool HasSameSets(const SetsDifference& difference) {
  return difference.onlyInA.empty() && difference.onlyInB.empty() && difference.changed.empty();
}

CLI::Option* AddVersion(CLI::App& options, const char* name, const char* description, UndoRequest& request) {
  return options
      .add_option_function<std::string>(
          name, [&request](const std::string& value) { request.to = WholeNumber(value); }, description)
      ->check(VersionComplaint);
}

}  // namespace

ExitStatus UndoAndSay(const std::string& datasetPath, const DatasetOptions& options, std::optional<std::int64_t> to) {
  OutliveReader();
  Dataset dataset(datasetPath, options);
  const std::optional<Undone> undone = UndoChanges(dataset, to);
  if (!undone) {
    std::cerr << NoticeLine(datasetPath + " keeps no change; there is nothing to undo.");
    return kErrors;
  }
  if (undone->before != undone->after && !undone->written) {
    throw Error(NoPermissionSentence(datasetPath));
  }
  TellOutcome(undone->written, [&] {
    const SetsDifference difference = CompareSets(undone->after, undone->before);
    std::cout << Visible(HasSameSets(difference) ? SentenceOnOrder(*undone) : SentenceOf(*undone, difference)) << '\n';
    if (undone->written) {
      EnsureToldOf(fmt::format("the sets of {} are those of version {} again", datasetPath, undone->target));
    }
  });
  return kSuccess;
}

Action DeclareUndo(CLI::App& options) {
  const auto request = std::make_shared<UndoRequest>();
  AddDatasetArgument(options, request->datasetPath);
  CLI::Option* version = AddVersion(options, "N", "The same as --to N", *request)->type_name("");
  AddVersion(options, "--to", "Go back to the sets as change N left them, instead of undoing the last change", *request)
      ->type_name("N")
      ->excludes(version);
  AddLockTimeoutOption(options, request->datasetOptions);
  options.footer(
      "Undoing is itself a change: undoing twice restores the sets (a redo).\n"
      "Exit status: 0 done, 1 nothing to undo, 2 wrong usage, no such version or an\n"
      "unusable file.\n"
      "Example:\n"
      "  mrset undo survey.mrset --to 3\n");
  return [request] { return UndoAndSay(request->datasetPath, request->datasetOptions, request->to); };
}

}  // namespace standalone
