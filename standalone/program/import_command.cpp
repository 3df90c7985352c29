#include <fmt/format.h>

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <iostream>
#include <memory>
#include <optional>
#include <string>

#include "standalone/files/input_file.h"
#include "standalone/import/importer.h"
#include "standalone/program/counted.h"
#include "standalone/program/dataset_options.h"
#include "standalone/program/progress.h"
#include "standalone/program/subcommands.h"
#include "standalone/program/value_type.h"
#include "standalone/text/visible.h"

namespace standalone {
namespace {

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

ExitStatus Import(const ImportRequest& request) {
  const ImportSummary summary = ImportWithProgress(request);
  std::cerr << fmt::format("{}: {}, {}\n", Visible(request.datasetPath), Counted(summary.variables, "variable"),
                           Counted(summary.cases, "case"));
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
