#include <fmt/format.h>

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <iostream>
#include <memory>
#include <optional>
#include <string>

#include "standalone/data/undo.h"
#include "standalone/program/dataset_options.h"
#include "standalone/program/delivery.h"
#include "standalone/program/history_actions.h"
#include "standalone/program/subcommands.h"
#include "standalone/program/whole_number.h"
#include "standalone/text/error.h"
#include "standalone/text/notice.h"

namespace standalone {
namespace {

struct UndoRequest {
  std::string datasetPath;
  std::optional<std::int64_t> to;
  DatasetOptions datasetOptions;
};

std::string SentenceOf(const Undone& undone) {
  const std::int64_t last = undone.versions.last;
  if (!undone.changed) {
    return fmt::format("The sets are those of version {} already; nothing was changed.", undone.target);
  }
  return undone.target == last - 1
             ? fmt::format("Change {} was undone: the sets are those of version {} again, as change {}.", last,
                           undone.target, last + 1)
             : fmt::format("Changes {} to {} were undone: the sets are those of version {} again, as change {}.",
                           undone.target + 1, last, undone.target, last + 1);
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
  if (undone->changed && !undone->written) {
    throw Error(NoPermissionSentence(datasetPath));
  }
  std::cout << SentenceOf(*undone) << '\n';
  if (undone->changed) {
    EnsureToldOf(fmt::format("the sets of {} are those of version {} again", datasetPath, undone->target));
  }
  return kSuccess;
}

Action DeclareUndo(CLI::App& options) {
  const auto request = std::make_shared<UndoRequest>();
  AddDatasetArgument(options, request->datasetPath);
  options
      .add_option_function<std::string>(
          "--to", [request](const std::string& value) { request->to = WholeNumber(value); },
          "Go back to the sets as change N left them, instead of undoing the last change")
      ->check([](const std::string& value) {
        return WholeNumber(value) ? std::string() : value + " is not a version number";
      })
      ->type_name("N");
  AddLockTimeoutOption(options, request->datasetOptions);
  options.footer(
      "Undoing is itself a change: to undo twice brings the sets back.\n"
      "Exit status: 0 done, 1 nothing to undo, 2 wrong usage, no such version or an\n"
      "unusable file.\n"
      "Example:\n"
      "  mrset undo survey.mrset --to 3\n");
  return [request] { return UndoAndSay(request->datasetPath, request->datasetOptions, request->to); };
}

}  // namespace standalone
