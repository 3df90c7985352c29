#include <fmt/format.h>

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <iostream>
#include <memory>
#include <string>

#include "standalone/data/dataset_check.h"
#include "standalone/program/counted.h"
#include "standalone/program/dataset_options.h"
#include "standalone/program/progress.h"
#include "standalone/program/subcommands.h"
#include "standalone/text/visible.h"

namespace standalone {
namespace {

struct CheckRequest {
  std::string datasetPath;
  DatasetOptions datasetOptions;
};

ExitStatus Check(const CheckRequest& request) {
  std::size_t findings = 0;
  Progress progress(ErrorScreen());
  CheckReport report;
  report.finding = [&](const std::string& sentence) {
    progress.Clear();
    std::cout << Visible(sentence) << '\n';
    ++findings;
  };
  report.remark = [&](const std::string& sentence) {
    progress.Clear();
    std::cout << "Remark: " << Visible(sentence) << '\n';
  };
  const std::string name = Visible(request.datasetPath);
  report.progress = [&](std::uint64_t checked, std::uint64_t all) {
    if (checked == 1) {
      progress.Begin({"Checking " + name, "cases", all});
    }
    progress.Update(checked);
  };
  CheckDataset(request.datasetPath, request.datasetOptions, report);
  progress.Clear();
  std::cout << (findings == 0 ? name + " is sound.\n" : fmt::format("{}: {}.\n", name, Counted(findings, "finding")));
  return findings == 0 ? kSuccess : kErrors;
}

}  // namespace

Action DeclareCheck(CLI::App& options) {
  const auto request = std::make_shared<CheckRequest>();
  options.add_option("DATASET", request->datasetPath, "Dataset file")->required()->type_name("");
  AddLockTimeoutOption(options, request->datasetOptions);
  options.footer(
      "Exit status: 0 sound, 1 something is not as it should be, 2 wrong usage, or not\n"
      "readable as a dataset.\n"
      "Example:\n"
      "  mrset check survey.mrset\n");
  return [request] { return Check(*request); };
}

}  // namespace standalone
