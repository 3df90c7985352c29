#ifndef TESTS_CRASH_SHIM_FAULT_PLAN_H
#define TESTS_CRASH_SHIM_FAULT_PLAN_H

#include <string>
#include <vector>

namespace crash {

/// What a call acts on: a file or folder of the scenario, or what the program made for itself (pipes, sockets, files in
/// memory). A fault that stays is one of the disk or one of the program's own.
enum class Place { kNone, kFolder, kOwn };

struct Target {
  Place place = Place::kNone;
  std::string name;
};

enum class Call {
  kOpen,
  kRead,
  kWrite,
  kSync,
  kTruncate,
  kDelete,
  kRename,
  kRenameWithFlags,
  kLink,
  kMode,
  kLock,
  kStatus,
  kList,
  kClose,
  kFileInMemory,
  kPipe,
  kSocketPair,
  kFork,
  kDuplicate,
  kMap,
  kStream,
  kMemory,
};

/// Instead of an errno: only the first half is read or written, which is no failure.
constexpr int kShort = -1;

/// What the environment asks for, and the count of calls of each process of the program.
///
///   MRSET_FAULT_FOLDER   calls on what is in this folder are counted, and those by which the program makes its own
///                        pipes, processes and files in memory
///   MRSET_FAULT_STATE    file of kStateSize zero bytes, shared by the processes
///   MRSET_FAULT_PROCESS  number of the process that meets the fault: 0 is the program, then come its children
///   MRSET_FAULT_AT       number of the call of that process that fails, from 1; none: only count
///   MRSET_FAULT_ERROR    EIO and so on, or short
///   MRSET_FAULT_STAYS    1: from then on all calls fail that can fail so
///   MRSET_FAULT_MEMORY   count allocations of at least so many bytes, too
///   MRSET_FAULT_WITHOUT_FLAGS  1: renaming with flags fails always, as on some file systems, and is not counted
///   MRSET_FAULT_TRACE    file to which each call is written as a line: process, number, kind, errors, name
class FaultPlan {
 public:
  static FaultPlan& Get();

  /// From the beginning of main().
  void Start() { fStarted = fState != nullptr; }
  bool IsOn() const { return fStarted; }

  bool Watches(const std::string& path) const;
  bool WatchesMemory(std::size_t size) const { return fStarted && fMemory != 0 && size >= fMemory; }

  bool RenamesWithFlags() const { return !fWithoutFlags; }

  /// Counts a call; the errno with which it must fail, kShort, or 0.
  int Count(Call call, const Target& target);
  int CountMemory();

  /// In a child.
  void EnterChild();

 private:
  struct State;

  FaultPlan();
  int Meet(bool canFailSo, Place place, const char* kind, const std::string& name);

  std::string fFolder;
  State* fState = nullptr;
  bool fStarted = false;
  int fProcess = 0;
  int fAtProcess = 0;
  long fAt = 0;
  int fError = 0;
  bool fStays = false;
  std::size_t fMemory = 0;
  bool fWithoutFlags = false;
  int fTrace = -1;
};

}  // namespace crash

#endif  // TESTS_CRASH_SHIM_FAULT_PLAN_H
