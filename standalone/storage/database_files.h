#ifndef STANDALONE_STORAGE_DATABASE_FILES_H
#define STANDALONE_STORAGE_DATABASE_FILES_H

#include <string>

#include "standalone/files/descriptor.h"

namespace standalone {

// What SQLite does to files goes through a file system of this program's own (in SQLite's words, a VFS): the system's,
// but
// - a companion of a database (its journal) that this program did not write is refused before SQLite reads it,
// - once the journal is deleted a transaction stands: a folder that cannot be synchronised then is no failure,
// - paths may be as long as the system lets them be.

/// The name of that file system, which is there from the first call on.
const char* DatabaseFileSystem();

/// Why a companion was refused since the last call in this thread, as a sentence without the database's name, with
/// which it begins; empty where none was.
std::string TakeRefusal();

/// Whether the database that was opened last in this thread was opened to write. SQLite falls back to reading where
/// there is no permission.
bool WasOpenedToWrite();

/// Why a folder could not be synchronised since the last call in this thread, as the system words it; empty where all
/// were.
std::string TakeUnsyncedReason();

/// The path of a file as SQLite takes it, valid as long as this object: SQLite's own limit is some 500 bytes.
class DatabasePath {
 public:
  explicit DatabasePath(const std::string& path);

  const std::string& ForSqlite() const { return fPath; }

 private:
  Descriptor fFolder;  // open where the path is too long
  std::string fPath;
};

}  // namespace standalone

#endif  // STANDALONE_STORAGE_DATABASE_FILES_H
