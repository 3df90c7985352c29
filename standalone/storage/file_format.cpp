#include "standalone/storage/file_format.h"

#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <cstring>
#include <fstream>
#include <numeric>
#include <set>
#include <string>
#include <string_view>

#include "standalone/text/error.h"

namespace standalone {

namespace {

constexpr std::int64_t kApplicationId = 0x6d727374;  // "mrst"
constexpr std::size_t kApplicationIdOffset = 68;     // in SQLite's header, big-endian

// A row of `block` is the cells of one variable in consecutive cases, as cases/block_codec.h has them; its id is the
// number of the block, from 0, times 2^32, plus the variable's position. All variables have the same blocks, so an
// import appends. `generation` counts the transactions that wrote. The positions of sets give their order and may leave
// gaps. The keys are the upper-case forms of the names.
//
// A row of `history` is a change of the sets. Its rows of `history_set` tell how each set that it touched was before:
// of one that was defined nothing but its name, of one that was only moved its position. `kind` is a ChangeKind;
// `variables` is a JSON array. A row of `imported` is an import, and the number of the last change before it.

constexpr const char* kMeta = R"(CREATE TABLE meta(
  id INTEGER PRIMARY KEY CHECK (id = 1),
  variable_count INTEGER NOT NULL CHECK (variable_count >= 0),
  case_count INTEGER NOT NULL CHECK (case_count >= 0),
  generation INTEGER NOT NULL
) STRICT)";

constexpr const char* kVariable = R"(CREATE TABLE variable(
  position INTEGER PRIMARY KEY CHECK (position >= 0),
  name TEXT NOT NULL,
  name_key TEXT NOT NULL UNIQUE,
  width INTEGER NOT NULL CHECK (width >= 0),
  label TEXT
) STRICT)";

constexpr const char* kValueLabel = R"(CREATE TABLE value_label(
  variable INTEGER NOT NULL,
  ordinal INTEGER NOT NULL,
  value TEXT NOT NULL,
  label TEXT NOT NULL,
  PRIMARY KEY (variable, ordinal)
) STRICT, WITHOUT ROWID)";

constexpr const char* kSet = R"(CREATE TABLE mr_set(
  id INTEGER PRIMARY KEY,
  position INTEGER NOT NULL,
  name TEXT NOT NULL,
  name_key TEXT NOT NULL UNIQUE,
  type INTEGER NOT NULL CHECK (type IN (1, 2)),
  label TEXT NOT NULL,
  counted_value TEXT NOT NULL,
  label_from_variable INTEGER NOT NULL CHECK (label_from_variable IN (0, 1)),
  category_labels_from_counted_value INTEGER NOT NULL CHECK (category_labels_from_counted_value IN (0, 1))
) STRICT)";

constexpr const char* kSetVariable = R"(CREATE TABLE mr_set_variable(
  set_id INTEGER NOT NULL,
  ordinal INTEGER NOT NULL,
  name TEXT NOT NULL,
  PRIMARY KEY (set_id, ordinal)
) STRICT, WITHOUT ROWID)";

constexpr const char* kBlock = R"(CREATE TABLE block(
  id INTEGER PRIMARY KEY CHECK (id >= 0),
  head BLOB NOT NULL,
  cells BLOB NOT NULL
) STRICT)";

constexpr const char* kHistory = R"(CREATE TABLE history(
  number INTEGER PRIMARY KEY CHECK (number >= 1),
  time TEXT NOT NULL,
  command TEXT NOT NULL,
  reordered INTEGER NOT NULL CHECK (reordered IN (0, 1))
) STRICT)";

constexpr const char* kHistorySet = R"(CREATE TABLE history_set(
  history INTEGER NOT NULL,
  set_id INTEGER NOT NULL,
  kind INTEGER NOT NULL CHECK (kind IN (1, 2, 3, 4)),
  name TEXT,
  position INTEGER,
  type INTEGER,
  label TEXT,
  counted_value TEXT,
  label_from_variable INTEGER,
  category_labels_from_counted_value INTEGER,
  variables TEXT,
  PRIMARY KEY (history, set_id)
) STRICT, WITHOUT ROWID)";

constexpr const char* kImported = R"(CREATE TABLE imported(
  id INTEGER PRIMARY KEY,
  after_change INTEGER NOT NULL CHECK (after_change >= 0),
  time TEXT NOT NULL,
  command TEXT NOT NULL,
  variable_count INTEGER NOT NULL CHECK (variable_count >= 0),
  case_count INTEGER NOT NULL CHECK (case_count >= 0)
) STRICT)";

// SQLite's own words for what cannot be opened do not tell these cases apart.
void CheckReadableFile(const std::string& path) {
  FailIfNameless(path);
  struct stat status = {};
  if (stat(path.c_str(), &status) != 0) {
    const int number = errno;
    if (number == ENOENT) {
      throw Error(ErrorKind::kMissingFile, path + " does not exist.", path);
    }
    throw Error(path + " cannot be read: " + std::strerror(number) + ".");
  }
  if (S_ISDIR(status.st_mode)) {
    throw Error(path + " is a directory.");
  }
  if (!S_ISREG(status.st_mode)) {
    throw Error(path + " is not a dataset.");
  }
  if (eaccess(path.c_str(), R_OK) != 0) {
    throw Error(path + " cannot be read: " + std::strerror(errno) + ".");
  }
}

std::int64_t IntegerOf(Database& database, std::string_view sql) {
  Query query(database, sql);
  query.Step();
  return query.Integer(0);
}

// Made by SQLite itself for UNIQUE, and so without SQL.
bool IsIndexOfTable(const std::string& type, const std::string& name) {
  return type == "index" && (name == "sqlite_autoindex_variable_1" || name == "sqlite_autoindex_mr_set_1");
}

