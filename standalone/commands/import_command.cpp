#include <fmt/format.h>

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <algorithm>
#include <cstddef>
#include <exception>
#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "standalone/commands/set_problems.h"
#include "standalone/commands/subcommands.h"
#include "standalone/console/progress.h"
#include "standalone/files/input_file.h"
#include "standalone/import/importer.h"
#include "standalone/options/dataset_options.h"
#include "standalone/options/value_type.h"
#include "standalone/text/counted.h"
#include "standalone/text/error.h"
#include "standalone/text/notice.h"
#include "standalone/text/visible.h"

namespace standalone {
namespace {

/// Of the dataset that is about to be replaced, if there is one that can be read.
TypesOfSets TypesBefore(const ImportRequest& request) {
  try {
    Dataset dataset(request.datasetPath, request.datasetOptions);
    return TypesOf(dataset);
  } catch (const Error& error) {
    if (error.Kind() != ErrorKind::kMissingFile) {
      RethrowUnless(error, ErrorKind::kDamaged);
    }
    return {};
  }
}

ImportSummary ImportWithProgress(ImportRequest request) {
  Progress progress(ErrorScreen());
  std::optional<bool> begun;
  request.progress = [&](const ImportProgress& now) {
    if (begun != now.isForTypes) {
      begun = now.isForTypes;
      progress.Begin(
          {(now.isForTypes ? "Looking at " : "Importing ") + Visible(SurveyName(request.dataPath)), "", now.size});
    }
    progress.Update(now.bytes);
  };
  return ImportSurvey(request);
}

std::string WhatIsWrong(const OddCells& odd) {
  const bool isOne = odd.count == 1;
  if (odd.inOtherForm == 0) {
    return isOne ? "is not a number" : "are not numbers";
  }
  return odd.inOtherForm == odd.count ? "would change as " + std::string(isOne ? "a number" : "numbers")
                                      : "are not numbers or would change as numbers";
}

std::string SentenceOn(const NearlyNumericColumn& column, const std::string& survey) {
  const OddCells& odd = column.odd;
  return fmt::format("{}: {} is a string variable because {} of its {} values {}; the first is \"{}\" in line {}.",
                     survey, column.name, odd.count, odd.count + odd.numbers, WhatIsWrong(odd), odd.text, odd.line);
}

void WriteNearlyNumeric(const std::vector<NearlyNumericColumn>& columns, const std::string& survey) {
  constexpr std::size_t kMaxShown = 10;
  const std::size_t shown = std::min(columns.size(), kMaxShown);
  for (std::size_t index = 0; index < shown; ++index) {
    std::cerr << NoticeLine(SentenceOn(columns[index], survey));
  }
  if (shown < columns.size()) {
    const std::size_t others = columns.size() - shown;
    std::cerr << NoticeLine(fmt::format("{}: {} more {} because of a few values.", survey, others,
                                        others == 1 ? "column is a string variable" : "columns are string variables"));
  }
}

/// The sets were kept, whatever became of their variables. The import stands, even if this cannot be told.
std::vector<std::string> Misfits(const ImportRequest& request, const TypesOfSets& typesBefore) {
  try {
    Dataset dataset(request.datasetPath, request.datasetOptions);
    const std::vector<StoredSet> sets = dataset.Sets();
    std::vector<std::vector<std::string>> problems = ProblemsOfSets(dataset, sets);
    AddChangesOfType(dataset, sets, typesBefore, problems);
    return NotesOnProblems(sets, problems);
  } catch (const std::exception&) {
    return {};
  }
}

ExitStatus Import(ImportRequest request) {
  TypesOfSets typesBefore;
  if (request.replace) {
    request.beforeWriting = [&] { typesBefore = TypesBefore(request); };
  }
  const ImportSummary summary = ImportWithProgress(request);
  std::cerr << fmt::format("{}: {}, {}\n", Visible(request.datasetPath), Counted(summary.variables, "variable"),
                           Counted(summary.cases, "case"));
  WriteNearlyNumeric(summary.nearlyNumeric, SurveyName(request.dataPath));
  for (const std::string& note : request.replace ? Misfits(request, typesBefore) : std::vector<std::string>()) {
    std::cerr << NoticeLine(note);
  }
  return kSuccess;
}

}  // namespace

Action DeclareImport(CLI::App& options) {
  const auto request = std::make_shared<ImportRequest>();
  options.add_option("--schema", request->codebookPath, "Codebook of the survey: Table Schema, JSON")
      ->type_name(kCodebookType);
  options.add_flag("--replace", request->replace,
                   "Replace the variables and cases of a dataset that exists; its sets are kept");
  AddLockTimeoutOption(options, request->datasetOptions);
  options.add_option("DATA", request->dataPath, "Survey: CSV, UTF-8, header row; - for standard input")
      ->required()
      ->type_name(kSurveyType);
  AddDatasetArgument(options, request->datasetPath, "Dataset file to make");
  options.footer("Example:\n  mrset import --schema survey.schema.json survey.csv survey.mrset\n");
  return [request] { return Import(*request); };
}

}  // namespace standalone
