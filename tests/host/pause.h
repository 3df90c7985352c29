#ifndef TESTS_HOST_PAUSE_H
#define TESTS_HOST_PAUSE_H

namespace scripted {

/// Whether the host is at work for itself, so that its allocations are not those of the code under test.
bool IsHostAtWork();

/// The host is at work while one is alive.
class HostWork {
 public:
  HostWork();
  HostWork(const HostWork&) = delete;
  HostWork& operator=(const HostWork&) = delete;
  ~HostWork();
};

/// Directly within HostWork: what is allocated while one is alive is for the caller, who may be the host at work.
class CallersWork {
 public:
  CallersWork();
  CallersWork(const CallersWork&) = delete;
  CallersWork& operator=(const CallersWork&) = delete;
  ~CallersWork();
};

}  // namespace scripted

#endif  // TESTS_HOST_PAUSE_H
