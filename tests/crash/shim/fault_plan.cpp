#include "tests/crash/shim/fault_plan.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace crash {

namespace {

constexpr std::size_t kStateSize = 4096;
constexpr int kMostProcesses = 8;
constexpr std::size_t kMostErrors = 4;

struct CallKind {
  Call call;
  const char* name;
  std::array<int, kMostErrors> onFolder;
  std::array<int, kMostErrors> onOwn;
};

// EINTR and a short count are no failures; what calls again must do so.
constexpr CallKind kCallKinds[] = {
    {Call::kOpen, "open", {EACCES, EIO, EMFILE}, {}},
    {Call::kRead, "read", {EIO, EINTR, kShort}, {EIO, EINTR, kShort}},
    {Call::kWrite, "write", {EIO, ENOSPC, EINTR, kShort}, {EIO, ENOSPC, EINTR, kShort}},
    {Call::kSync, "sync", {EIO}, {EIO}},
    {Call::kTruncate, "truncate", {EIO}, {EIO}},
    {Call::kDelete, "delete", {EIO}, {}},
    {Call::kRename, "rename", {EIO, ENOSPC}, {}},
    {Call::kRenameWithFlags, "rename-with-flags", {EIO, ENOSPC, EINVAL}, {}},
    {Call::kLink, "link", {EIO, ENOSPC}, {}},
    {Call::kMode, "mode", {EIO, EPERM}, {}},
    {Call::kLock, "lock", {EIO}, {}},
    {Call::kStatus, "status", {EIO}, {}},
    {Call::kList, "list", {EACCES, EMFILE}, {}},
    {Call::kClose, "close", {EIO}, {EIO}},
    {Call::kFileInMemory, "memfd", {}, {EMFILE}},
    {Call::kPipe, "pipe", {}, {EMFILE}},
    {Call::kSocketPair, "socketpair", {}, {EMFILE}},
    {Call::kFork, "fork", {}, {EAGAIN}},
    {Call::kDuplicate, "dup", {EMFILE}, {EMFILE}},
    {Call::kMap, "map", {ENOMEM}, {ENOMEM}},
    {Call::kStream, "stream", {}, {ENOMEM}},
    {Call::kMemory, "memory", {}, {ENOMEM}},
};

struct ErrorName {
  int number;
  const char* name;
};

constexpr ErrorName kErrorNames[] = {
    {EIO, "EIO"},       {ENOSPC, "ENOSPC"}, {EACCES, "EACCES"}, {EMFILE, "EMFILE"}, {EINTR, "EINTR"},
    {EINVAL, "EINVAL"}, {EPERM, "EPERM"},   {EAGAIN, "EAGAIN"}, {ENOMEM, "ENOMEM"}, {kShort, "short"},
};

const char* Environment(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? "" : value;
}

int ErrorNamed(const char* name) {
  for (const ErrorName& error : kErrorNames) {
    if (std::strcmp(error.name, name) == 0) {
      return error.number;
    }
  }
  return 0;
}

const char* NameOf(int number) {
  for (const ErrorName& error : kErrorNames) {
    if (error.number == number) {
      return error.name;
    }
  }
  return "";
}

const CallKind& KindOf(Call call) {
  return kCallKinds[static_cast<std::size_t>(call)];
}

const std::array<int, kMostErrors>& ErrorsOf(const CallKind& kind, Place place) {
  return place == Place::kFolder ? kind.onFolder : kind.onOwn;
}

bool CanFailBy(const std::array<int, kMostErrors>& errors, int number) {
  return number != 0 && std::find(errors.begin(), errors.end(), number) != errors.end();
}

/// Where there are no descriptors left, there are none for anything.
bool IsOfAllPlaces(int number) {
  return number == EMFILE || number == ENOMEM;
}

void* Map(const char* path) {
  const int descriptor = open(path, O_RDWR | O_CLOEXEC);
  void* memory = mmap(nullptr, kStateSize, PROT_READ | PROT_WRITE, MAP_SHARED, descriptor, 0);
  if (memory == MAP_FAILED) {
    std::perror("MRSET_FAULT_STATE");
    std::abort();
  }
  close(descriptor);
  return memory;
}

}  // namespace

