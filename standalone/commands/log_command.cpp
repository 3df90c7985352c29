#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "standalone/commands/history_actions.h"
#include "standalone/commands/subcommands.h"
#include "standalone/console/terminal.h"
#include "standalone/dataset/dataset.h"
#include "standalone/options/dataset_options.h"
#include "standalone/options/format_option.h"
#include "standalone/output/plain/log_text.h"

namespace standalone {
namespace {

struct LogRequest {
  std::string datasetPath;
  std::string format;
  std::optional<std::size_t> width;
  DatasetOptions datasetOptions;
};

// Written one by one: commands may be long.
void WriteJsonLog(Dataset& dataset) {
  const std::vector<LoggedImport> imports = dataset.Imports();
  dataset.EndTransaction();
  JsonWriter json(std::cout);
  json.Object([&] {
    json.Name("log");
    json.Array([&] { dataset.ForEachChange([&](const Change& change) { WriteJson(json, change); }); });
    json.Array("imports", imports, [&](const LoggedImport& import) { WriteJson(json, import); });
  });
  std::cout << '\n';
}

ExitStatus Log(const LogRequest& request) {
  Dataset dataset(request.datasetPath, request.datasetOptions);
  if (request.format == kJsonFormat) {
    WriteJsonLog(dataset);
  } else {
    WriteLog(dataset, request.width.value_or(OutputWidth()));
  }
  return kSuccess;
}

}  // namespace

void WriteLog(Dataset& dataset, std::size_t width) {
  const VersionRange versions = dataset.Versions();
  const std::vector<LoggedImport> imports = dataset.Imports();
  dataset.EndTransaction();
  if (versions.first == versions.last) {
    std::cout << "The dataset keeps no change of its sets.\n";
  }
  auto next = imports.begin();
  const auto writeImportsSince = [&](std::int64_t change) {
    for (; next != imports.end() && next->afterChange >= change; ++next) {
      std::cout << ImportText(*next, width);
    }
  };
  dataset.ForEachChange([&](const Change& change) {
    writeImportsSince(change.number);
    std::cout << ChangeText(change, width);
  });
  writeImportsSince(0);
}

Action DeclareLog(CLI::App& options) {
  const auto request = std::make_shared<LogRequest>();
  AddDatasetArgument(options, request->datasetPath);
  AddFormatOption(options, {kTextFormat, kJsonFormat}, request->format);
  AddWidthOption(options, request->width);
  AddLockTimeoutOption(options, request->datasetOptions);
  options.footer(
      "Imports are listed where they happened, without a number;\n"
      "undo leaves them as they are.\n"
      "Example:\n"
      "  mrset log survey.mrset\n");
  return [request] { return Log(*request); };
}

}  // namespace standalone
