#include <fmt/format.h>

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <array>
#include <iostream>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "standalone/data/dataset.h"
#include "standalone/output/sets_json.h"
#include "standalone/output/spool.h"
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

void WriteSetsTable(const std::vector<StoredSet>& sets, TableWriter& writer) {
  writer.Begin(SetsHeading());
  for (const StoredSet& set : sets) {
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

/// Written one by one: a dictionary may be large.
void WriteVariablesJson(Dataset& dataset, std::ostream& stream) {
  stream << "{\"variables\":[";
  for (int position = 0; position < dataset.VariableCount(); ++position) {
    stream << (position == 0 ? "" : ",") << OneLine(ToJson(dataset.VariableAt(position)));
  }
  stream << "]}\n";
}

/// One form of a list as a table; json has a form of its own for each list.
struct ListFormat {
  const char* name;
  bool isForPeople;
  std::unique_ptr<TableWriter> (*makeWriter)(std::ostream& stream, const FormatOptions& options);
};

std::unique_ptr<TableWriter> MakeText(std::ostream& stream, const FormatOptions& options) {
  return MakeTextTableWriter(stream, OutputWidth(), ChosenColour(options, OutputIsTerminal()));
}

std::unique_ptr<TableWriter> MakeMarkdown(std::ostream& stream, const FormatOptions& /*options*/) {
  return MakeMarkdownTableWriter(stream);
}

std::unique_ptr<TableWriter> MakeCsv(std::ostream& stream, const FormatOptions& /*options*/) {
  return MakeCsvTableWriter(stream, OutputIsTerminal() ? CsvCharacters::kVisible : CsvCharacters::kAsTheyAre);
}

constexpr std::array<ListFormat, 4> kListFormats = {{
    {"text", true, MakeText},
    {"json", false, nullptr},
    {"markdown", true, MakeMarkdown},
    {"csv", false, MakeCsv},
}};

// Both read all before they write the first byte: who reads the output may pause, and a dataset that is being read
// cannot be written by anyone.

void WriteSets(Dataset& dataset, const FormatOptions& options) {
  const std::vector<StoredSet> sets = dataset.Sets();
  dataset.EndCommand();
  const ListFormat& format = FormatNamed(kListFormats, options.format);
  if (format.makeWriter == nullptr) {
    std::cout << OneLine({{"sets", ToJson(sets)}}) << '\n';
  } else if (const std::string absence = AbsenceOfSets(sets); format.isForPeople && !absence.empty()) {
    std::cout << absence << '\n';
  } else {
    WriteSetsTable(sets, *format.makeWriter(std::cout, options));
  }
}

void WriteVariables(Dataset& dataset, const FormatOptions& options) {
  const ListFormat& format = FormatNamed(kListFormats, options.format);
  SpoolStream spool;
  if (format.makeWriter == nullptr) {
    WriteVariablesJson(dataset, spool);
  } else {
    WriteVariablesTable(dataset, *format.makeWriter(spool, options));
  }
  dataset.EndCommand();
  spool.CopyTo(std::cout);
}

/// One list of what a dataset holds.
struct List {
  const char* example;
  void (*write)(Dataset& dataset, const FormatOptions& options);  ///< a command of the dataset has begun
};

constexpr List kSets = {"mrset sets survey.mrset --format json", WriteSets};
constexpr List kVariables = {"mrset variables survey.mrset --format csv", WriteVariables};

ExitStatus Write(const List& list, const ListRequest& request) {
  Dataset dataset(request.datasetPath, request.datasetOptions);
  dataset.BeginCommand(false);
  list.write(dataset, request.format);
  return kSuccess;
}

Action DeclareList(CLI::App& app, const List& list) {
  const auto request = std::make_shared<ListRequest>();
  AddDatasetArgument(app, request->datasetPath);
  AddFormatOptions(app, FormatNames(kListFormats), request->format);
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