[[noreturn]] void FailAsForeign(const std::string& path, const std::string& type, const std::string& name) {
  throw Error(ErrorKind::kDamaged,
              fmt::format("{} is damaged: the {} {} does not belong to a dataset.", path, type, name));
}

const TableDefinition* FindTable(const std::string& name) {
  const auto found =
      std::find_if(Tables().begin(), Tables().end(), [&](const TableDefinition& table) { return table.name == name; });
  return found == Tables().end() ? nullptr : &*found;
}

void CheckSchemaRow(Query& row, const std::string& path) {
  const std::string type = row.Text(0);
  const std::string name = row.Text(1);
  if (IsIndexOfTable(type, name) && row.IsNull(2)) {
    return;
  }
  const TableDefinition* table = type == "table" ? FindTable(name) : nullptr;
  if (table == nullptr) {
    FailAsForeign(path, type, name);
  }
  if (row.IsNull(2) || row.Text(2) != table->sql) {
    throw Error(ErrorKind::kDamaged,
                fmt::format("{} is damaged: the table {} is not defined as it should be.", path, name));
  }
}

// Word for word: a CHECK or a generated column of a stranger computes what it likes, for as long as it likes.
void CheckSchema(Database& database, const std::string& path) {
  database.LimitWork(true);
  database.Execute("BEGIN");
  std::set<std::string> missing;
  for (const TableDefinition& table : Tables()) {
    missing.insert(table.name);
  }
  {
    Query rows(database, "SELECT type, name, sql FROM sqlite_schema");
    while (rows.Step()) {
      CheckSchemaRow(rows, path);
      missing.erase(rows.Text(1));
    }
  }
  if (!missing.empty()) {
    throw Error(ErrorKind::kDamaged, fmt::format("{} is damaged: the table {} is missing.", path, *missing.begin()));
  }
  database.Rollback();
  database.LimitWork(false);
}

// Another one could not be read together with a file of this program's.
void CheckEncoding(Database& database) {
  Query query(database, "PRAGMA encoding");
  if (!query.Step() || query.Text(0) != "UTF-8") {
    database.FailAsDamaged();
  }
}

// Once there is a version after this one, here is where files of this one are let in, to be read as they are. The
// transactions that write, those of Dataset::WriteLocked() and of DatasetWriter, would bring them to the new one.
void CheckVersion(Database& database, const std::string& path) {
  const std::int64_t version = IntegerOf(database, "PRAGMA user_version");
  if (version > kFormatVersion) {
    throw Error(path + " was made by a newer version of the program.");
  }
  if (version < 1) {
    database.FailAsDamaged();
  }
  if (version < kFormatVersion) {
    throw Error(
        fmt::format("{} is of format {}, which this program no longer reads; import the survey again, and carry"
                    " its sets over with `mrset script` of the build that made the file.",
                    path, version));
  }
}

void CheckFormat(Database& database, const std::string& path) {
  if (IntegerOf(database, "PRAGMA application_id") != kApplicationId) {
    throw Error(ErrorKind::kNotADataset, path + " is not a dataset.", path);
  }
  CheckVersion(database, path);
  CheckSchema(database, path);
  CheckEncoding(database);
  if (database.ForbidsWriting()) {
    database.FailAsDamaged();  // this program makes no such header
  }
}

}  // namespace

void FailIfNameless(const std::string& path) {
  if (path.empty()) {
    throw Error("The name of the dataset is empty.");
  }
}

bool IsDatasetFile(const std::string& path) {
  constexpr std::string_view kMagic = "SQLite format 3";
  struct stat status = {};
  if (stat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) {
    return false;  // to open anything else might wait for somebody
  }
  std::array<char, kApplicationIdOffset + sizeof(std::uint32_t)> begin{};
  std::ifstream(path, std::ios::binary).read(begin.data(), begin.size());
  const std::string_view header(begin.data(), begin.size());
  const std::string_view id = header.substr(kApplicationIdOffset);
  const auto append = [](std::uint32_t number, char byte) { return number << 8 | static_cast<unsigned char>(byte); };
  return header.substr(0, kMagic.size()) == kMagic &&
         std::accumulate(id.begin(), id.end(), std::uint32_t{0}, append) == kApplicationId;
}

const std::vector<TableDefinition>& Tables() {
  static const std::vector<TableDefinition> tables = {
      {"meta", kMeta},       {"variable", kVariable},           {"value_label", kValueLabel},
      {"mr_set", kSet},      {"mr_set_variable", kSetVariable}, {"block", kBlock},
      {"history", kHistory}, {"history_set", kHistorySet},      {"imported", kImported}};
  return tables;
}

void CreateSchema(Database& database) {
  static_assert(kApplicationId == 1836217204 && kFormatVersion == 3, "the pragmas are written out");
  database.Execute("PRAGMA application_id = 1836217204; PRAGMA user_version = 3");
  for (const TableDefinition& table : Tables()) {
    database.Execute(table.sql);
  }
  database.Execute("INSERT INTO meta VALUES (1, 0, 0, 1)");
}

std::unique_ptr<Database> OpenDataset(const std::string& path, const DatasetOptions& options) {
  CheckReadableFile(path);
  auto database = std::make_unique<Database>(path, path);
  database->SetLockTimeout(options.lockTimeout, options.notify);
  CheckFormat(*database, path);
  // Beyond FULL, EXTRA syncs the folder once the journal is deleted: without that a power loss just after a commit can
  // bring the journal back, which undoes the commit.
  database->Execute(options.relaxed ? "PRAGMA synchronous = OFF" : "PRAGMA synchronous = EXTRA");
  return database;
}

}  // namespace standalone
