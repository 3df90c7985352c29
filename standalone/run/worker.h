#ifndef STANDALONE_RUN_WORKER_H
#define STANDALONE_RUN_WORKER_H

#include <sys/types.h>

#include <cstdio>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "standalone/run/events.h"

namespace standalone {

/// A child process that runs commands and tells about them in events. It ends with the process that made it.
///
/// The events of a command are sent when the command is over, so that nobody waits for a reader while a transaction is
/// open. Until then they stand where this process finds them if the child is ended by a failed assertion. What is
/// Noticed goes to standard error at once, and nowhere else.
class Worker {
 public:
  using Tell = std::function<void(const Event&)>;

  /// Starts `work` in a child. Throws std::system_error.
  explicit Worker(const std::function<void(const Tell& tell)>& work);
  Worker(const Worker&) = delete;
  Worker& operator=(const Worker&) = delete;

  /// Ends the child if it still runs.
  ~Worker();

  /// The next event; nothing once the child has ended.
  std::optional<Event> Receive();

  /// After Receive() gave nothing: all events of the command in which the child ended.
  std::vector<Event> EventsOfLastCommand() const;

  /// After Receive() gave nothing: what the child wrote to standard error or, where that is nothing, how it ended.
  /// Empty for a child that ended well and wrote nothing.
  std::string LastWords() const;

 private:
  void WaitForEnd();

  pid_t fChild = -1;
  std::FILE* fEvents = nullptr;
  int fCurrentCommand = -1;  // file in memory with the events of the running command
  int fStandardError = -1;   // file in memory
  std::optional<int> fStatus;
};

}  // namespace standalone

#endif  // STANDALONE_RUN_WORKER_H
