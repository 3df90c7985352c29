#include "standalone/dataset/dataset_writer.h"

#include <fmt/format.h>
#include <unistd.h>

#include <algorithm>
#include <numeric>
#include <optional>
#include <string_view>
#include <utility>

#include "standalone/dataset/case_blocks.h"
#include "standalone/dataset/counters.h"
#include "standalone/dataset/dataset.h"
#include "standalone/dataset/import_log.h"
#include "standalone/dataset/variable.h"
#include "standalone/files/folder.h"
#include "standalone/files/temporary_file.h"
#include "standalone/storage/commit.h"
#include "standalone/storage/companions.h"
#include "standalone/storage/database.h"
#include "standalone/storage/file_format.h"
#include "standalone/text/error.h"
#include "standalone/text/unicode.h"

namespace standalone {

namespace {

/// A dataset needs names for its companions, too.
void CheckNameFits(const std::string& path) {
  constexpr std::size_t kLongestCompanionEnding = std::string_view("-journal").size();
  const long longest = pathconf(FolderOf(path).c_str(), _PC_NAME_MAX);
  const std::size_t slash = path.rfind('/');
  const std::size_t size = slash == std::string::npos ? path.size() : path.size() - slash - 1;
  if (longest > 0 && size + kLongestCompanionEnding > static_cast<std::size_t>(longest)) {
    throw Error(fmt::format("{} cannot be the name of a dataset: it has {} bytes, and {} are the most here.", path,
                            size, static_cast<std::size_t>(longest) - kLongestCompanionEnding));
  }
}

/// SQLite would take what another dataset left under the name for a part of the new one.
void CheckIsAlone(const std::string& path) {
  if (const std::optional<std::string> companion = FindCompanion(path)) {
    throw Error(
        fmt::format("{} cannot be made: {} was left of another dataset of that name; move it away or delete it.", path,
                    *companion));
  }
}

void CheckReplaced(const std::string& path, bool replace, const DatasetOptions& options) {
  if (!replace) {
    throw Error(path + (IsDatasetFile(path)
                            ? " already exists; --replace replaces its variables and cases and keeps its sets."
                            : " already exists and is not a readable dataset; give another name."));
  }
  if (OpenDataset(path, options)->IsReadOnly()) {
    throw Error(NoPermissionSentence(path));
  }
}

/// The path itself, to which a dataset can be written.
const std::string& CheckedDestination(const std::string& path, bool replace, const DatasetOptions& options) {
  FailIfNameless(path);
  if (const std::optional<std::string> complaint = ComplaintOnReservedName(path)) {
    throw Error(*complaint);
  }
  if (IsThere(path)) {
    CheckReplaced(path, replace, options);
  } else {
    CheckNameFits(path);
    CheckIsAlone(path);
  }
  return path;
}

void WriteVariable(Database& database, std::int64_t position, const Variable& variable) {
  const std::string key = ToUpper(variable.name);
  Query row(database, "INSERT INTO variable VALUES (?, ?, ?, ?, ?)");
  row.Bind(position).Bind(variable.name).Bind(key).Bind(std::max(variable.width, 0));
  (variable.label ? row.Bind(*variable.label) : row.BindNull()).Run();
  Query label(database, "INSERT INTO value_label VALUES (?, ?, ?, ?)");
  std::int64_t ordinal = 0;
  for (const ValueLabel& valueLabel : variable.valueLabels) {
    label.Bind(position).Bind(ordinal++).Bind(valueLabel.value).Bind(valueLabel.label).Run();
  }
}

// In one transaction of the dataset itself: a command that runs meanwhile sees the old or the new and loses no set.
void ReplaceContents(const std::string& path, const std::string& newContents, const DatasetOptions& options) {
  const std::unique_ptr<Database> database = OpenDataset(path, options);
  database->Execute("BEGIN IMMEDIATE");
  const std::int64_t generation = GenerationOf(*database) + 1;
  FailIfWritesAreUsedUp(*database, path);
  // After the beginning: else the transaction would write to both files, which needs a third one to commit, and a kill
  // could leave that behind.
  database->Attach(newContents, "new");
  database->Execute(
      "DELETE FROM main.value_label;"
      "DELETE FROM main.variable;"
      "DELETE FROM main.block;"
      "INSERT INTO main.variable SELECT * FROM new.variable;"
      "INSERT INTO main.value_label SELECT * FROM new.value_label;"
      "INSERT INTO main.block SELECT * FROM new.block;"
      "UPDATE main.meta SET generation = generation + 1, (variable_count, case_count) ="
      " (SELECT variable_count, case_count FROM new.meta) WHERE id = 1");
  AddReplacingImport(*database);
  options.Notify(CommitGeneration(*database, generation));
}

}  // namespace

DatasetWriter::DatasetWriter(const std::string& path, bool replace, const DatasetOptions& options)
    : fPath(CheckedDestination(path, replace, options)),
      fReplace(replace),
      fOptions(options),
      fFile(path),
      fDatabase(std::make_unique<Database>(fFile.Path(), path)) {
  // Nobody else knows the file, and one that was not finished is thrown away: it needs neither journal nor syncs until
  // it is put in place.
  fDatabase->Execute(
      "PRAGMA journal_mode = MEMORY; PRAGMA synchronous = OFF; PRAGMA locking_mode = EXCLUSIVE;"
      "PRAGMA cache_size = -16000");
  CreateSchema(*fDatabase);
  fDatabase->Execute("BEGIN");
}

void DatasetWriter::SetVariables(const std::vector<Variable>& variables) {
  fColumns.reserve(variables.size());
  for (const Variable& variable : variables) {
    WriteVariable(*fDatabase, static_cast<std::int64_t>(fColumns.size()), variable);
    fColumns.push_back({BlockBuilder(variable.width == 0), variable.width == kWidthOfLongestValue, 1});
  }
}

void DatasetWriter::AddCase(const std::vector<std::string_view>& cells) {
  std::size_t bytes = 0;
  for (std::size_t index = 0; index < fColumns.size(); ++index) {
    Column& column = fColumns[index];
    column.longest = std::max(column.longest, cells[index].size());
    column.cells.Add(cells[index]);
    bytes += cells[index].size();
  }
  ++fCaseCount;
  ++fCasesOfBlock;
  fBytesToLook += bytes + fColumns.size();
  if (fCasesOfBlock == kMaxCasesOfBlock || IsOutOfMemory()) {
    WriteBlock();
  }
}

// The memory of all columns is added up only now and then.
bool DatasetWriter::IsOutOfMemory() {
  constexpr std::size_t kBudget = std::size_t{32} << 20;
  constexpr std::size_t kBetweenLooks = kBudget / 16;
  constexpr std::size_t kLeastOfColumn = 2048;  // or else a block of very many columns would have hardly any cases
  if (fBytesToLook < kBetweenLooks) {
    return false;
  }
  fBytesToLook = 0;
  const std::size_t memory =
      std::accumulate(fColumns.begin(), fColumns.end(), std::size_t{0},
                      [](std::size_t sum, const Column& column) { return sum + column.cells.Memory(); });
  return memory >= std::max(kBudget, kLeastOfColumn * fColumns.size());
}

void DatasetWriter::WriteBlock() {
  Query insert(*fDatabase, "INSERT INTO block VALUES (?, ?, ?)");
  int variable = 0;
  for (Column& column : fColumns) {
    const EncodedBlock block = column.cells.Finish();
    insert.Bind(IdOfBlock(variable++, fBlockCount)).BindBlob(block.head).BindBlob(block.cells).Run();
  }
  ++fBlockCount;
  fCasesOfBlock = 0;
  fBytesToLook = 0;
}

void DatasetWriter::WriteWidths() {
  Query update(*fDatabase, "UPDATE variable SET width = ? WHERE position = ?");
  for (std::size_t index = 0; index < fColumns.size(); ++index) {
    const Column& column = fColumns[index];
    if (column.hasWidthOfLongest) {
      update.Bind(static_cast<std::int64_t>(column.longest)).Bind(static_cast<std::int64_t>(index)).Run();
    }
  }
}

void DatasetWriter::FinishFile() {
  if (fCasesOfBlock > 0) {
    WriteBlock();
  }
  WriteWidths();
  Query(*fDatabase, "UPDATE meta SET variable_count = ?, case_count = ?")
      .Bind(static_cast<std::int64_t>(fColumns.size()))
      .Bind(fCaseCount)
      .Run();
  if (!fCommand.empty()) {
    AddFirstImport(*fDatabase, fCommand, static_cast<std::int64_t>(fColumns.size()), fCaseCount);
  }
  fDatabase->Execute("COMMIT");
  fDatabase.reset();
}

void DatasetWriter::Commit() {
  FinishFile();
  if (fReplace && IsThere(fPath)) {
    ReplaceContents(fPath, fFile.Path(), fOptions);
  } else {
    CheckIsAlone(fPath);
    fOptions.Notify(fFile.PutInPlace());
  }
}

}  // namespace standalone
