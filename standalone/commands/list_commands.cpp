#include <fmt/format.h>

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <cstddef>
#include <iostream>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "standalone/commands/list_tables.h"
#include "standalone/commands/set_problems.h"
#include "standalone/commands/subcommands.h"
#include "standalone/dataset/dataset.h"
#include "standalone/files/spool.h"
#include "standalone/options/dataset_options.h"
#include "standalone/options/format_option.h"
#include "standalone/output/formats.h"
#include "standalone/output/json/sets_json.h"
#include "standalone/text/notice.h"

namespace standalone {
namespace {

struct ListRequest {
  std::string datasetPath;
  std::string pattern;  ///< of names of variables; may be empty
  bool withValues = false;
  FormatOptions format;
  DatasetOptions datasetOptions;
};

/// Only a set with problems has a member for them.
void WriteSetsJson(const std::vector<StoredSet>& sets, const std::vector<std::vector<std::string>>& problems) {
  JsonWriter json(std::cout);
  auto problemsOfSet = problems.begin();
  json.Object([&] {
    json.Array("sets", sets, [&](const StoredSet& set) {
      json.Object([&] {
        WriteMembers(json, set);
        if (!problemsOfSet->empty()) {
          json.Array("problems", *problemsOfSet);
        }
        ++problemsOfSet;
      });
    });
  });
  std::cout << '\n';
}

void WriteVariablesTable(Dataset& dataset, const std::vector<int>& positions, bool withValues, TableWriter& writer) {
  writer.Begin(withValues ? VariablesHeadingWithValues() : VariablesHeading());
  for (const int position : positions) {
    const Variable& variable = dataset.VariableAt(position);
    writer.Add(withValues ? VariableRow(variable, ValueCounts(dataset, position, kMaxShownValues))
                          : VariableRow(variable));
  }
  writer.End();
}

void WriteValues(JsonWriter& json, const Variable& variable, const ValueCounts& counts) {
  json.Array("values", ValueRows(variable, counts), [&](const ValueRow& one) {
    json.Object([&] {
      json.Member("value", one.value);
      if (one.label) {
        json.Member("label", *one.label);
      }
      json.Member("count", one.cases);
    });
  });
  if (counts.Others() > 0) {
    json.Member("otherValues", counts.Others());
  }
  json.Member("missing", counts.Missing());
}

void WriteVariablesJson(Dataset& dataset, const std::vector<int>& positions, bool withValues, std::ostream& stream) {
  JsonWriter json(stream);
  json.Object([&] {
    json.Array("variables", positions, [&](int position) {
      const Variable& variable = dataset.VariableAt(position);
      json.Object([&] {
        WriteMembers(json, variable);
        if (withValues) {
          WriteValues(json, variable, ValueCounts(dataset, position, kMaxShownValues));
        }
      });
    });
  });
  stream << '\n';
}

// Both read all before they write the first byte: who reads the output may pause, and a dataset that is being read
// cannot be written by anyone.

ExitStatus WriteSets(Dataset& dataset, const ListRequest& request) {
  const std::vector<StoredSet> sets = dataset.Sets();
  const std::vector<std::vector<std::string>> problems = ProblemsOfSets(dataset, sets);
  dataset.EndTransaction();
  const OutputFormat& format = FormatNamed(request.format.format);
  if (request.format.format == kJsonFormat) {
    WriteSetsJson(sets, problems);
  } else if (sets.empty() && !format.isTablesAlone) {
    std::cout << kAbsenceOfSets;
  } else {
    const std::unique_ptr<TableWriter> writer = format.makeTableWriter(std::cout, LookOfOutput(request.format));
    writer->Write(SetsTable(sets));
    writer->WriteNotes(NotesOnProblems(sets, problems));
  }
  return kSuccess;
}

ExitStatus WriteVariables(Dataset& dataset, const ListRequest& request) {
  const std::vector<int> positions = PositionsOf(request.pattern, dataset);
  if (positions.empty() && !request.pattern.empty()) {
    std::cerr << NoticeLine(NoSuchVariable(request.pattern));
    return kErrors;
  }
  const OutputFormat& format = FormatNamed(request.format.format);
  SpoolStream spool;
  if (request.format.format == kJsonFormat) {
    WriteVariablesJson(dataset, positions, request.withValues, spool);
  } else {
    WriteVariablesTable(dataset, positions, request.withValues,
                        *format.makeTableWriter(spool, LookOfOutput(request.format)));
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
    app.add_flag("--values", request->withValues, "Show the values that occur, with counts");
  }
  AddFormatOptions(app, ListFormatNames(), request->format);
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
