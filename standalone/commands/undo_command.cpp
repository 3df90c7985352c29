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
#include <unordered_set>
#include <utility>
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
#include "standalone/text/unicode.h"
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

template <typename Sets, typename NameOf>
std::vector<std::string> NamesOf(const Sets& sets, NameOf nameOf) {
  std::vector<std::string> names;
  std::transform(sets.begin(), sets.end(), std::back_inserter(names), nameOf);
  return names;
}

/// The names of the sets that the other list has, too, in upper case.
std::vector<std::string> CommonNames(const std::vector<StoredSet>& sets, const std::vector<StoredSet>& others) {
  std::unordered_set<std::string> names;
  for (const StoredSet& other : others) {
    names.insert(ToUpper(other.name));
  }
  std::vector<std::string> common;
  for (const StoredSet& set : sets) {
    if (std::string name = ToUpper(set.name); names.count(name) != 0) {
      common.push_back(std::move(name));
    }
  }
  return common;
}

/// What became of the sets from the version that is there again to the one that was undone.
std::string WhatWasUndone(const Undone& undone, const SetsDifference& difference) {
  const auto name = [](const StoredSet& set) { return set.name; };
  std::vector<std::string> parts;
  AddPart("defined", NamesOf(difference.onlyInB, name), parts);
  AddPart("changed", NamesOf(difference.changed, [](const DifferingSet& set) { return set.a.name; }), parts);
  AddPart("deleted", NamesOf(difference.onlyInA, name), parts);
  if (CommonNames(undone.before, undone.after) != CommonNames(undone.after, undone.before)) {
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
                     WhatWasUndone(undone, difference), undone.target, last + 1);
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
  const SetsDifference difference = CompareSets(undone->after, undone->before);
  std::cout << Visible(HasSameSets(difference) ? SentenceOnOrder(*undone) : SentenceOf(*undone, difference)) << '\n';
  if (undone->written) {
    EnsureToldOf(fmt::format("the sets of {} are those of version {} again", datasetPath, undone->target));
  }
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
