#include <fmt/format.h>

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <array>
#include <iostream>
#include <memory>
#include <string>

#include "standalone/data/dataset.h"
#include "standalone/output/sets_json.h"
#include "standalone/output/table_writer.h"
#include "standalone/program/dataset_options.h"
#include "standalone/program/format_option.h"
#include "standalone/program/list_tables.h"
#include "standalone/program/subcommands.h"
#include "standalone/program/terminal.h"

namespace standalone {
namespace {

struct ListRequest {
  std::string datasetPath;
  FormatOptions format;
  DatasetOptions datasetOptions;
};

void WriteSetsTable(Dataset& dataset, TableWriter& writer) {
  writer.Begin(SetsHeading());
  for (const StoredSet& set : dataset.Sets()) {
    writer.Add(SetRow(set));
  }
  writer.End();
}

void WriteVariablesTable(Dataset& dataset, TableWriter& writer) {
  writer.Begin(VariablesHeading());
  for (int position = 0; position < dataset.VariableCount(); ++position) {
    writer.Add(VariableRow(dataset.VariableAt(position)));
  }
  writer.End();
}

void WriteSetsJson(Dataset& dataset) {
  std::cout << OneLine({{"sets", ToJson(dataset.Sets())}}) << '\n';
}

/// Written one by one: a dictionary may be large.
void WriteVariablesJson(Dataset& dataset) {
  std::cout << "{\"variables\":[";
  for (int position = 0; position < dataset.VariableCount(); ++position) {
    std::cout << (position == 0 ? "" : ",") << OneLine(ToJson(dataset.VariableAt(position)));
  }
  std::cout << "]}\n";
}

std::string AbsenceOfVariables(Dataset& /*dataset*/) {
  return {};  // a dataset has one at least
}

/// One form of a list as a table; json has a form of its own for each list.
struct ListFormat {
  const char* name;
  bool isForPeople;
  std::unique_ptr<TableWriter> (*makeWriter)(const FormatOptions& options);
};

std::unique_ptr<TableWriter> MakeText(const FormatOptions& options) {
  return MakeTextTableWriter(std::cout, OutputWidth(), ChosenColour(options, OutputIsTerminal()));
}

std::unique_ptr<TableWriter> MakeMarkdown(const FormatOptions& /*options*/) {
  return MakeMarkdownTableWriter(std::cout);
}

std::unique_ptr<TableWriter> MakeCsv(const FormatOptions& /*options*/) {
  return MakeCsvTableWriter(std::cout, OutputIsTerminal() ? CsvCharacters::kVisible : CsvCharacters::kAsTheyAre);
}

constexpr std::array<ListFormat, 4> kFormats = {{
    {"text", true, MakeText},
    {"json", false, nullptr},
    {"markdown", true, MakeMarkdown},
    {"csv", false, MakeCsv},
}};

/// One list of what a dataset holds.
struct List {
  const char* example;
  std::string (*absence)(Dataset& dataset);  ///< what people read in place of an empty table; empty where it is not
  void (*writeTable)(Dataset& dataset, TableWriter& writer);
  void (*writeJson)(Dataset& dataset);
};

constexpr List kSets = {"mrset sets survey.mrset --format json", AbsenceOfSets, WriteSetsTable, WriteSetsJson};
constexpr List kVariables = {"mrset variables survey.mrset --format csv", AbsenceOfVariables, WriteVariablesTable,
                             WriteVariablesJson};

ExitStatus Write(const List& list, const ListRequest& request) {
  Dataset dataset(request.datasetPath, request.datasetOptions);
  dataset.BeginCommand(false);
  const ListFormat& format = FormatNamed(kFormats, request.format.format);
  if (format.makeWriter == nullptr) {
    list.writeJson(dataset);
  } else if (const std::string absence = list.absence(dataset); format.isForPeople && !absence.empty()) {
    std::cout << absence << '\n';
  } else {
    list.writeTable(dataset, *format.makeWriter(request.format));
  }
  return kSuccess;
}

Action DeclareList(CLI::App& app, const List& list) {
  const auto request = std::make_shared<ListRequest>();
  app.add_option("DATASET", request->datasetPath, "Dataset file")->required()->type_name("");
  AddFormatOptions(app, FormatNames(kFormats), request->format);
  AddLockTimeoutOption(app, request->datasetOptions);
  app.footer(fmt::format("Example:\n  {}\n", list.example));
  return [request, &list] { return Write(list, *request); };
}

}  // namespace

Action DeclareSets(CLI::App& app) {
  return DeclareList(app, kSets);
}

Action DeclareVariables(CLI::App& app) {
  return DeclareList(app, kVariables);
}

}  // namespace standalone
