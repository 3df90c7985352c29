#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <iostream>
#include <memory>
#include <string>

#include "standalone/data/dataset.h"
#include "standalone/output/log_text.h"
#include "standalone/program/dataset_options.h"
#include "standalone/program/format_option.h"
#include "standalone/program/history_actions.h"
#include "standalone/program/subcommands.h"
#include "standalone/program/terminal.h"

namespace standalone {
namespace {

constexpr const char* kJsonLog = "json";

struct LogRequest {
  std::string datasetPath;
  std::string format;
  DatasetOptions datasetOptions;
};

// Written one by one: commands may be long.
void WriteJson(Dataset& dataset) {
  std::cout << "{\"log\":[";
  const char* separator = "";
  dataset.ForEachChange([&](const Change& change) {
    std::cout << separator << OneLine(ToJson(change));
    separator = ",";
  });
  std::cout << "]}\n";
}

ExitStatus Log(const LogRequest& request) {
  Dataset dataset(request.datasetPath, request.datasetOptions);
  (request.format == kJsonLog ? WriteJson : WriteLog)(dataset);
  return kSuccess;
}

}  // namespace

void WriteLog(Dataset& dataset) {
  const VersionRange versions = dataset.Versions();
  dataset.EndCommand();
  if (versions.first == versions.last) {
    std::cout << "The dataset keeps no change of its sets.\n";
  }
  const std::size_t width = OutputWidth();
  dataset.ForEachChange([&](const Change& change) { std::cout << ChangeText(change, width); });
}

Action DeclareLog(CLI::App& options) {
  const auto request = std::make_shared<LogRequest>();
  AddDatasetArgument(options, request->datasetPath);
  AddFormatOption(options, {"text", kJsonLog}, request->format);
  AddLockTimeoutOption(options, request->datasetOptions);
  options.footer("Example:\n  mrset log survey.mrset\n");
  return [request] { return Log(*request); };
}

}  // namespace standalone
