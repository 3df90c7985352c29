#include "tests/crash/shim/plan.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "tests/crash/shim/power_loss.h"

namespace crash {

namespace {

constexpr std::size_t kStateSize = 4096;
constexpr int kMostProcesses = 64;

const char* Environment(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? "" : value;
}

Moment MomentOf(const std::string& name) {
  return name == "before"   ? Moment::kBefore
         : name == "middle" ? Moment::kMiddle
         : name == "after"  ? Moment::kAfter
         : name == "end"    ? Moment::kEnd
                            : Moment::kNever;
}

void* Map(const char* path) {
  const int descriptor = open(path, O_RDWR | O_CLOEXEC);
  void* memory = mmap(nullptr, kStateSize, PROT_READ | PROT_WRITE, MAP_SHARED, descriptor, 0);
  if (memory == MAP_FAILED) {
    std::perror("MRSET_CRASH_STATE");
    std::abort();
  }
  close(descriptor);
  return memory;
}

}  // namespace

// Read by the driver: the layout is part of the contract.
struct Plan::State {
  std::atomic<std::int64_t> operations;
  std::atomic<std::int32_t> killed;
  std::atomic<std::int32_t> processCount;
  std::atomic<std::int64_t> ofKind[8];
  char what[256];
  std::atomic<pid_t> processes[kMostProcesses];
};

Plan& Plan::Get() {
  static Plan plan;
  return plan;
}

Plan::Plan()
    : fFolder(Environment("MRSET_CRASH_FOLDER")),
      fAt(std::atol(Environment("MRSET_CRASH_AT"))),
      fMoment(MomentOf(Environment("MRSET_CRASH_MOMENT"))),
      fEndsGroup(std::strcmp(Environment("MRSET_CRASH_KILL"), "process") != 0),
      fLosesPower(std::strcmp(Environment("MRSET_CRASH_KILL"), "power") == 0),
      fSeed(static_cast<unsigned>(std::atol(Environment("MRSET_CRASH_SEED")))) {
  static_assert(sizeof(State) <= kStateSize);
  if (const char* path = Environment("MRSET_CRASH_STATE"); *path != '\0') {
    fState = static_cast<State*>(Map(path));
    AddProcess(getpid());
  }
  if (const char* path = Environment("MRSET_CRASH_TRACE"); *path != '\0') {
    // Not by open(), which the shim takes the place of, and which would ask for this plan while it is being made.
    fTrace = static_cast<int>(syscall(SYS_openat, AT_FDCWD, path, O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0666));
  }
}

bool Plan::Watches(const std::string& path) const {
  return fState != nullptr && !fFolder.empty() && path.compare(0, fFolder.size(), fFolder) == 0 &&
         (path.size() == fFolder.size() || path[fFolder.size()] == '/');
}

Moment Plan::Count(Kind kind, const std::string& what) {
  const std::int64_t number = ++fState->operations;
  ++fState->ofKind[static_cast<int>(kind)];
  if (fTrace >= 0) {
    dprintf(fTrace, "%ld %d %s\n", static_cast<long>(number), getpid(), what.c_str());
  }
  const bool isMiddleOfNothing = fMoment == Moment::kMiddle && kind != Kind::kWrite;
  if (number != fAt || isMiddleOfNothing) {
    return Moment::kNever;
  }
  std::strncpy(fState->what, what.c_str(), sizeof fState->what - 1);
  return fMoment;
}

void Plan::AddProcess(pid_t child) {
  const int index = fState->processCount++;
  if (index >= kMostProcesses) {
    std::abort();
  }
  fState->processes[index] = child;
}

// The others must neither notice the death of this process nor go on while it loses what power loses.
void Plan::StopTheOthers() {
  for (int index = 0; index < fState->processCount; ++index) {
    const pid_t process = fState->processes[index];
    if (process != getpid()) {
      kill(process, SIGSTOP);
    }
  }
}

void Plan::LosePowerAtEnd() {
  if (fState != nullptr && fMoment == Moment::kEnd) {
    PowerLoss::Get().Lose(fSeed);
  }
}

void Plan::Kill() {
  fState->killed = 1;
  if (fLosesPower) {
    StopTheOthers();
    PowerLoss::Get().Lose(fSeed);
  }
  kill(fEndsGroup ? 0 : getpid(), SIGKILL);
  while (true) {
    pause();
  }
}

long Plan::Operations() const {
  return static_cast<long>(fState->operations);
}

}  // namespace crash
