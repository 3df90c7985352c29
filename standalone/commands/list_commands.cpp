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

#include "standalone/commands/list_tables.h"
#include "standalone/commands/set_problems.h"
#include "standalone/commands/subcommands.h"
#include "standalone/console/terminal.h"
#include "standalone/dataset/dataset.h"
#include "standalone/files/spool.h"
#include "standalone/options/dataset_options.h"
#include "standalone/options/format_option.h"
#include "standalone/output/json/sets_json.h"
#include "standalone/output/markdown/markdown_text.h"
#include "standalone/output/plain/wrap.h"
#include "standalone/output/table_writer.h"
#include "standalone/text/notice.h"
#include "standalone/text/visible.h"

namespace standalone {
namespace {

struct ListRequest {
  std::string datasetPath;
  std::string pattern;  ///< of names of variables; may be empty
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

void WriteVariablesTable(Dataset& dataset, const std::vector<int>& positions, TableWriter& writer) {
  writer.Begin(VariablesHeading());
  for (const int position : positions) {
    writer.Add(VariableRow(dataset.VariableAt(position)));
  }
  writer.End();
}

/// Written one by one: a dictionary may be large.
void WriteVariablesJson(Dataset& dataset, const std::vector<int>& positions, std::ostream& stream) {
  stream << "{\"variables\":[";
  const char* separator = "";
  for (const int position : positions) {
    stream << separator << OneLine(ToJson(dataset.VariableAt(position)));
    separator = ",";
  }
  stream << "]}\n";
}

/// One form of a list as a table; json has a form of its own for each list.
struct ListFormat {
  const char* name;
  bool isForPeople;  ///< who read a sentence in place of an empty table
  /// Below the table, or beside it; null where they stand in it.
  void (*writeNotes)(const std::vector<std::string>& notes, const FormatOptions& options);
  std::unique_ptr<TableWriter> (*makeWriter)(std::ostream& stream, const FormatOptions& options);
};

std::size_t WidthOf(const FormatOptions& options) {
  return options.width.value_or(OutputWidth());
}

void WriteTextNotes(const std::vector<std::string>& notes, const FormatOptions& options) {
  if (!notes.empty()) {
    std::cout << '\n';
  }
  for (const std::string& note : notes) {
    for (const std::string& line : WrapText(Visible(note), WidthOf(options))) {
      std::cout << line << '\n';
    }
  }
}

void WriteMarkdownNotes(const std::vector<std::string>& notes, const FormatOptions& /*options*/) {
  for (const std::string& note : notes) {
    std::cout << '\n' << MarkdownText(note) << '\n';
  }
}

void WriteNotices(const std::vector<std::string>& notes, const FormatOptions& /*options*/) {
  for (const std::string& note : notes) {
    std::cerr << NoticeLine(note);
  }
}

std::unique_ptr<TableWriter> MakeText(std::ostream& stream, const FormatOptions& options) {
  return MakeTextTableWriter(stream, WidthOf(options), ChosenColour(options, OutputIsTerminal()));
}

std::unique_ptr<TableWriter> MakeMarkdown(std::ostream& stream, const FormatOptions& /*options*/) {
  return MakeMarkdownTableWriter(stream);
}

std::unique_ptr<TableWriter> MakeCsv(std::ostream& stream, const FormatOptions& /*options*/) {
  return MakeCsvTableWriter(stream, OutputIsTerminal() ? CsvCharacters::kVisible : CsvCharacters::kAsTheyAre);
}

constexpr std::array<ListFormat, 4> kListFormats = {{
    {"text", true, WriteTextNotes, MakeText},
    {"json", false, nullptr, nullptr},
    {"markdown", true, WriteMarkdownNotes, MakeMarkdown},
    {"csv", false, WriteNotices, MakeCsv},
}};

// Both read all before they write the first byte: who reads the output may pause, and a dataset that is being read
// cannot be written by anyone.

ExitStatus WriteSets(Dataset& dataset, const ListRequest& request) {
  const FormatOptions& options = request.format;
  const std::vector<StoredSet> sets = dataset.Sets();
  const std::vector<std::vector<std::string>> problems = ProblemsOfSets(dataset, sets);
  dataset.EndTransaction();
  const ListFormat& format = FormatNamed(kListFormats, options.format);
  if (format.makeWriter == nullptr) {
    std::cout << OneLine({{"sets", SetsWithProblems(sets, problems)}}) << '\n';
  } else if (const std::string absence = AbsenceOfSets(sets); format.isForPeople && !absence.empty()) {
    std::cout << absence << '\n';
  } else {
    WriteSetsTable(sets, *format.makeWriter(std::cout, options));
    format.writeNotes(NotesOnProblems(sets, problems), options);
  }
  return kSuccess;
}

ExitStatus WriteVariables(Dataset& dataset, const ListRequest& request) {
  const std::vector<int> positions = PositionsOf(request.pattern, dataset);
  if (positions.empty() && !request.pattern.empty()) {
    std::cerr << NoticeLine(NoSuchVariable(request.pattern));
    return kErrors;
  }
  const ListFormat& format = FormatNamed(kListFormats, request.format.format);
  SpoolStream spool;
  if (format.makeWriter == nullptr) {
    WriteVariablesJson(dataset, positions, spool);
  } else {
    WriteVariablesTable(dataset, positions, *format.makeWriter(spool, request.format));
  }
  dataset.EndTransaction();
  spool.CopyTo(std::cout);
  return kSuccess;
}

/// One list of what a dataset holds.
struct List {
  const char* example;
  ExitStatus (*write)(Dataset& dataset, const ListRequest& request);  ///< a command of the dataset has begun
};

constexpr List kSets = {"mrset sets survey.mrset --format json", WriteSets};
constexpr List kVariables = {"mrset variables survey.mrset 'q1*' --format csv", WriteVariables};

ExitStatus Write(const List& list, const ListRequest& request) {
  Dataset dataset(request.datasetPath, request.datasetOptions);
  dataset.BeginTransaction(Access::kShared);
  return list.write(dataset, request);
}

Action DeclareList(CLI::App& app, const List& list) {
  const auto request = std::make_shared<ListRequest>();
  AddDatasetArgument(app, request->datasetPath);
  if (&list == &kVariables) {
    app.add_option("PATTERN", request->pattern, "Names to list, such as 'q*', or their beginning")->type_name("");
  }
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
