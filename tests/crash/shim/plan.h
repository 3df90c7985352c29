#ifndef TESTS_CRASH_SHIM_PLAN_H
#define TESTS_CRASH_SHIM_PLAN_H

#include <sys/types.h>

#include <string>

namespace crash {

enum class Kind { kCreate, kWrite, kSync, kTruncate, kDelete, kRename, kKindCount };

enum class Moment { kNever, kBefore, kMiddle, kAfter, kEnd };

/// What the environment asks for, and the count of operations that all processes of the program share.
///
///   MRSET_CRASH_FOLDER  only what happens to files in this folder is counted
///   MRSET_CRASH_STATE   file of kStateSize zero bytes: the count, the processes, and what was met by the kill
///   MRSET_CRASH_AT      number of the operation at which to kill, from 1; none: only count
///   MRSET_CRASH_MOMENT  before, middle (only of a write) or after; or end: nothing is killed, and what a process did
///                       and did not sync is lost when it has ended by itself
///   MRSET_CRASH_KILL    process (that which does the operation), group (all of the program), power (all of it, and
///                       what was not synced is lost in part)
///   MRSET_CRASH_SEED    what power loses
///   MRSET_CRASH_TRACE   file to which every operation is written as a line
///
/// Without MRSET_CRASH_STATE the shim does nothing but flush standard output at each line.
class Plan {
 public:
  /// Of this process, read at its first use.
  static Plan& Get();

  bool IsActive() const { return fState != nullptr; }
  bool LosesPower() const { return fLosesPower; }
  unsigned Seed() const { return fSeed; }
  bool Watches(const std::string& path) const;

  /// Counts an operation; the moment at which it must be met by the kill. `what` is kept if it is.
  Moment Count(Kind kind, const std::string& what);

  /// Makes a child known to the kill that ends all processes.
  void AddProcess(pid_t child);

  /// Where power is lost at the end: at the end of a process, whose exit status stays as it is.
  void LosePowerAtEnd();

  /// Ends this process, or all of the program, at once.
  [[noreturn]] void Kill();

  /// The operations so far.
  long Operations() const;

 private:
  struct State;

  Plan();
  void StopTheOthers();

  std::string fFolder;
  State* fState = nullptr;
  long fAt = 0;
  Moment fMoment = Moment::kNever;
  bool fEndsGroup = false;
  bool fLosesPower = false;
  unsigned fSeed = 0;
  int fTrace = -1;
};

}  // namespace crash

#endif  // TESTS_CRASH_SHIM_PLAN_H
