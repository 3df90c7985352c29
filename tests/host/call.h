#ifndef TESTS_HOST_CALL_H
#define TESTS_HOST_CALL_H

#include <cstdint>
#include <string>

#include "tests/host/core.h"
#include "tests/host/pause.h"
#include "tests/host/trace.h"

namespace scripted {

/// One call of the host, from its beginning to its return: counts it, records it, and throws when it is the one to
/// fail.
class Call {
 public:
  /// The parts are what the line of the trace consists of. Without a core nothing is recorded and nothing fails.
  template <class... Parts>
  explicit Call(Core* core, const Parts&... parts) : fCore(core) {
    if (core == nullptr || IsQuiet()) {
      return;
    }
    if (core->tracing) {
      fLine = core->record->trace.size();
      std::string& line = core->record->trace.emplace_back();
      (Put(line, parts), ...);
      fHasLine = true;
    }
    CountAndThrow();
  }

  template <class... Parts>
  explicit Call(Core& core, const Parts&... parts) : Call(&core, parts...) {}

  Call(const Call&) = delete;
  Call& operator=(const Call&) = delete;
  ~Call() = default;

  /// Records the result.
  template <class... Parts>
  void Returns(const Parts&... parts) {
    if (fHasLine) {
      Line() += " -> ";
      (Put(Line(), parts), ...);
    }
  }

  /// Records the object that the call made.
  std::intptr_t Made(std::intptr_t handle) {
    if (fHasLine) {
      Line().insert(0, fCore->record->ledger.Name(handle) + " = ");
    }
    return handle;
  }

  /// Does work whose allocations are the caller's, and returns its result.
  template <class Work>
  auto ForCaller(Work work) {
    try {
      const CallersWork callers;
      return work();
    } catch (...) {
      Throws();
      throw;
    }
  }

 private:
  void CountAndThrow();
  void Throws() {
    if (fHasLine) {
      Line() += " throws";
    }
  }
  std::string& Line() { return fCore->record->trace[fLine]; }

  HostWork fWork;  // first, so that it also covers what the constructor does
  Core* fCore;
  std::size_t fLine = 0;
  bool fHasLine = false;
};

/// The release of an object by its destructor.
void Release(std::intptr_t handle);

/// The live object of a handle; records a violation and returns null when there is none.
const Object* Use(Core& core, std::intptr_t handle, Kind kind);
TextRecord* UseText(Core& core, std::intptr_t handle);

/// The text as it is now; empty when there is none.
TextData Snapshot(Core& core, std::intptr_t handle);

}  // namespace scripted

#endif  // TESTS_HOST_CALL_H
