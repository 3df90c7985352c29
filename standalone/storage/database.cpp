#include "standalone/storage/database.h"

#include <fmt/format.h>
#include <sqlite3.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <thread>
#include <unordered_map>
#include <utility>

#include "standalone/files/folder.h"
#include "standalone/storage/database_files.h"
#include "standalone/storage/interrupt.h"
#include "standalone/text/error.h"
#include "standalone/text/unicode.h"

namespace standalone {

namespace {

/// How many of SQLite's steps a statement takes before it is looked at whether it is to be given up.
constexpr int kStepsBetween = 1'000;

constexpr const char* kMoved = " was moved or deleted by another program.";

void RefuseFileLogic(sqlite3* connection) {
  sqlite3_db_config(connection, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
  sqlite3_db_config(connection, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
  sqlite3_db_config(connection, SQLITE_DBCONFIG_ENABLE_TRIGGER, 0, nullptr);
  sqlite3_db_config(connection, SQLITE_DBCONFIG_ENABLE_VIEW, 0, nullptr);
}

/// What this program's own statements never come near, but for the length of a block or a text: Fail() tells it.
constexpr std::array<std::pair<int, int>, 8> kLimits = {{
    {SQLITE_LIMIT_LENGTH, 1'000'000'000},
    {SQLITE_LIMIT_SQL_LENGTH, 10'000},
    {SQLITE_LIMIT_COLUMN, 100},
    {SQLITE_LIMIT_EXPR_DEPTH, 100},
    {SQLITE_LIMIT_FUNCTION_ARG, 20},
    {SQLITE_LIMIT_ATTACHED, 1},
    {SQLITE_LIMIT_TRIGGER_DEPTH, 1},
    {SQLITE_LIMIT_VARIABLE_NUMBER, 100},
}};

void SetLimits(sqlite3* connection) {
  for (const auto& [limit, value] : kLimits) {
    sqlite3_limit(connection, limit, value);
  }
}

// Of the call that has just failed. Where it failed at the end of a transaction, SQLite itself does not keep the
// number.
int SystemErrno(sqlite3* connection) {
  const int last = errno;
  const int kept = sqlite3_system_errno(connection);
  return kept == 0 ? last : kept;
}

// SQLite tells some faults of the system as damage of the file.
bool IsFaultOfSystem(int number) {
  return number == EIO || number == ENXIO || number == ERANGE || number == ENOMEM;
}

using Clock = std::chrono::steady_clock;

constexpr std::chrono::seconds kSilentWait{1};

// Short at first, since most locks are held for milliseconds.
std::chrono::milliseconds PauseBeforeTry(int count) {
  return std::chrono::milliseconds(std::min(1 + 2 * count, 50));
}

std::string InSeconds(std::chrono::milliseconds time) {
  const double seconds = std::chrono::duration<double>(time).count();
  return fmt::format("{} second{}", seconds, seconds == 1 ? "" : "s");
}

}  // namespace

class Database::Implementation {
 public:
  Implementation(const std::string& path, std::string name) : fSqlitePath(path), fPath(path), fName(std::move(name)) {}
  Implementation(const Implementation&) = delete;
  Implementation& operator=(const Implementation&) = delete;
  ~Implementation() {
    for (const auto& entry : fStatements) {
      sqlite3_finalize(entry.second);
    }
    sqlite3_close(fConnection);
  }

  /// Of a call that was begun with errno 0: what is found there then is the call's own.
  void Check(int result) const {
    fErrno = errno;
    if (result != SQLITE_OK && result != SQLITE_ROW && result != SQLITE_DONE) {
      Fail(result);
    }
  }

  sqlite3_stmt* Kept(std::string_view sql) {
    sqlite3_stmt*& statement = fStatements[sql];
    if (statement == nullptr) {
      errno = 0;
      Check(sqlite3_prepare_v3(fConnection, sql.data(), static_cast<int>(sql.size()), SQLITE_PREPARE_PERSISTENT,
                               &statement, nullptr));
    }
    return statement;
  }

  /// SQLite calls it where a lock is held: whether to try again.
  static int WaitForLock(void* self, int count) { return static_cast<Implementation*>(self)->Wait(count) ? 1 : 0; }

  /// SQLite calls it while a statement runs: whether to give that up.
  static int GoesTooFar(void* self) { return static_cast<Implementation*>(self)->MustStop() ? 1 : 0; }

  void WatchProgress(bool isWatched) {
    sqlite3_progress_handler(fConnection, kStepsBetween, isWatched ? GoesTooFar : nullptr, this);
  }

  sqlite3* fConnection = nullptr;
  DatabasePath fSqlitePath;
  std::optional<DatabasePath> fAttachedPath;
  std::string fPath;
  std::string fName;
  std::chrono::milliseconds fLockTimeout{0};
  std::function<void(const std::string&)> fNotify;
  sqlite3_stmt* fRollback = nullptr;  // prepared at once: there may be no memory when it is needed
  std::optional<int> fWorkLeft;       // where it is limited
  bool fIsOpenToWrite = false;
  mutable int fErrno = 0;

  std::string SystemFailure(int number) const;

 private:
  [[noreturn]] void Fail(int result) const;
  std::string LockedSentence() const;
  bool Wait(int count);
  bool MustStop();

  Clock::time_point fWaitBegan;
  bool fWaitIsTold = false;
  std::unordered_map<std::string_view, sqlite3_stmt*> fStatements;
};

bool Database::Implementation::Wait(int count) {
  if (count == 0) {
    fWaitBegan = Clock::now();
    fWaitIsTold = false;
  }
  const auto waited = Clock::now() - fWaitBegan;
  if (waited >= fLockTimeout || IsInterrupted()) {
    return false;
  }
  if (waited >= kSilentWait && !fWaitIsTold && fNotify) {
    fWaitIsTold = true;
    fNotify("waiting for " + fName + ", which another process has locked.");
  }
  std::this_thread::sleep_for(std::min<Clock::duration>(PauseBeforeTry(count), fLockTimeout - waited));
  return true;
}

bool Database::Implementation::MustStop() {
  return IsInterrupted() || (fWorkLeft && --*fWorkLeft < 0);
}

std::string Database::Implementation::LockedSentence() const {
  return fLockTimeout.count() == 0
             ? fName + " is locked by another process."
             : fmt::format("{} is locked by another process and did not become free within {} (--lock-timeout).", fName,
                           InSeconds(fLockTimeout));
}

/// Permission may be taken away at any moment of a write; a file that can still be read cannot be written then.
std::string Database::Implementation::SystemFailure(int number) const {
  if (number == EACCES && access(fPath.c_str(), R_OK) == 0) {
    return NoPermissionSentence(fName);
  }
  return fmt::format("{} cannot be read or written: {}.", fName,
                     number == 0 ? "input or output failed" : std::strerror(number));
}

void Database::Implementation::Fail(int result) const {
  const int number = fErrno;
  if (const std::string refusal = TakeRefusal(); !refusal.empty()) {
    throw Error(fName + refusal);
  }
  if (IsInterrupted() && (result == SQLITE_INTERRUPT || result == SQLITE_BUSY)) {
    throw Error(ErrorKind::kInterrupted, fName + ": interrupted.");
  }
  const int extended = fConnection == nullptr ? result : sqlite3_extended_errcode(fConnection);
  if (extended == SQLITE_READONLY_DBMOVED) {
    throw Error(fName + kMoved);
  }
  if (extended == SQLITE_READONLY_ROLLBACK || extended == SQLITE_READONLY_RECOVERY) {
    throw Error(fName + " was left in the middle of a write; it must be opened once with permission to write.");
  }
  switch (result & 0xff) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
      throw Error(LockedSentence());
    case SQLITE_NOTADB:
      throw Error(ErrorKind::kNotADataset, fName + " is not a dataset.", fName);
    case SQLITE_PERM:
    case SQLITE_READONLY:
      throw Error(ErrorKind::kNoPermission, NoPermissionSentence(fName));
    case SQLITE_FULL:
      throw Error(fName + " cannot be written: the disk is full.");
    case SQLITE_IOERR:
    case SQLITE_CANTOPEN:
      throw Error(SystemFailure(SystemErrno(fConnection)));
    case SQLITE_NOMEM:
      throw Error(fName + " cannot be used: there is not enough memory.");
    case SQLITE_TOOBIG:
      throw Error(fName + " cannot be written: a block of cases or a text is longer than 1,000,000,000 bytes.");
    default:  // what is left comes of a schema or a value that this program does not write
      if (IsFaultOfSystem(number)) {
        throw Error(SystemFailure(number));
      }
      throw Error(ErrorKind::kDamaged, fName + " is damaged.");
  }
}

Database::Database(const std::string& path, std::string name)
    : fImplementation(std::make_unique<Implementation>(path, std::move(name))) {
  // Without SQLITE_OPEN_CREATE; SQLite itself falls back to reading where writing is not permitted.
  const int result = sqlite3_open_v2(fImplementation->fSqlitePath.ForSqlite().c_str(), &fImplementation->fConnection,
                                     SQLITE_OPEN_READWRITE, DatabaseFileSystem());
  fImplementation->Check(result);
  fImplementation->fIsOpenToWrite = WasOpenedToWrite();
  fImplementation->fRollback = fImplementation->Kept("ROLLBACK");
  sqlite3_busy_handler(fImplementation->fConnection, Implementation::WaitForLock, fImplementation.get());
  RefuseFileLogic(fImplementation->fConnection);
  SetLimits(fImplementation->fConnection);
  fImplementation->WatchProgress(true);
  SetLockTimeout(std::chrono::seconds(30));
  Execute("PRAGMA cell_size_check = ON");
}

Database::~Database() = default;

void Database::SetLockTimeout(std::chrono::milliseconds timeout, std::function<void(const std::string&)> notify) {
  fImplementation->fLockTimeout = timeout;
  fImplementation->fNotify = std::move(notify);
}

void Database::Execute(const char* sql) {
  errno = 0;
  fImplementation->Check(sqlite3_exec(fImplementation->fConnection, sql, nullptr, nullptr, nullptr));
}

void Database::Attach(const std::string& path, const char* schema) {
  const DatabasePath& attached = fImplementation->fAttachedPath.emplace(path);
  Query(*this, "ATTACH ? AS ?").Bind(attached.ForSqlite()).Bind(schema).Run();
}

// Nothing may interrupt it half way: after the point of no return that would be told as a failure.
std::optional<std::string> Database::Commit() {
  TakeUnsyncedReason();  // of a journal that was rolled back
  fImplementation->WatchProgress(false);
  errno = 0;
  const int result = sqlite3_exec(fImplementation->fConnection, "COMMIT", nullptr, nullptr, nullptr);
  fImplementation->WatchProgress(true);
  fImplementation->Check(result);
  const std::string reason = TakeUnsyncedReason();
  return reason.empty() ? std::nullopt : std::make_optional(UnsyncedSentence(fImplementation->fName, reason));
}

void Database::LimitWork(bool isLimited) {
  constexpr int kWorkOfSoundFile = 3;  // thousands of SQLite's steps: a schema of ten rows takes some hundred
  fImplementation->fWorkLeft = isLimited ? std::make_optional(kWorkOfSoundFile) : std::nullopt;
}

void Database::FailIfMoved() const {
  int hasMoved = 0;
  sqlite3_file_control(fImplementation->fConnection, "main", SQLITE_FCNTL_HAS_MOVED, &hasMoved);
  if (hasMoved != 0) {
    throw Error(fImplementation->fName + kMoved);
  }
}

bool Database::IsReadOnly() const {
  return sqlite3_db_readonly(fImplementation->fConnection, "main") == 1;
}

bool Database::ForbidsWriting() const {
  return IsReadOnly() && fImplementation->fIsOpenToWrite;
}

bool Database::HasJournal() const {
  const std::string journal = fImplementation->fSqlitePath.ForSqlite() + "-journal";
  return access(journal.c_str(), F_OK) == 0;
}

bool Database::InTransaction() const {
  return sqlite3_get_autocommit(fImplementation->fConnection) == 0;
}

void Database::Rollback() noexcept {
  constexpr int kTries = 2;  // the first one may fail for want of memory
  fImplementation->WatchProgress(false);
  for (int tries = 0; tries < kTries && InTransaction(); ++tries) {
    sqlite3_step(fImplementation->fRollback);
    sqlite3_reset(fImplementation->fRollback);
  }
  fImplementation->WatchProgress(true);
}

// What a fault of the system kept from being read looks as if it were not there.
void Database::FailAsDamaged() const {
  if (const int number = fImplementation->fErrno; IsFaultOfSystem(number)) {
    throw Error(fImplementation->SystemFailure(number));
  }
  throw Error(ErrorKind::kDamaged, fImplementation->fName + " is damaged.");
}

Query::Query(Database& database, std::string_view sql)
    : fDatabase(database), fStatement(database.fImplementation->Kept(sql)) {}

Query::~Query() {
  sqlite3_reset(fStatement);
  sqlite3_clear_bindings(fStatement);
}

Query& Query::Bind(std::int64_t value) {
  fDatabase.fImplementation->Check(sqlite3_bind_int64(fStatement, ++fBound, value));
  return *this;
}

Query& Query::Bind(std::string_view value) {
  const char* data = value.data() == nullptr ? "" : value.data();  // a null pointer would bind NULL
  fDatabase.fImplementation->Check(
      sqlite3_bind_text64(fStatement, ++fBound, data, value.size(), SQLITE_STATIC, SQLITE_UTF8));
  return *this;
}

Query& Query::BindBlob(std::string_view value) {
  const char* data = value.data() == nullptr ? "" : value.data();
  fDatabase.fImplementation->Check(sqlite3_bind_blob64(fStatement, ++fBound, data, value.size(), SQLITE_STATIC));
  return *this;
}

Query& Query::BindNull() {
  fDatabase.fImplementation->Check(sqlite3_bind_null(fStatement, ++fBound));
  return *this;
}

bool Query::Step() {
  errno = 0;
  const int result = sqlite3_step(fStatement);
  fDatabase.fImplementation->Check(result);
  return result == SQLITE_ROW;
}

void Query::Run() {
  while (Step()) {
  }
  sqlite3_reset(fStatement);
  fBound = 0;
}

std::int64_t Query::Integer(int column) {
  if (sqlite3_column_type(fStatement, column) != SQLITE_INTEGER) {
    fDatabase.FailAsDamaged();
  }
  return sqlite3_column_int64(fStatement, column);
}

std::string Query::Text(int column) {
  if (sqlite3_column_type(fStatement, column) != SQLITE_TEXT) {
    fDatabase.FailAsDamaged();
  }
  const void* text = sqlite3_column_text(fStatement, column);
  const auto size = static_cast<std::size_t>(sqlite3_column_bytes(fStatement, column));
  if (text == nullptr) {
    fDatabase.fImplementation->Check(SQLITE_NOMEM);
  }
  std::string value(static_cast<const char*>(text), size);
  if (value.find('\0') != std::string::npos || !IsValidUtf8(value)) {
    fDatabase.FailAsDamaged();
  }
  return value;
}

std::string_view Query::Blob(int column) {
  if (sqlite3_column_type(fStatement, column) != SQLITE_BLOB) {
    fDatabase.FailAsDamaged();
  }
  const void* bytes = sqlite3_column_blob(fStatement, column);
  const auto size = static_cast<std::size_t>(sqlite3_column_bytes(fStatement, column));
  if (bytes == nullptr && size != 0) {
    fDatabase.fImplementation->Check(SQLITE_NOMEM);
  }
  return {static_cast<const char*>(bytes), size};
}

bool Query::IsNull(int column) {
  return sqlite3_column_type(fStatement, column) == SQLITE_NULL;
}

}  // namespace standalone
