#include "standalone/storage/database_files.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>
#include <string_view>
#include <utility>

#include "standalone/files/folder.h"
#include "standalone/files/io.h"

namespace standalone {

namespace {

constexpr std::size_t kMaxSqlitePathBytes = 480;                // with room for "-journal"
constexpr std::string_view kByDescriptor = "/proc/self/./fd/";  // as nobody types it

/// What the calls of this thread met. SQLite passes on no more than a number.
struct Met {
  std::string refusal;
  int unsyncedError = 0;
  bool isOpenToWrite = false;
};

Met& MetHere() {
  thread_local Met met;
  return met;
}

sqlite3_vfs* System() {
  static sqlite3_vfs* const system = sqlite3_vfs_find(nullptr);
  return system;
}

int Refuse(std::string sentence) {
  MetHere().refusal = std::move(sentence);
  return SQLITE_IOERR;
}

/// Whether a journal ends with the name of another file, as one of a transaction over several files does. SQLite would
/// delete that file with it.
bool NamesOtherFile(const char* journal) {
  constexpr std::string_view kMagic = "\xd9\xd5\x05\xf9\x20\xa1\x63\xd7";
  const Descriptor file = OpenFile(journal, O_RDONLY | O_NOFOLLOW | O_NONBLOCK);
  return file.Number() >= 0 && LastBytes(file.Number(), kMagic.size()) == kMagic;
}

/// SQLITE_OK for a journal that SQLite may open.
int CheckJournal(const char* path) {
  struct stat status = {};
  if (lstat(path, &status) != 0) {
    return SQLITE_OK;
  }
  if (!S_ISREG(status.st_mode)) {
    return Refuse("-journal is not a regular file, so this program did not write it; move it away.");
  }
  if (NamesOtherFile(path)) {
    return Refuse("-journal refers to another file, so this program did not write it; move it away.");
  }
  return SQLITE_OK;
}

int RefuseWriteAheadLog(const char* path) {
  struct stat status = {};
  return Refuse(lstat(path, &status) == 0
                    ? "-wal was not written by this program; finish what another program began, or move it away."
                    : " is in SQLite's WAL mode, which this program does not use.");
}

bool IsLackOfPermission(int number) {
  return number == EACCES || number == EPERM || number == EROFS || number == ETXTBSY;
}

/// SQLite falls back to reading whatever kept the file from being opened to write. Where that was no lack of
/// permission, it is a failure.
int OpenDatabase(const char* path, sqlite3_file* file, int flags, int* outFlags) {
  int opened = 0;
  errno = 0;
  const int result = System()->xOpen(System(), path, file, flags, &opened);
  const int number = errno;
  MetHere().isOpenToWrite = (opened & SQLITE_OPEN_READWRITE) != 0;
  if (outFlags != nullptr) {
    *outFlags = opened;
  }
  if (result != SQLITE_OK || MetHere().isOpenToWrite || IsLackOfPermission(number)) {
    return result;
  }
  file->pMethods->xClose(file);
  file->pMethods = nullptr;
  return Refuse(fmt::format(" cannot be read or written: {}.", std::strerror(number)));
}

int OpenUnlessRefused(const char* path, sqlite3_file* file, int flags, int* outFlags) {
  if ((flags & SQLITE_OPEN_WAL) != 0) {
    return RefuseWriteAheadLog(path);
  }
  if ((flags & SQLITE_OPEN_MAIN_JOURNAL) != 0) {
    if (const int result = CheckJournal(path); result != SQLITE_OK) {
      return result;
    }
  }
  return (flags & SQLITE_OPEN_MAIN_DB) != 0 ? OpenDatabase(path, file, flags, outFlags)
                                            : System()->xOpen(System(), path, file, flags, outFlags);
}

// SQLite calls the two functions below. No exception may pass through it.

int Open(sqlite3_vfs* /*self*/, const char* path, sqlite3_file* file, int flags, int* outFlags) {
  file->pMethods = nullptr;  // nothing to close where it is refused
  try {
    return OpenUnlessRefused(path, file, flags, outFlags);
  } catch (const std::bad_alloc&) {
    return SQLITE_NOMEM;
  }
}

/// A journal that is gone is the point of no return: nothing fails any more.
int Delete(sqlite3_vfs* /*self*/, const char* path, int syncFolder) {
  const int result = System()->xDelete(System(), path, 0);
  if (result == SQLITE_OK && syncFolder != 0) {
    try {
      if (const int number = SyncFolderOf(path); number != 0) {
        MetHere().unsyncedError = number;
      }
    } catch (const std::bad_alloc&) {
      MetHere().unsyncedError = ENOMEM;
    }
  }
  return result;
}

/// A link that leads nowhere is there as well. SQLite would not look at it before it writes.
int Access(sqlite3_vfs* /*self*/, const char* path, int flags, int* result) {
  struct stat status = {};
  if (flags == SQLITE_ACCESS_EXISTS && lstat(path, &status) == 0 && S_ISLNK(status.st_mode)) {
    *result = 1;
    return SQLITE_OK;
  }
  return System()->xAccess(System(), path, flags, result);
}

int FullPathname(sqlite3_vfs* /*self*/, const char* path, int size, char* full) {
  const std::string_view given(path);
  if (given.substr(0, kByDescriptor.size()) != kByDescriptor) {
    return System()->xFullPathname(System(), path, size, full);
  }
  if (given.size() >= static_cast<std::size_t>(size)) {
    return SQLITE_CANTOPEN;
  }
  std::memcpy(full, path, given.size() + 1);
  return SQLITE_OK;
}

sqlite3_vfs Registered() {
  sqlite3_vfs own = *System();
  own.zName = "mrset";
  own.pNext = nullptr;
  own.xOpen = Open;
  own.xDelete = Delete;
  own.xAccess = Access;
  own.xFullPathname = FullPathname;
  return own;
}

/// The path of the file without links where it is too long for SQLite; else empty.
std::string LongPath(const std::string& path) {
  const std::unique_ptr<char, void (*)(void*)> real(realpath(path.c_str(), nullptr), std::free);
  if (real == nullptr) {
    return errno == ENAMETOOLONG ? path : "";  // a short name in a folder that is too deep to be named
  }
  return std::strlen(real.get()) > kMaxSqlitePathBytes ? real.get() : "";
}

// A plain name such as ":memory:" or "file:x?mode=memory" means something else to SQLite than a file of that name.
std::string AsFilePath(const std::string& path) {
  return path.empty() || path[0] == '/' ? path : "./" + path;
}

}  // namespace

const char* DatabaseFileSystem() {
  static sqlite3_vfs own = Registered();
  static const int registered = sqlite3_vfs_register(&own, 0);
  return registered == SQLITE_OK ? own.zName : nullptr;
}

std::string TakeRefusal() {
  return std::exchange(MetHere().refusal, "");
}

bool WasOpenedToWrite() {
  return MetHere().isOpenToWrite;
}

std::string TakeUnsyncedReason() {
  const int number = std::exchange(MetHere().unsyncedError, 0);
  return number == 0 ? std::string() : std::strerror(number);
}

DatabasePath::DatabasePath(const std::string& path) : fPath(AsFilePath(path)) {
  const std::string longPath = LongPath(path);
  if (longPath.empty()) {
    return;
  }
  fFolder = OpenFile(FolderOf(longPath), O_PATH | O_DIRECTORY);
  if (fFolder.Number() >= 0) {
    fPath = fmt::format("{}{}/{}", kByDescriptor, fFolder.Number(), longPath.substr(longPath.rfind('/') + 1));
  }
}

}  // namespace standalone
