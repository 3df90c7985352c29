#include <fmt/format.h>

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <array>
#include <cstddef>
#include <iostream>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "standalone/data/dataset.h"
#include "standalone/files/spool.h"
#include "standalone/output/markdown_text.h"
#include "standalone/output/sets_json.h"
#include "standalone/output/table_writer.h"
#include "standalone/output/wrap.h"
#include "standalone/program/dataset_options.h"
#include "standalone/program/format_option.h"
#include "standalone/program/list_tables.h"
#include "standalone/program/set_problems.h"
#include "standalone/program/subcommands.h"
#include "standalone/program/terminal.h"
#include "standalone/text/visible.h"

namespace standalone {
namespace {

struct ListRequest {
  std::string datasetPath;
  FormatOptions format;
  DatasetOptions datasetOptions;
};

/// Only a set with problems has a member for them.
Json SetsWithProblems(const std::vector<StoredSet>& sets, const std::vector<std::vector<std::string>>& problems) {
  Json array = ToJson(sets);
  for (std::size_t index = 0; index < sets.size(); ++index) {
    if (!problems[index].empty()) {
      array[index]["problems"] = problems[index];
    }
  }
  return array;
}

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
  void (*writeNotes)(const std::vector<std::string>& notes);  ///< below a table for people; else null
  std::unique_ptr<TableWriter> (*makeWriter)(std::ostream& stream, const FormatOptions& options);
};

void WriteTextNotes(const std::vector<std::string>& notes) {
  if (!notes.empty()) {
    std::cout << '\n';
  }
  for (const std::string& note : notes) {
    for (const std::string& line : WrapText(Visible(note), OutputWidth())) {
      std::cout << line << '\n';
    }
  }
}

void WriteMarkdownNotes(const std::vector<std::string>& notes) {
  for (const std::string& note : notes) {
    std::cout << '\n' << MarkdownText(note) << '\n';
  }
}

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
    {"text", WriteTextNotes, MakeText},
    {"json", nullptr, nullptr},
    {"markdown", WriteMarkdownNotes, MakeMarkdown},
    {"csv", nullptr, MakeCsv},
}};

// Both read all before they write the first byte: who reads the output may pause, and a dataset that is being read
// cannot be written by anyone.

void WriteSets(Dataset& dataset, const FormatOptions& options) {
  const std::vector<StoredSet> sets = dataset.Sets();
  const std::vector<std::vector<std::string>> problems = ProblemsOfSets(dataset, sets);
  dataset.EndCommand();
  const ListFormat& format = FormatNamed(kListFormats, options.format);
  if (format.makeWriter == nullptr) {
    std::cout << OneLine({{"sets", SetsWithProblems(sets, problems)}}) << '\n';
  } else if (const std::string absence = AbsenceOfSets(sets); format.writeNotes != nullptr && !absence.empty()) {
    std::cout << absence << '\n';
  } else {
    WriteSetsTable(sets, *format.makeWriter(std::cout, options));
    if (format.writeNotes != nullptr) {
      format.writeNotes(NotesOnProblems(sets, problems));
    }
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
