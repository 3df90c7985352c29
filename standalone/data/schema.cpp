#include "standalone/data/schema.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace standalone {

namespace {

constexpr std::int64_t kApplicationId = 0x6d727374;  // "mrst"
constexpr std::int64_t kFormatVersion = 1;

// The cells of a case are one JSON array in dictionary order: a number or null (missing) of a numeric variable, a
// string of a string variable. `generation` counts the transactions that wrote. The positions of sets give their order
// and may leave gaps. The keys are the upper-case forms of the names.
constexpr const char* kTables = R"(
PRAGMA application_id = 1836217204;
PRAGMA user_version = 1;
CREATE TABLE meta(
  id INTEGER PRIMARY KEY CHECK (id = 1),
  variable_count INTEGER NOT NULL CHECK (variable_count >= 0),
  case_count INTEGER NOT NULL CHECK (case_count >= 0),
  generation INTEGER NOT NULL
) STRICT;
INSERT INTO meta VALUES (1, 0, 0, 1);
CREATE TABLE variable(
  position INTEGER PRIMARY KEY CHECK (position >= 0),
  name TEXT NOT NULL,
  name_key TEXT NOT NULL UNIQUE,
  width INTEGER NOT NULL CHECK (width >= 0),
  label TEXT
) STRICT;
CREATE TABLE value_label(
  variable INTEGER NOT NULL,
  ordinal INTEGER NOT NULL,
  value TEXT NOT NULL,
  label TEXT NOT NULL,
  PRIMARY KEY (variable, ordinal)
) STRICT, WITHOUT ROWID;
CREATE TABLE mr_set(
  id INTEGER PRIMARY KEY,
  position INTEGER NOT NULL,
  name TEXT NOT NULL,
  name_key TEXT NOT NULL UNIQUE,
  type INTEGER NOT NULL CHECK (type IN (1, 2)),
  label TEXT NOT NULL,
  counted_value TEXT NOT NULL,
  label_from_variable INTEGER NOT NULL CHECK (label_from_variable IN (0, 1)),
  category_labels_from_counted_value INTEGER NOT NULL CHECK (category_labels_from_counted_value IN (0, 1))
) STRICT;
CREATE TABLE mr_set_variable(
  set_id INTEGER NOT NULL,
  ordinal INTEGER NOT NULL,
  name TEXT NOT NULL,
  PRIMARY KEY (set_id, ordinal)
) STRICT, WITHOUT ROWID;
CREATE TABLE cases(
  position INTEGER PRIMARY KEY,
  cells TEXT NOT NULL
) STRICT;
)";

static_assert(kApplicationId == 1836217204 && kFormatVersion == 1, "the pragmas of the tables are written out");

// SQLite's own words for what cannot be opened do not tell these cases apart.
void CheckReadableFile(const std::string& path) {
  struct stat status = {};
  if (stat(path.c_str(), &status) != 0) {
    throw DatasetError(errno == ENOENT ? path + " does not exist."
                                       : path + " cannot be read: " + std::strerror(errno) + ".");
  }
  if (S_ISDIR(status.st_mode)) {
    throw DatasetError(path + " is a directory.");
  }
  if (!S_ISREG(status.st_mode)) {
    throw DatasetError(path + " is not a dataset.");
  }
  if (eaccess(path.c_str(), R_OK) != 0) {
    throw DatasetError(path + " cannot be read: " + std::strerror(errno) + ".");
  }
}

std::int64_t IntegerOf(Database& database, std::string_view sql) {
  Query query(database, sql);
  query.Step();
  return query.Integer(0);
}

void CheckFormat(Database& database, const std::string& path) {
  if (IntegerOf(database, "PRAGMA application_id") != kApplicationId) {
    throw DatasetError(path + " is not a dataset.");
  }
  const std::int64_t version = IntegerOf(database, "PRAGMA user_version");
  if (version > kFormatVersion) {
    throw DatasetError(path + " was made by a newer version of the program.");
  }
  if (version < kFormatVersion) {
    database.FailAsDamaged();
  }
}

}  // namespace

void CreateSchema(Database& database) {
  database.Execute(kTables);
}

std::unique_ptr<Database> OpenDataset(const std::string& path) {
  CheckReadableFile(path);
  auto database = std::make_unique<Database>(path, path);
  CheckFormat(*database, path);
  // Beyond FULL, EXTRA syncs the folder once the journal is deleted: without that a power loss just after a commit can
  // bring the journal back, which undoes the commit.
  database->Execute("PRAGMA synchronous = EXTRA");
  return database;
}

}  // namespace standalone
