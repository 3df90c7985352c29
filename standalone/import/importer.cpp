#include "standalone/import/importer.h"

#include <fmt/format.h>
#include <unistd.h>

#include <algorithm>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

#include "standalone/dataset/dataset_writer.h"
#include "standalone/files/input_file.h"
#include "standalone/files/io.h"
#include "standalone/import/codebook.h"
#include "standalone/import/columns.h"
#include "standalone/import/csv.h"
#include "standalone/text/error.h"

namespace standalone {

namespace {

bool AreSettled(const std::vector<Column>& columns) {
  return std::all_of(columns.begin(), columns.end(), [](const Column& column) { return column.IsSettled(); });
}

using Advance = std::function<void()>;

/// What tells the request how far the file was read.
Advance AdvanceOf(const ImportRequest& request, const InputFile& file, bool isForTypes) {
  if (!request.progress) {
    return [] {};
  }
  return [&request, &file, isForTypes] { request.progress({isForTypes, file.BytesRead(), file.Size()}); };
}

void SettleTypes(CsvReader& reader, std::vector<Column>& columns, const Advance& advance) {
  while (!AreSettled(columns) && reader.NextRow()) {
    advance();
    for (std::size_t index = 0; index < columns.size(); ++index) {
      columns[index].Learn(reader.Cells()[index]);
    }
  }
  for (Column& column : columns) {
    column.Settle();
  }
}

void WriteVariables(const std::vector<Column>& columns, DatasetWriter& writer) {
  std::vector<Variable> variables;
  variables.reserve(columns.size());
  for (const Column& column : columns) {
    variables.push_back(column.ToVariable());
  }
  writer.SetVariables(variables);
}

std::size_t WriteCases(CsvReader& reader, std::vector<Column>& columns, const std::string& path, DatasetWriter& writer,
                       const Advance& advance) {
  std::size_t count = 0;
  std::vector<std::string_view> cells;
  while (reader.NextRow()) {
    advance();
    cells = reader.Cells();
    for (std::size_t index = 0; index < cells.size(); ++index) {
      if (const auto wrong = columns[index].Convert(cells[index], reader.Line())) {
        throw Error(fmt::format("{}, line {}, column {}: {}.", path, reader.Line(), reader.Header()[index], *wrong));
      }
    }
    writer.AddCase(cells);
    ++count;
  }
  return count;
}

std::unique_ptr<InputFile> OpenSurvey(const std::string& path) {
  return path == "-" ? std::make_unique<InputFile>(SurveyName(path), Duplicate(STDIN_FILENO))
                     : std::make_unique<InputFile>(path);
}

std::unique_ptr<CsvReader> ReadAgain(InputFile& file, const std::vector<std::string>& header) {
  file.Rewind();
  auto reader = std::make_unique<CsvReader>(file);
  if (reader->Header() != header) {
    throw Error(file.Path() + " changed while it was read.");
  }
  return reader;
}

std::vector<NearlyNumericColumn> StringsForFewCells(const std::vector<std::string>& header,
                                                    const std::vector<Column>& columns) {
  std::vector<NearlyNumericColumn> found;
  for (std::size_t index = 0; index < columns.size(); ++index) {
    if (columns[index].IsStringForFewCells()) {
      found.push_back({header[index], columns[index].Odd()});
    }
  }
  return found;
}

/// The import as the log tells it.
std::string CommandOf(const ImportRequest& request) {
  return fmt::format("import{}{} {}", request.replace ? " --replace" : "",
                     request.codebookPath ? " --schema " + *request.codebookPath : "", request.dataPath);
}

}  // namespace

std::string SurveyName(const std::string& path) {
  return path == "-" ? "standard input" : path;
}

// The data are read a second time only where a type comes from them.
ImportSummary ImportSurvey(const ImportRequest& request) {
  const std::unique_ptr<InputFile> survey = OpenSurvey(request.dataPath);
  InputFile& file = *survey;
  const std::string codebookPath = request.codebookPath.value_or("");
  std::vector<CodebookField> fields;
  if (request.codebookPath) {
    fields = ReadCodebook(codebookPath);
  }
  DatasetWriter writer(request.datasetPath, request.replace, request.datasetOptions);
  file.AllowRewind(request.datasetPath);
  auto reader = std::make_unique<CsvReader>(file);
  std::vector<Column> columns = MakeColumns(reader->Header(), file.Path(), std::move(fields), codebookPath);
  if (!AreSettled(columns)) {
    SettleTypes(*reader, columns, AdvanceOf(request, file, true));
    reader = ReadAgain(file, reader->Header());
  }
  file.ForbidRewind();
  WriteVariables(columns, writer);
  const std::size_t cases = WriteCases(*reader, columns, file.Path(), writer, AdvanceOf(request, file, false));
  writer.SetCommand(CommandOf(request));
  if (request.beforeWriting) {
    request.beforeWriting();
  }
  writer.Commit();
  return {columns.size(), cases, StringsForFewCells(reader->Header(), columns)};
}

}  // namespace standalone
