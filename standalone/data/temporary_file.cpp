#include "standalone/data/temporary_file.h"

#include <dirent.h>
#include <fcntl.h>
#include <fmt/format.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <random>
#include <string_view>
#include <utility>

#include "standalone/data/database.h"

namespace standalone {

namespace {

std::string FolderOf(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  return slash == std::string::npos ? "./" : path.substr(0, slash + 1);
}

[[noreturn]] void FailToWrite(const std::string& path, int number) {
  const std::string sentence = path + " cannot be written: " + std::strerror(number) + ".";
  if (number == EACCES || number == EPERM || number == EROFS) {
    throw ReadOnlyError(sentence);
  }
  throw DatasetError(sentence);
}

/// The paths of the temporary files that exist, for the handler of a signal: it may read nothing but such atomics.
std::array<std::atomic<const char*>, 8> filesToRemove{};  // NOLINT(*-avoid-non-const-global-variables)

void Exchange(const char* old, const char* replacement) {
  for (std::atomic<const char*>& slot : filesToRemove) {
    const char* expected = old;
    if (slot.compare_exchange_strong(expected, replacement)) {
      return;
    }
  }
}

bool IsNamed(const std::string& path, int descriptor) {
  struct stat named = {};
  struct stat opened = {};
  return lstat(path.c_str(), &named) == 0 && fstat(descriptor, &opened) == 0 && named.st_dev == opened.st_dev &&
         named.st_ino == opened.st_ino;
}

constexpr std::string_view kPrefix = ".mrset-";
constexpr std::string_view kSuffix = ".tmp";
constexpr std::size_t kNumberDigits = 8;

bool IsTemporaryName(std::string_view name) {
  return name.size() == kPrefix.size() + kNumberDigits + kSuffix.size() && name.substr(0, kPrefix.size()) == kPrefix &&
         name.substr(kPrefix.size() + kNumberDigits) == kSuffix &&
         name.find_first_not_of("0123456789abcdef", kPrefix.size()) == kPrefix.size() + kNumberDigits;
}

// Whoever made the file holds a lock on it for as long as it has this name.
void RemoveIfLeftBehind(const std::string& path) {
  const int descriptor = open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
  if (descriptor < 0) {
    return;
  }
  struct stat status = {};
  const bool isOurs = fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode) && status.st_uid == geteuid();
  if (isOurs && flock(descriptor, LOCK_EX | LOCK_NB) == 0 && IsNamed(path, descriptor)) {
    unlink(path.c_str());
  }
  close(descriptor);
}

void RemoveThoseLeftBehind(const std::string& folder) {
  DIR* entries = opendir(folder.c_str());
  if (entries == nullptr) {
    return;
  }
  while (const dirent* entry = readdir(entries)) {
    const std::string name = &entry->d_name[0];
    if (IsTemporaryName(name)) {
      RemoveIfLeftBehind(folder + name);
    }
  }
  closedir(entries);
}

struct LockedFile {
  std::string path;
  int descriptor;
};

LockedFile MakeFileIn(const std::string& folder, const std::string& destination) {
  std::random_device random;
  constexpr int kAttempts = 100;
  for (int attempt = 0; attempt < kAttempts; ++attempt) {
    std::string path = fmt::format("{}{}{:08x}{}", folder, kPrefix, static_cast<std::uint32_t>(random()), kSuffix);
    const int descriptor = open(path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (descriptor < 0 && errno != EEXIST) {
      break;
    }
    if (descriptor >= 0) {
      flock(descriptor, LOCK_EX);
      if (IsNamed(path, descriptor)) {
        return {std::move(path), descriptor};
      }
      close(descriptor);  // another program took it for one left behind, in the moment before it was locked
    }
  }
  FailToWrite(destination, errno);
}

void Sync(const std::string& path, int flags, const std::string& destination) {
  const int descriptor = open(path.c_str(), flags | O_CLOEXEC);
  const bool synced = descriptor >= 0 && fsync(descriptor) == 0;
  const int number = errno;
  if (descriptor >= 0) {
    close(descriptor);
  }
  // A file system that cannot sync a folder says EINVAL; there is nothing more to be done on it.
  if (!synced && number != EINVAL) {
    FailToWrite(destination, number);
  }
}

// Gives the file its new name unless that is taken. Where the file system cannot do so in one step, by a second name.
bool RenameWithoutReplacing(const std::string& from, const std::string& to) {
  if (renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) {
    return true;
  }
  if (errno != EINVAL && errno != ENOSYS) {
    return false;
  }
  return link(from.c_str(), to.c_str()) == 0 && unlink(from.c_str()) == 0;
}

}  // namespace

TemporaryFile::TemporaryFile(const std::string& destination) : fDestination(destination) {
  const std::string folder = FolderOf(destination);
  RemoveThoseLeftBehind(folder);
  LockedFile made = MakeFileIn(folder, destination);
  fPath = std::move(made.path);
  fLock = made.descriptor;
  Exchange(nullptr, fPath.c_str());
}

TemporaryFile::~TemporaryFile() {
  if (!fPath.empty()) {
    unlink(fPath.c_str());
    Release();
  }
}

// What is put in place is no longer this object's. The lock goes before anybody can open the file as a dataset: to
// close its descriptor later would release their locks, where they are in this process.
void TemporaryFile::Release() {
  Exchange(fPath.c_str(), nullptr);
  fPath.clear();
  close(fLock);
}

void TemporaryFile::PutInPlaceAs(const std::string& place) {
  Sync(fPath, O_RDWR, place);
  if (!RenameWithoutReplacing(fPath, place)) {
    if (errno == EEXIST) {
      throw DatasetError(place + " exists already.");
    }
    FailToWrite(place, errno);
  }
  Release();
  SyncFolder();
}

void TemporaryFile::Replace() {
  struct stat replaced = {};
  if (stat(fDestination.c_str(), &replaced) == 0) {
    chmod(fPath.c_str(), replaced.st_mode & 07777);
  }
  Sync(fPath, O_RDWR, fDestination);
  if (rename(fPath.c_str(), fDestination.c_str()) != 0) {
    FailToWrite(fDestination, errno);
  }
  Release();
  SyncFolder();
}

void TemporaryFile::SyncFolder() const {
  Sync(FolderOf(fDestination), O_RDONLY | O_DIRECTORY, fDestination);
}

void TemporaryFile::RemoveAllOnSignal() noexcept {
  for (const std::atomic<const char*>& slot : filesToRemove) {
    if (const char* path = slot.load()) {
      unlink(path);
    }
  }
}

}  // namespace standalone
