// The calls by which files change, in place of those of the C library: SQLite's files and all others of the program
// come through here.
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/sendfile.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <unistd.h>

#include <array>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "tests/crash/shim/plan.h"
#include "tests/crash/shim/power_loss.h"

namespace {

using crash::Kind;
using crash::Moment;
using crash::Plan;
using crash::PowerLoss;

// What the shim itself does is not counted.
bool inShim = false;

class InShim {
 public:
  InShim() : fWas(inShim) { inShim = true; }
  InShim(const InShim&) = delete;
  InShim& operator=(const InShim&) = delete;
  ~InShim() { inShim = fWas; }

 private:
  bool fWas;
};

template <typename Function>
Function* Real(Function*, const char* name) {
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

#define REAL(name) (*Real(static_cast<decltype(&::name)>(nullptr), #name))

std::string PathOf(int descriptor) {
  std::array<char, 4096> path{};
  const std::string link = "/proc/self/fd/" + std::to_string(descriptor);
  const ssize_t length = readlink(link.c_str(), path.data(), path.size());
  return {path.data(), length > 0 ? static_cast<std::size_t>(length) : 0};
}

/// Of a file or folder that is watched and has a name; else empty.
std::string WatchedPath(int descriptor) {
  struct stat status = {};
  if (inShim || !Plan::Get().IsActive() || fstat(descriptor, &status) != 0 || status.st_nlink == 0) {
    return "";
  }
  std::string path = PathOf(descriptor);
  return Plan::Get().Watches(path) ? path : "";
}

/// The same of a path, made whole.
std::string WatchedPath(const char* path) {
  if (inShim || !Plan::Get().IsActive()) {
    return "";
  }
  std::string whole = path;
  if (whole.compare(0, 2, "./") == 0) {
    whole.erase(0, 2);
  }
  if (whole.empty() || whole[0] != '/') {
    std::array<char, 4096> folder{};
    whole = std::string(getcwd(folder.data(), folder.size())) + "/" + whole;
  }
  return Plan::Get().Watches(whole) ? whole : "";
}

std::string NameIn(const std::string& path) {
  return path.substr(path.rfind('/') + 1);
}

/// Counts one operation, and does it between the moments at which it may be met by the kill.
template <typename Operation>
auto Perform(Kind kind, const std::string& what, Operation operation) {
  const Moment moment = Plan::Get().Count(kind, what);
  if (moment == Moment::kBefore) {
    Plan::Get().Kill();
  }
  const auto result = operation();
  if (moment == Moment::kAfter) {
    Plan::Get().Kill();
  }
  return result;
}

/// A write at an offset by `write(bytes)`, of which the kill in the middle leaves the first half.
template <typename WriteBytes>
ssize_t PerformWrite(int descriptor, const std::string& path, const void* data, std::size_t size, off_t offset,
                     WriteBytes writeBytes) {
  const bool losesPower = Plan::Get().LosesPower();
  if (losesPower) {
    PowerLoss::Get().WillChange(descriptor, path);
  }
  const auto writeFirst = [&](std::size_t count) {
    const ssize_t written = writeBytes(count);
    if (losesPower && written > 0) {
      PowerLoss::Get().DidWrite(descriptor, offset, data, static_cast<std::size_t>(written));
    }
    return written;
  };
  const std::string what =
      "write " + NameIn(path) + " " + std::to_string(size) + " at " + std::to_string(static_cast<long>(offset));
  const Moment moment = Plan::Get().Count(Kind::kWrite, what);
  if (moment == Moment::kBefore) {
    Plan::Get().Kill();
  }
  const ssize_t written = writeFirst(moment == Moment::kMiddle ? size / 2 : size);
  if (moment == Moment::kMiddle || moment == Moment::kAfter) {
    Plan::Get().Kill();
  }
  return written;
}

ssize_t WriteHere(int descriptor, const std::string& path, const void* data, std::size_t size) {
  const bool appends = (fcntl(descriptor, F_GETFL) & O_APPEND) != 0;
  const off_t offset = lseek(descriptor, 0, appends ? SEEK_END : SEEK_CUR);
  return PerformWrite(descriptor, path, data, size, offset,
                      [&](std::size_t count) { return REAL(write)(descriptor, data, count); });
}

int Sync(int descriptor, int (*real)(int)) {
  const std::string path = WatchedPath(descriptor);
  if (path.empty()) {
    return real(descriptor);
  }
  const InShim shim;
  struct stat status = {};
  fstat(descriptor, &status);
  return Perform(Kind::kSync, "sync " + NameIn(path), [&] {
    const int result = real(descriptor);
    if (Plan::Get().LosesPower() && S_ISDIR(status.st_mode)) {
      PowerLoss::Get().DidSyncFolder(path);
    } else if (Plan::Get().LosesPower()) {
      PowerLoss::Get().DidSyncFile(descriptor);
    }
    return result;
  });
}

int Truncate(int descriptor, off_t size, int (*real)(int, off_t)) {
  const std::string path = WatchedPath(descriptor);
  if (path.empty()) {
    return real(descriptor, size);
  }
  const InShim shim;
  return Perform(Kind::kTruncate, "truncate " + NameIn(path) + " to " + std::to_string(static_cast<long>(size)), [&] {
    if (Plan::Get().LosesPower()) {
      PowerLoss::Get().WillChange(descriptor, path);
      PowerLoss::Get().DidTruncate(descriptor, size);
    }
    return real(descriptor, size);
  });
}

int Open(const char* name, int flags, mode_t mode, int (*real)(const char*, int, ...)) {
  const std::string path = (flags & O_CREAT) == 0 ? "" : WatchedPath(name);
  struct stat status = {};
  if (path.empty() || lstat(name, &status) == 0) {
    return real(name, flags, mode);
  }
  const InShim shim;
  return Perform(Kind::kCreate, "create " + NameIn(path), [&] {
    const int descriptor = real(name, flags, mode);
    if (descriptor >= 0 && Plan::Get().LosesPower()) {
      PowerLoss::Get().DidCreate(path);
    }
    return descriptor;
  });
}

template <typename Operation>
int Rename(const char* from, const char* to, Operation real) {
  const std::string source = WatchedPath(from);
  const std::string target = WatchedPath(to);
  if (source.empty() || target.empty()) {
    return real();
  }
  const InShim shim;
  return Perform(Kind::kRename, "rename " + NameIn(source) + " to " + NameIn(target), [&] {
    const PowerLoss before = PowerLoss::Get();
    PowerLoss::Get().WillRename(source, target);
    const int result = real();
    if (result != 0) {
      PowerLoss::Get() = before;
    }
    return result;
  });
}

mode_t ModeOf(int flags, va_list rest) {
  return (flags & O_CREAT) == 0 ? 0 : static_cast<mode_t>(va_arg(rest, int));
}

void AtEnd() {
  const InShim shim;
  Plan::Get().LosePowerAtEnd();
}

// So that the driver knows what was answered when the program is killed. What is registered first is done last, but
// before the objects are destroyed that are made here.
__attribute__((constructor)) void AnswerAtOnce() {
  std::setvbuf(stdout, nullptr, _IOLBF, 1 << 16);
  const InShim shim;
  Plan::Get();
  PowerLoss::Get();
  std::atexit(AtEnd);
}

}  // namespace

extern "C" {

ssize_t write(int descriptor, const void* data, std::size_t size) {
  const std::string path = WatchedPath(descriptor);
  const InShim shim;
  return path.empty() ? REAL(write)(descriptor, data, size) : WriteHere(descriptor, path, data, size);
}

ssize_t writev(int descriptor, const iovec* parts, int count) {
  const std::string path = WatchedPath(descriptor);
  const InShim shim;
  if (path.empty()) {
    return REAL(writev)(descriptor, parts, count);
  }
  std::string all;
  for (int index = 0; index < count; ++index) {
    all.append(static_cast<const char*>(parts[index].iov_base), parts[index].iov_len);
  }
  return WriteHere(descriptor, path, all.data(), all.size());
}

ssize_t pwrite64(int descriptor, const void* data, std::size_t size, off64_t offset) {
  const std::string path = WatchedPath(descriptor);
  const InShim shim;
  const auto writeBytes = [&](std::size_t count) { return REAL(pwrite64)(descriptor, data, count, offset); };
  return path.empty() ? writeBytes(size) : PerformWrite(descriptor, path, data, size, offset, writeBytes);
}

ssize_t pwrite(int descriptor, const void* data, std::size_t size, off_t offset) {
  return pwrite64(descriptor, data, size, offset);
}

// By reading and writing, so that the bytes are known.
ssize_t sendfile64(int target, int source, off64_t* offset, std::size_t size) {
  if (WatchedPath(target).empty()) {
    return REAL(sendfile64)(target, source, offset, size);
  }
  std::string data(size < 65536 ? size : 65536, '\0');
  const ssize_t count =
      offset == nullptr ? read(source, data.data(), data.size()) : pread64(source, data.data(), data.size(), *offset);
  const ssize_t written = count <= 0 ? count : write(target, data.data(), static_cast<std::size_t>(count));
  if (offset != nullptr && written > 0) {
    *offset += written;
  }
  return written;
}

ssize_t sendfile(int target, int source, off_t* offset, std::size_t size) {
  return sendfile64(target, source, offset, size);
}

int fsync(int descriptor) {
  return Sync(descriptor, REAL(fsync));
}

int fdatasync(int descriptor) {
  return Sync(descriptor, REAL(fdatasync));
}

int ftruncate(int descriptor, off_t size) noexcept {
  return Truncate(descriptor, size, REAL(ftruncate));
}

int ftruncate64(int descriptor, off64_t size) noexcept {
  return Truncate(descriptor, size, REAL(ftruncate64));
}

int open(const char* path, int flags, ...) {
  va_list rest;
  va_start(rest, flags);
  const mode_t mode = ModeOf(flags, rest);
  va_end(rest);
  return Open(path, flags, mode, REAL(open));
}

int open64(const char* path, int flags, ...) {
  va_list rest;
  va_start(rest, flags);
  const mode_t mode = ModeOf(flags, rest);
  va_end(rest);
  return Open(path, flags, mode, REAL(open64));
}

int unlink(const char* name) noexcept {
  const std::string path = WatchedPath(name);
  const InShim shim;
  struct stat status = {};
  if (path.empty() || lstat(name, &status) != 0) {
    return REAL(unlink)(name);
  }
  return Perform(Kind::kDelete, "delete " + NameIn(path), [&] {
    PowerLoss::Get().WillDelete(path);
    return REAL(unlink)(name);
  });
}

int link(const char* from, const char* to) noexcept {
  const std::string path = WatchedPath(to);
  if (path.empty()) {
    return REAL(link)(from, to);
  }
  const InShim shim;
  return Perform(Kind::kCreate, "link " + NameIn(path), [&] {
    const int result = REAL(link)(from, to);
    if (result == 0) {
      PowerLoss::Get().DidLink(path);
    }
    return result;
  });
}

int rename(const char* from, const char* to) noexcept {
  return Rename(from, to, [&] { return REAL(rename)(from, to); });
}

int renameat2(int fromFolder, const char* from, int toFolder, const char* to, unsigned flags) noexcept {
  return Rename(from, to, [&] { return REAL(renameat2)(fromFolder, from, toFolder, to, flags); });
}

void _exit(int status) {
  AtEnd();
  REAL(_exit)(status);
  std::abort();
}

pid_t fork() noexcept {
  const pid_t child = REAL(fork)();
  if (child > 0 && Plan::Get().IsActive()) {
    Plan::Get().AddProcess(child);
  }
  return child;
}

}  // extern "C"
