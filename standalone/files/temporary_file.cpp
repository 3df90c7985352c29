#include "standalone/files/temporary_file.h"

#include <dirent.h>
#include <fcntl.h>
#include <fmt/format.h>
#include <signal.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <random>
#include <string_view>
#include <utility>
#include <vector>

#include "standalone/files/folder.h"
#include "standalone/files/io.h"
#include "standalone/text/error.h"

namespace standalone {

namespace {

/// What is left of permissions where the group is another one: nothing for it, and for others what the old group had,
/// since its members are among them now.
mode_t WithoutGroup(mode_t mode) {
  constexpr int kFromGroupToOthers = 3;
  return mode & ~mode_t{S_IRWXG} & (~mode_t{S_IRWXO} | mode >> kFromGroupToOthers);
}

/// The same as of the file that is replaced, but no right to run as its owner.
void TakePermissions(int descriptor, const struct stat& replaced) {
  constexpr mode_t kPermissions = 0777;
  struct stat own = {};
  const bool hasGroup = (fstat(descriptor, &own) == 0 && own.st_gid == replaced.st_gid) ||
                        fchown(descriptor, static_cast<uid_t>(-1), replaced.st_gid) == 0;
  fchmod(descriptor, (hasGroup ? replaced.st_mode : WithoutGroup(replaced.st_mode)) & kPermissions);
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

/// Keeps signals from being handled; they come when this ends.
class SignalsHeld {
 public:
  SignalsHeld() {
    sigset_t all = {};
    sigfillset(&all);
    pthread_sigmask(SIG_BLOCK, &all, &fBefore);
  }
  SignalsHeld(const SignalsHeld&) = delete;
  SignalsHeld& operator=(const SignalsHeld&) = delete;
  ~SignalsHeld() { pthread_sigmask(SIG_SETMASK, &fBefore, nullptr); }

 private:
  sigset_t fBefore = {};
};

bool IsNamed(const std::string& path, int descriptor) {
  struct stat named = {};
  struct stat opened = {};
  return lstat(path.c_str(), &named) == 0 && fstat(descriptor, &opened) == 0 && named.st_dev == opened.st_dev &&
         named.st_ino == opened.st_ino;
}

/// Whether another program took the file for one left behind, in the moment before it was locked.
bool WasTaken(const std::string& path, int descriptor) {
  struct stat status = {};
  return (lstat(path.c_str(), &status) != 0 && errno == ENOENT) ||
         (fstat(descriptor, &status) == 0 && status.st_nlink == 0);
}

constexpr std::string_view kPrefix = ".mrset-";
constexpr std::string_view kSuffix = ".tmp";
constexpr std::size_t kNumberDigits = 8;

constexpr std::string_view kCompanion = "-journal";

bool IsTemporaryName(std::string_view name) {
  return name.size() == kPrefix.size() + kNumberDigits + kSuffix.size() && name.substr(0, kPrefix.size()) == kPrefix &&
         name.substr(kPrefix.size() + kNumberDigits) == kSuffix &&
         name.find_first_not_of("0123456789abcdef", kPrefix.size()) == kPrefix.size() + kNumberDigits;
}

/// Empty for a name that does not end so.
std::string_view WithoutCompanionEnding(std::string_view name) {
  const std::size_t length = name.size() - std::min(name.size(), kCompanion.size());
  return name.substr(length) == kCompanion ? name.substr(0, length) : std::string_view();
}

bool IsOwnRegularFile(const struct stat& status) {
  return S_ISREG(status.st_mode) && status.st_uid == geteuid();
}

// Whoever made the file holds a lock on it for as long as it has this name.
void RemoveIfLeftBehind(const std::string& path) {
  const Descriptor file = OpenFile(path, O_RDONLY | O_NOFOLLOW | O_NONBLOCK);
  struct stat status = {};
  const bool isOurs = file.Number() >= 0 && fstat(file.Number(), &status) == 0 && IsOwnRegularFile(status);
  if (isOurs && flock(file.Number(), LOCK_EX | LOCK_NB) == 0 && IsNamed(path, file.Number())) {
    unlink(path.c_str());
  }
}

/// The journal of a temporary file that is not there any more.
void RemoveCompanionLeftBehind(const std::string& path) {
  struct stat status = {};
  const std::string file(WithoutCompanionEnding(path));
  if (lstat(file.c_str(), &status) != 0 && errno == ENOENT && lstat(path.c_str(), &status) == 0 &&
      IsOwnRegularFile(status)) {
    unlink(path.c_str());
  }
}

void RemoveThoseLeftBehind(const std::string& folder) {
  DIR* entries = opendir(folder.c_str());
  if (entries == nullptr) {
    return;
  }
  std::vector<std::string> companions;
  while (const dirent* entry = readdir(entries)) {
    const std::string name = &entry->d_name[0];
    if (IsTemporaryName(name)) {
      RemoveIfLeftBehind(folder + name);
    } else if (IsTemporaryName(WithoutCompanionEnding(name))) {
      companions.push_back(folder + name);
    }
  }
  closedir(entries);
  std::for_each(companions.begin(), companions.end(), RemoveCompanionLeftBehind);
}

struct MadeFile {
  std::string path;
  Descriptor descriptor;  // holds the lock
};

/// What may be read of a file that is to be replaced is all that may be read of the one beside it.
mode_t ModeBeside(const std::string& destination) {
  constexpr mode_t kNewFile = 0666;
  constexpr mode_t kOwnerWrites = S_IRUSR | S_IWUSR;
  struct stat replaced = {};
  if (stat(destination.c_str(), &replaced) != 0) {
    return kNewFile;
  }
  const mode_t mode = replaced.st_gid == getegid() ? replaced.st_mode : WithoutGroup(replaced.st_mode);
  return (mode & kNewFile) | kOwnerWrites;
}

MadeFile MakeFileIn(const std::string& folder, const std::string& destination, const std::string& name) {
  const mode_t mode = ModeBeside(destination);
  std::random_device random;
  constexpr int kAttempts = 100;
  for (int attempt = 0; attempt < kAttempts; ++attempt) {
    std::string path = fmt::format("{}{}{:08x}{}", folder, kPrefix, static_cast<std::uint32_t>(random()), kSuffix);
    Descriptor descriptor = OpenFile(path, O_RDWR | O_CREAT | O_EXCL, mode);
    if (descriptor.Number() < 0 && errno != EEXIST) {
      break;
    }
    if (descriptor.Number() >= 0) {
      flock(descriptor.Number(), LOCK_EX);
      if (!WasTaken(path, descriptor.Number())) {
        return {std::move(path), std::move(descriptor)};
      }
    }
  }
  FailToWrite(name, errno);
}

void SyncFile(int descriptor, const std::string& name) {
  if (fsync(descriptor) != 0) {
    FailToWrite(name, errno);
  }
}

std::optional<std::string> SyncFolder(const std::string& destination) {
  const int number = SyncFolderOf(destination);
  return number == 0 ? std::nullopt : std::make_optional(UnsyncedSentence(destination, std::strerror(number)));
}

// Gives the file its new name unless that is taken. Where the file system cannot do so in one step, by a second name.
bool RenameWithoutReplacing(const std::string& from, const std::string& to) {
  if (renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) {
    return true;
  }
  if (errno != EINVAL && errno != ENOSYS) {
    return false;
  }
  if (link(from.c_str(), to.c_str()) != 0) {
    return false;
  }
  unlink(from.c_str());  // a second name that stays is removed as one that was left behind
  return true;
}

}  // namespace

void FailToWrite(const std::string& name, int number) {
  if (number == EACCES || number == EPERM || number == EROFS) {
    throw Error(ErrorKind::kNoPermission, NoPermissionSentence(name));
  }
  throw Error(name + " cannot be written: " + std::strerror(number) + ".");
}

bool TemporaryFile::IsReserved(const std::string& path) {
  const std::string name = path.substr(path.rfind('/') + 1);
  return IsTemporaryName(name) || IsTemporaryName(WithoutCompanionEnding(name));
}

TemporaryFile::TemporaryFile(const std::string& destination, std::string name)
    : fDestination(destination), fName(std::move(name)) {
  const std::string folder = FolderOf(destination);
  RemoveThoseLeftBehind(folder);
  const SignalsHeld held;  // until the handler of signals knows the file
  MadeFile made = MakeFileIn(folder, destination, fName);
  fPath = std::move(made.path);
  fLock = std::move(made.descriptor);
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
  fLock.Close();
}

std::optional<std::string> TemporaryFile::PutInPlace() {
  SyncFile(fLock.Number(), fDestination);
  if (!RenameWithoutReplacing(fPath, fDestination)) {
    if (errno == EEXIST) {
      throw Error(fDestination + " already exists.");
    }
    FailToWrite(fDestination, errno);
  }
  Release();
  return SyncFolder(fDestination);
}

std::optional<std::string> TemporaryFile::Replace() {
  struct stat replaced = {};
  if (stat(fDestination.c_str(), &replaced) == 0) {
    TakePermissions(fLock.Number(), replaced);
  }
  SyncFile(fLock.Number(), fName);
  if (rename(fPath.c_str(), fDestination.c_str()) != 0) {
    FailToWrite(fName, errno);
  }
  Release();
  return SyncFolder(fDestination);
}

void TemporaryFile::RemoveAllOnSignal() noexcept {
  for (const std::atomic<const char*>& slot : filesToRemove) {
    if (const char* path = slot.load()) {
      unlink(path);
    }
  }
}

void TemporaryFile::LeaveAllToParent() noexcept {
  for (std::atomic<const char*>& slot : filesToRemove) {
    slot = nullptr;
  }
}

}  // namespace standalone
