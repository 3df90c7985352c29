#include <fmt/format.h>

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <iostream>
#include <memory>
#include <string>

#include "standalone/data/dataset.h"
#include "standalone/output/sets_json.h"
#include "standalone/output/text_table.h"
#include "standalone/program/counted.h"
#include "standalone/program/dataset_options.h"
#include "standalone/program/format_option.h"
#include "standalone/program/subcommands.h"
#include "standalone/program/terminal.h"

namespace standalone {
namespace {

struct ListRequest {
  std::string datasetPath;
  std::string format;
  DatasetOptions datasetOptions;
};

Cell TextCell(const std::string& text) {
  Cell cell;
  if (!text.empty()) {
    cell.value = text;
  }
  return cell;
}

Cell ListCell(std::vector<std::string> entries) {
  Cell cell;
  cell.value = std::move(entries);
  return cell;
}

Table SetsTable(const std::vector<StoredSet>& sets) {
  Table table{"Multiple response sets", "Name", "", {"Type", "Label", "Counted value", "Variables"}, {}};
  for (const StoredSet& set : sets) {
    const bool isDichotomy = set.type == SetType::kDichotomy;
    table.rows.push_back({set.name,
                          {TextCell(isDichotomy ? "dichotomy" : "category"), TextCell(set.label),
                           TextCell(set.countedValue), ListCell(set.variables)}});
  }
  return table;
}

TableRow VariableRow(const Variable& variable) {
  std::vector<std::string> valueLabels;
  for (const ValueLabel& entry : variable.valueLabels) {
    valueLabels.push_back(fmt::format("{} = {}", entry.value, entry.label));
  }
  const std::string type =
      variable.width == 0 ? "numeric" : "string, " + Counted(static_cast<std::size_t>(variable.width), "byte");
  return {variable.name, {TextCell(type), TextCell(variable.label.value_or("")), ListCell(std::move(valueLabels))}};
}

Table VariablesTable(Dataset& dataset) {
  Table table{"Variables", "Name", "", {"Type", "Label", "Value labels"}, {}};
  for (int position = 0; position < dataset.VariableCount(); ++position) {
    table.rows.push_back(VariableRow(dataset.VariableAt(position)));
  }
  return table;
}

ExitStatus ListSets(const ListRequest& request) {
  Dataset dataset(request.datasetPath, request.datasetOptions);
  const std::vector<StoredSet> sets = dataset.Sets();
  if (request.format == kJsonFormat) {
    std::cout << OneLine({{"sets", ToJson(sets)}}) << '\n';
  } else if (sets.empty()) {
    std::cout << "The dataset has no multiple response sets.\n";
  } else {
    std::cout << TextTable(SetsTable(sets), OutputWidth());
  }
  return kSuccess;
}

/// Written one by one: a dictionary may be large.
void WriteVariablesJson(Dataset& dataset) {
  std::cout << "{\"variables\":[";
  for (int position = 0; position < dataset.VariableCount(); ++position) {
    std::cout << (position == 0 ? "" : ",") << OneLine(ToJson(dataset.VariableAt(position)));
  }
  std::cout << "]}\n";
}

ExitStatus ListVariables(const ListRequest& request) {
  Dataset dataset(request.datasetPath, request.datasetOptions);
  dataset.BeginCommand(false);
  if (request.format == kJsonFormat) {
    WriteVariablesJson(dataset);
  } else {
    std::cout << TextTable(VariablesTable(dataset), OutputWidth());
  }
  return kSuccess;
}

Action DeclareList(CLI::App& options, const char* example, ExitStatus (*list)(const ListRequest&)) {
  const auto request = std::make_shared<ListRequest>();
  options.add_option("DATASET", request->datasetPath, "Dataset file")->required()->type_name("");
  AddFormatOption(options, request->format);
  AddLockTimeoutOption(options, request->datasetOptions);
  options.footer(fmt::format("Example:\n  {}\n", example));
  return [request, list] { return list(*request); };
}

}  // namespace

Action DeclareSets(CLI::App& options) {
  return DeclareList(options, "mrset sets survey.mrset --format json", ListSets);
}

Action DeclareVariables(CLI::App& options) {
  return DeclareList(options, "mrset variables survey.mrset", ListVariables);
}

}  // namespace standalone
