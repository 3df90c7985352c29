#ifndef STANDALONE_STORAGE_DATABASE_H
#define STANDALONE_STORAGE_DATABASE_H

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

struct sqlite3_stmt;

namespace standalone {

/// One open SQLite file. Every failure is an Error whose sentence names the file as `name`. No schema of the file
/// is trusted: its triggers and views are never run.
class Database {
 public:
  /// Opens a file that exists, to write where that is permitted. `name` stands for the file in sentences.
  Database(const std::string& path, std::string name);
  Database(const Database&) = delete;
  Database& operator=(const Database&) = delete;
  ~Database();

  /// How long a lock that another process holds is waited for, 30 seconds unless set; 0 is not at all. After a second
  /// of waiting `notify`, if it is not empty, gets a sentence that says so, once in each wait.
  void SetLockTimeout(std::chrono::milliseconds timeout, std::function<void(const std::string&)> notify = {});

  /// Runs fixed SQL, which may be several statements without parameters.
  void Execute(const char* sql);

  /// Ends the transaction with its changes, which stand then. Returns the sentence on a folder that could not be
  /// synchronised after that, or else nothing. Where this throws, the changes need not be undone if the system failed.
  std::optional<std::string> Commit();

  /// A file that takes more work than a sound one ever does from now on is damaged; false lifts that again.
  void LimitWork(bool isLimited);

  /// Adds another file under a schema's name.
  void Attach(const std::string& path, const char* schema);

  /// Throws the sentence of a file that is no longer the one at its path.
  void FailIfMoved() const;

  bool IsReadOnly() const;

  /// Whether the file's own header forbids to write it, not a lack of permission.
  bool ForbidsWriting() const;
  bool InTransaction() const;

  /// Whether a journal lies beside the file. One that is not in use takes a transaction back.
  bool HasJournal() const;

  /// Ends the transaction, if there is one, without its changes. Never fails.
  void Rollback() noexcept;

  /// Throws an Error of kind kDamaged, the sentence of a file whose contents cannot be.
  [[noreturn]] void FailAsDamaged() const;

 private:
  friend class Query;
  class Implementation;
  std::unique_ptr<Implementation> fImplementation;
};

/// One run of a statement with parameters. The statement stays prepared in the database, so `sql` must live as long as
/// that, and two runs of the same text may not overlap.
class Query {
 public:
  Query(Database& database, std::string_view sql);
  Query(const Query&) = delete;
  Query& operator=(const Query&) = delete;
  ~Query();

  /// Gives the next parameter its value, from the first on. A text must live until the run ends.
  Query& Bind(std::int64_t value);
  Query& Bind(std::string_view value);
  Query& BindBlob(std::string_view value);
  Query& BindNull();

  /// Whether there is a next row.
  bool Step();

  /// Runs a statement that gives no rows; it can be bound and run again.
  void Run();

  // Values of the current row by column, from 0. A value of another type than asked for, a text that is not UTF-8 or
  // one with a NUL is the mark of a damaged file. A BLOB is valid until the next step.
  std::int64_t Integer(int column);
  std::string Text(int column);
  std::string_view Blob(int column);
  bool IsNull(int column);

 private:
  Database& fDatabase;
  sqlite3_stmt* fStatement;  // owned by the database
  int fBound = 0;
};

}  // namespace standalone

#endif  // STANDALONE_STORAGE_DATABASE_H
