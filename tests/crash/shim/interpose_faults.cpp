// The calls of the C library that can fail, in place of those: the one that the plan names fails.
#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/mman.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "tests/crash/shim/fault_plan.h"

extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* memory, std::size_t size);
}

namespace {

using crash::Call;
using crash::FaultPlan;
using crash::kShort;
using crash::Place;
using crash::Target;

// What happens before main(), and what the shim itself does, is neither counted nor fails.
bool hasStarted = false;
thread_local bool inShim = false;

class InShim {
 public:
  InShim() : fWas(inShim), fErrno(errno) { inShim = true; }
  InShim(const InShim&) = delete;
  InShim& operator=(const InShim&) = delete;
  ~InShim() {
    inShim = fWas;
    errno = fErrno;
  }

 private:
  bool fWas;
  int fErrno;
};

template <typename Function>
Function* Real(Function*, const char* name) {
  const InShim shim;
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

#define REAL(name) (*Real(static_cast<decltype(&::name)>(nullptr), #name))

bool IsWatching() {
  return hasStarted && !inShim && FaultPlan::Get().IsOn();
}

bool BeginsWith(const std::string& text, const char* beginning) {
  return text.compare(0, std::strlen(beginning), beginning) == 0;
}

std::string NameIn(std::string path) {
  while (path.size() > 1 && path.back() == '/') {
    path.pop_back();
  }
  return path.substr(path.rfind('/') + 1);
}

/// The standard streams are not the program's own.
Target TargetOf(int descriptor) {
  if (!IsWatching() || descriptor <= STDERR_FILENO) {
    return {};
  }
  const InShim shim;
  std::array<char, 4096> buffer{};
  const std::string link = "/proc/self/fd/" + std::to_string(descriptor);
  const ssize_t length = readlink(link.c_str(), buffer.data(), buffer.size());
  const std::string path(buffer.data(), length > 0 ? static_cast<std::size_t>(length) : 0);
  if (FaultPlan::Get().Watches(path)) {
    return {Place::kFolder, NameIn(path)};
  }
  if (BeginsWith(path, "/memfd:")) {
    return {Place::kOwn, path.substr(1)};
  }
  const bool isOwn = BeginsWith(path, "pipe:") || BeginsWith(path, "socket:");
  return isOwn ? Target{Place::kOwn, path.substr(0, path.find(':'))} : Target{};
}

Target TargetAt(const char* path) {
  if (!IsWatching() || path == nullptr) {
    return {};
  }
  const InShim shim;
  std::string whole = BeginsWith(path, "./") ? path + 2 : path;
  if (whole.empty() || whole[0] != '/') {
    std::array<char, 4096> folder{};
    whole = std::string(getcwd(folder.data(), folder.size())) + "/" + whole;
  }
  return FaultPlan::Get().Watches(whole) ? Target{Place::kFolder, NameIn(whole)} : Target{};
}

Target Own(const char* name) {
  return IsWatching() ? Target{Place::kOwn, name} : Target{};
}

/// The errno by which the call must fail, kShort, or 0.
int FaultOf(Call call, const Target& target) {
  if (target.place == Place::kNone) {
    return 0;
  }
  const InShim shim;
  return FaultPlan::Get().Count(call, target);
}

template <typename Operation>
auto Do(Call call, const Target& target, decltype(std::declval<Operation>()()) failed, Operation operation) {
  if (const int number = FaultOf(call, target)) {
    errno = number;
    return failed;
  }
  return operation();
}

/// A read or write of so many bytes.
template <typename Operation>
ssize_t Transfer(Call call, const Target& target, std::size_t size, Operation operation) {
  const int number = FaultOf(call, target);
  if (number == kShort) {
    return operation((size + 1) / 2);
  }
  if (number != 0) {
    errno = number;
    return -1;
  }
  return operation(size);
}

mode_t ModeOf(int flags, va_list rest) {
  return (flags & O_CREAT) == 0 ? 0 : static_cast<mode_t>(va_arg(rest, int));
}

bool IsLock(int command) {
  return command == F_SETLK || command == F_SETLKW || command == F_GETLK || command == F_OFD_SETLK ||
         command == F_OFD_SETLKW || command == F_OFD_GETLK;
}

bool IsDuplication(int command) {
  return command == F_DUPFD || command == F_DUPFD_CLOEXEC;
}

int Control(int descriptor, int command, void* argument, int (*real)(int, int, ...)) {
  const auto operation = [&] { return real(descriptor, command, argument); };
  if (IsDuplication(command)) {
    return Do(Call::kDuplicate, Own("fcntl"), -1, operation);
  }
  return IsLock(command) ? Do(Call::kLock, TargetOf(descriptor), -1, operation) : operation();
}

bool LacksMemory(std::size_t size) {
  if (!hasStarted || inShim || !FaultPlan::Get().WatchesMemory(size)) {
    return false;
  }
  const InShim shim;
  return FaultPlan::Get().CountMemory() != 0;
}

using Main = int (*)(int, char**, char**);
Main realMain = nullptr;

int StartedMain(int count, char** arguments, char** environment) {
  FaultPlan::Get().Start();
  hasStarted = true;
  return realMain(count, arguments, environment);
}

// So that the driver knows what was answered.
__attribute__((constructor)) void AnswerAtOnce() {
  std::setvbuf(stdout, nullptr, _IOLBF, 1 << 16);
}

}  // namespace

extern "C" {

int __libc_start_main(Main main, int count, char** arguments, void (*init)(), void (*fini)(), void (*end)(),
                      void* stack) {
  realMain = main;
  const auto real = reinterpret_cast<decltype(&__libc_start_main)>(dlsym(RTLD_NEXT, "__libc_start_main"));
  return real(StartedMain, count, arguments, init, fini, end, stack);
}

int open(const char* path, int flags, ...) {
  va_list rest;
  va_start(rest, flags);
  const mode_t mode = ModeOf(flags, rest);
  va_end(rest);
  return Do(Call::kOpen, TargetAt(path), -1, [&] { return REAL(open)(path, flags, mode); });
}

int open64(const char* path, int flags, ...) {
  va_list rest;
  va_start(rest, flags);
  const mode_t mode = ModeOf(flags, rest);
  va_end(rest);
  return Do(Call::kOpen, TargetAt(path), -1, [&] { return REAL(open64)(path, flags, mode); });
}

FILE* fopen(const char* path, const char* mode) {
  return Do(Call::kOpen, TargetAt(path), nullptr, [&] { return REAL(fopen)(path, mode); });
}

FILE* fopen64(const char* path, const char* mode) {
  return Do(Call::kOpen, TargetAt(path), nullptr, [&] { return REAL(fopen64)(path, mode); });
}

FILE* fdopen(int descriptor, const char* mode) noexcept {
  return Do(Call::kStream, TargetOf(descriptor), nullptr, [&] { return REAL(fdopen)(descriptor, mode); });
}

ssize_t read(int descriptor, void* data, std::size_t size) {
  return Transfer(Call::kRead, TargetOf(descriptor), size,
                  [&](std::size_t count) { return REAL(read)(descriptor, data, count); });
}

ssize_t pread64(int descriptor, void* data, std::size_t size, off64_t offset) {
  return Transfer(Call::kRead, TargetOf(descriptor), size,
                  [&](std::size_t count) { return REAL(pread64)(descriptor, data, count, offset); });
}

ssize_t pread(int descriptor, void* data, std::size_t size, off_t offset) {
  return pread64(descriptor, data, size, offset);
}

ssize_t recv(int descriptor, void* data, std::size_t size, int flags) {
  return Transfer(Call::kRead, TargetOf(descriptor), size,
                  [&](std::size_t count) { return REAL(recv)(descriptor, data, count, flags); });
}

// A stream that reads is a single call here: of a line, there is no half.
ssize_t __getdelim(char** line, std::size_t* capacity, int delimiter, FILE* stream) {
  const int number = FaultOf(Call::kRead, IsWatching() ? TargetOf(fileno(stream)) : Target{});
  if (number > 0) {
    errno = number;
    return -1;
  }
  return REAL(__getdelim)(line, capacity, delimiter, stream);
}

ssize_t getdelim(char** line, std::size_t* capacity, int delimiter, FILE* stream) {
  return __getdelim(line, capacity, delimiter, stream);
}

ssize_t getline(char** line, std::size_t* capacity, FILE* stream) {
  return __getdelim(line, capacity, '\n', stream);
}

ssize_t write(int descriptor, const void* data, std::size_t size) {
  return Transfer(Call::kWrite, TargetOf(descriptor), size,
                  [&](std::size_t count) { return REAL(write)(descriptor, data, count); });
}

ssize_t pwrite64(int descriptor, const void* data, std::size_t size, off64_t offset) {
  return Transfer(Call::kWrite, TargetOf(descriptor), size,
                  [&](std::size_t count) { return REAL(pwrite64)(descriptor, data, count, offset); });
}

ssize_t pwrite(int descriptor, const void* data, std::size_t size, off_t offset) {
  return pwrite64(descriptor, data, size, offset);
}

// Of several parts, the first ones that are half of all are as short a count as any.
ssize_t writev(int descriptor, const iovec* parts, int count) {
  const int number = FaultOf(Call::kWrite, TargetOf(descriptor));
  if (number == kShort) {
    return REAL(write)(descriptor, parts[0].iov_base, (parts[0].iov_len + 1) / 2);
  }
  if (number != 0) {
    errno = number;
    return -1;
  }
  return REAL(writev)(descriptor, parts, count);
}

ssize_t send(int descriptor, const void* data, std::size_t size, int flags) {
  return Transfer(Call::kWrite, TargetOf(descriptor), size,
                  [&](std::size_t count) { return REAL(send)(descriptor, data, count, flags); });
}

int fsync(int descriptor) {
  return Do(Call::kSync, TargetOf(descriptor), -1, [&] { return REAL(fsync)(descriptor); });
}

int fdatasync(int descriptor) {
  return Do(Call::kSync, TargetOf(descriptor), -1, [&] { return REAL(fdatasync)(descriptor); });
}

int ftruncate(int descriptor, off_t size) noexcept {
  return Do(Call::kTruncate, TargetOf(descriptor), -1, [&] { return REAL(ftruncate)(descriptor, size); });
}

int ftruncate64(int descriptor, off64_t size) noexcept {
  return Do(Call::kTruncate, TargetOf(descriptor), -1, [&] { return REAL(ftruncate64)(descriptor, size); });
}

int unlink(const char* path) noexcept {
  return Do(Call::kDelete, TargetAt(path), -1, [&] { return REAL(unlink)(path); });
}

int rename(const char* from, const char* to) noexcept {
  return Do(Call::kRename, TargetAt(to), -1, [&] { return REAL(rename)(from, to); });
}

int renameat2(int fromFolder, const char* from, int toFolder, const char* to, unsigned flags) noexcept {
  const Target target = TargetAt(to);
  if (target.place != Place::kNone && !FaultPlan::Get().RenamesWithFlags()) {
    errno = EINVAL;
    return -1;
  }
  return Do(Call::kRenameWithFlags, target, -1, [&] { return REAL(renameat2)(fromFolder, from, toFolder, to, flags); });
}

int link(const char* from, const char* to) noexcept {
  return Do(Call::kLink, TargetAt(to), -1, [&] { return REAL(link)(from, to); });
}

int chmod(const char* path, mode_t mode) noexcept {
  return Do(Call::kMode, TargetAt(path), -1, [&] { return REAL(chmod)(path, mode); });
}

int fchmod(int descriptor, mode_t mode) noexcept {
  return Do(Call::kMode, TargetOf(descriptor), -1, [&] { return REAL(fchmod)(descriptor, mode); });
}

int fchown(int descriptor, uid_t user, gid_t group) noexcept {
  return Do(Call::kMode, TargetOf(descriptor), -1, [&] { return REAL(fchown)(descriptor, user, group); });
}

int flock(int descriptor, int operation) noexcept {
  return Do(Call::kLock, TargetOf(descriptor), -1, [&] { return REAL(flock)(descriptor, operation); });
}

int fcntl(int descriptor, int command, ...) {
  va_list rest;
  va_start(rest, command);
  void* argument = va_arg(rest, void*);
  va_end(rest);
  return Control(descriptor, command, argument, REAL(fcntl));
}

int fcntl64(int descriptor, int command, ...) {
  va_list rest;
  va_start(rest, command);
  void* argument = va_arg(rest, void*);
  va_end(rest);
  return Control(descriptor, command, argument, REAL(fcntl64));
}

int stat(const char* path, struct stat* status) noexcept {
  return Do(Call::kStatus, TargetAt(path), -1, [&] { return REAL(stat)(path, status); });
}

int stat64(const char* path, struct stat64* status) noexcept {
  return Do(Call::kStatus, TargetAt(path), -1, [&] { return REAL(stat64)(path, status); });
}

int lstat(const char* path, struct stat* status) noexcept {
  return Do(Call::kStatus, TargetAt(path), -1, [&] { return REAL(lstat)(path, status); });
}

int lstat64(const char* path, struct stat64* status) noexcept {
  return Do(Call::kStatus, TargetAt(path), -1, [&] { return REAL(lstat64)(path, status); });
}

int fstat(int descriptor, struct stat* status) noexcept {
  return Do(Call::kStatus, TargetOf(descriptor), -1, [&] { return REAL(fstat)(descriptor, status); });
}

int fstat64(int descriptor, struct stat64* status) noexcept {
  return Do(Call::kStatus, TargetOf(descriptor), -1, [&] { return REAL(fstat64)(descriptor, status); });
}

int access(const char* path, int mode) noexcept {
  return Do(Call::kStatus, TargetAt(path), -1, [&] { return REAL(access)(path, mode); });
}

int eaccess(const char* path, int mode) noexcept {
  return Do(Call::kStatus, TargetAt(path), -1, [&] { return REAL(eaccess)(path, mode); });
}

DIR* opendir(const char* path) {
  return Do(Call::kList, TargetAt(path), nullptr, [&] { return REAL(opendir)(path); });
}

// The descriptor is closed all the same, as on Linux.
int close(int descriptor) {
  const int number = FaultOf(Call::kClose, TargetOf(descriptor));
  const int result = REAL(close)(descriptor);
  errno = number == 0 ? errno : number;
  return number == 0 ? result : -1;
}

int fclose(FILE* stream) {
  const int number = FaultOf(Call::kClose, IsWatching() ? TargetOf(fileno(stream)) : Target{});
  const int result = REAL(fclose)(stream);
  errno = number == 0 ? errno : number;
  return number == 0 ? result : EOF;
}

int memfd_create(const char* name, unsigned flags) noexcept {
  return Do(Call::kFileInMemory, Own("memfd_create"), -1, [&] { return REAL(memfd_create)(name, flags); });
}

// Not pipe(), by which sanitizers look whether memory can be read.
int pipe2(int ends[2], int flags) noexcept {
  return Do(Call::kPipe, Own("pipe2"), -1, [&] { return REAL(pipe2)(ends, flags); });
}

int socketpair(int domain, int type, int protocol, int ends[2]) noexcept {
  return Do(Call::kSocketPair, Own("socketpair"), -1, [&] { return REAL(socketpair)(domain, type, protocol, ends); });
}

int dup(int descriptor) noexcept {
  return Do(Call::kDuplicate, Own("dup"), -1, [&] { return REAL(dup)(descriptor); });
}

int dup2(int from, int to) noexcept {
  return Do(Call::kDuplicate, Own("dup2"), -1, [&] { return REAL(dup2)(from, to); });
}

int dup3(int from, int to, int flags) noexcept {
  return Do(Call::kDuplicate, Own("dup3"), -1, [&] { return REAL(dup3)(from, to, flags); });
}

void* mmap(void* address, std::size_t size, int protection, int flags, int descriptor, off_t offset) noexcept {
  const Target target = descriptor < 0 ? Own("mmap") : TargetOf(descriptor);
  return Do(Call::kMap, target, MAP_FAILED,
            [&] { return REAL(mmap)(address, size, protection, flags, descriptor, offset); });
}

void* mmap64(void* address, std::size_t size, int protection, int flags, int descriptor, off64_t offset) noexcept {
  const Target target = descriptor < 0 ? Own("mmap") : TargetOf(descriptor);
  return Do(Call::kMap, target, MAP_FAILED,
            [&] { return REAL(mmap64)(address, size, protection, flags, descriptor, offset); });
}

pid_t fork() noexcept {
  const pid_t child = Do(Call::kFork, Own("fork"), -1, [&] { return REAL(fork)(); });
  if (child == 0) {
    FaultPlan::Get().EnterChild();
  }
  return child;
}

void* malloc(std::size_t size) noexcept {
  return LacksMemory(size) ? (errno = ENOMEM, nullptr) : __libc_malloc(size);
}

void* calloc(std::size_t count, std::size_t size) noexcept {
  return LacksMemory(count * size) ? (errno = ENOMEM, nullptr) : __libc_calloc(count, size);
}

void* realloc(void* memory, std::size_t size) noexcept {
  return LacksMemory(size) ? (errno = ENOMEM, nullptr) : __libc_realloc(memory, size);
}

}  // extern "C"
