#ifndef STANDALONE_RUN_WORKER_H
#define STANDALONE_RUN_WORKER_H

#include <sys/types.h>

#include <cstddef>
#include <cstdio>
#include <functional>
#include <optional>
#include <string>

#include "standalone/run/events.h"

namespace standalone {

/// A child process that does some work and tells about it in events. What it writes to standard error is kept.
class Worker {
 public:
  /// Starts `work` in a child, with a function that sends an event to this process. The child ends with the work.
  explicit Worker(const std::function<void(const std::function<void(const Event&)>& tell)>& work);
  Worker(const Worker&) = delete;
  Worker& operator=(const Worker&) = delete;

  /// Ends the child if it still runs.
  ~Worker();

  /// The next event; nothing once the child has ended.
  std::optional<Event> Receive();

  /// After Receive() gave nothing: what the child wrote to standard error or, where that is nothing, how it ended.
  /// Empty for a child that ended well and wrote nothing.
  std::string LastWords();

 private:
  pid_t fChild = -1;
  std::FILE* fEvents = nullptr;
  int fStandardError = -1;
  std::optional<int> fStatus;
};

}  // namespace standalone

#endif  // STANDALONE_RUN_WORKER_H