// Read by the driver: the layout is part of the contract.
struct FaultPlan::State {
  std::atomic<std::int32_t> processes;
  std::atomic<std::int32_t> place;     // of the fault, once it was met
  std::atomic<std::int32_t> injected;  // calls that failed
  std::atomic<std::int64_t> calls[kMostProcesses];
  char what[256];
};

FaultPlan& FaultPlan::Get() {
  static FaultPlan plan;
  return plan;
}

FaultPlan::FaultPlan()
    : fFolder(Environment("MRSET_FAULT_FOLDER")),
      fAtProcess(std::atoi(Environment("MRSET_FAULT_PROCESS"))),
      fAt(std::atol(Environment("MRSET_FAULT_AT"))),
      fError(ErrorNamed(Environment("MRSET_FAULT_ERROR"))),
      fStays(*Environment("MRSET_FAULT_STAYS") == '1'),
      fMemory(static_cast<std::size_t>(std::atol(Environment("MRSET_FAULT_MEMORY")))),
      fWithoutFlags(*Environment("MRSET_FAULT_WITHOUT_FLAGS") == '1') {
  static_assert(sizeof(State) <= kStateSize);
  if (const char* path = Environment("MRSET_FAULT_STATE"); *path != '\0') {
    fState = static_cast<State*>(Map(path));
  }
  if (const char* path = Environment("MRSET_FAULT_TRACE"); *path != '\0') {
    fTrace = open(path, O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0666);
  }
}

bool FaultPlan::Watches(const std::string& path) const {
  return fStarted && !fFolder.empty() && path.compare(0, fFolder.size(), fFolder) == 0 &&
         (path.size() == fFolder.size() || path[fFolder.size()] == '/');
}

int FaultPlan::Count(Call call, const Target& target) {
  const CallKind& kind = KindOf(call);
  const std::array<int, kMostErrors>& errors = ErrorsOf(kind, target.place);
  if (fTrace >= 0) {
    std::string list;
    for (const int number : errors) {
      list += number == 0 ? "" : (list.empty() ? "" : ",") + std::string(NameOf(number));
    }
    dprintf(fTrace, "%d %ld %s %s %s\n", fProcess, static_cast<long>(fState->calls[fProcess] + 1), kind.name,
            list.empty() ? "-" : list.c_str(), target.name.c_str());
  }
  return Meet(CanFailBy(errors, fError), target.place, kind.name, target.name);
}

// Without an allocation of its own.
int FaultPlan::CountMemory() {
  if (fTrace >= 0) {
    dprintf(fTrace, "%d %ld memory ENOMEM -\n", fProcess, static_cast<long>(fState->calls[fProcess] + 1));
  }
  static const std::string none;
  return Meet(fError == ENOMEM, Place::kOwn, "memory", none);
}

int FaultPlan::Meet(bool canFailSo, Place place, const char* kind, const std::string& name) {
  const std::int64_t number = ++fState->calls[fProcess];
  const bool isFirst = fProcess == fAtProcess && number == fAt && canFailSo;
  const bool stays =
      fStays && canFailSo && fState->place != 0 && (IsOfAllPlaces(fError) || fState->place == static_cast<int>(place));
  if (!isFirst && !stays) {
    return 0;
  }
  if (isFirst) {
    fState->place = static_cast<int>(place);
    std::snprintf(&fState->what[0], sizeof fState->what, "%s %s", kind, name.c_str());
  }
  ++fState->injected;
  return fError;
}

void FaultPlan::EnterChild() {
  if (fState != nullptr) {
    fProcess = std::min(++fState->processes, kMostProcesses - 1);
  }
}

}  // namespace crash
