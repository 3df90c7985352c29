#include "standalone/data/temporary_file.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <random>

#include "standalone/data/dataset.h"

namespace standalone {

namespace {

std::string FolderOf(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  return slash == std::string::npos ? "./" : path.substr(0, slash + 1);
}

[[noreturn]] void FailToWrite(const std::string& path, int number) {
  throw DatasetError(path + " cannot be written: " + std::strerror(number) + ".");
}

std::string MakeFileIn(const std::string& folder, const std::string& destination) {
  std::random_device random;
  constexpr int kAttempts = 100;
  for (int attempt = 0; attempt < kAttempts; ++attempt) {
    std::string path = fmt::format("{}.mrset-{:08x}.tmp", folder, static_cast<std::uint32_t>(random()));
    const int descriptor = open(path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (descriptor >= 0) {
      close(descriptor);
      return path;
    }
    if (errno != EEXIST) {
      break;
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

TemporaryFile::TemporaryFile(const std::string& destination)
    : fDestination(destination), fPath(MakeFileIn(FolderOf(destination), destination)) {}

TemporaryFile::~TemporaryFile() {
  if (!fPath.empty()) {
    unlink(fPath.c_str());
  }
}

void TemporaryFile::PutInPlace() {
  Sync(fPath, O_RDWR, fDestination);
  if (!RenameWithoutReplacing(fPath, fDestination)) {
    if (errno == EEXIST) {
      throw DatasetError(fDestination + " exists already.");
    }
    FailToWrite(fDestination, errno);
  }
  fPath.clear();
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
  fPath.clear();
  SyncFolder();
}

void TemporaryFile::SyncFolder() const {
  Sync(FolderOf(fDestination), O_RDONLY | O_DIRECTORY, fDestination);
}

}  // namespace standalone
