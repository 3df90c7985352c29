#ifndef STANDALONE_RUN_WORKER_H
#define STANDALONE_RUN_WORKER_H

#include <sys/types.h>

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "standalone/data/descriptor.h"
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

  /// Starts `work` in a child. Throws RunError.
  explicit Worker(const std::function<void(const Tell& tell)>& work);
  Worker(const Worker&) = delete;
  Worker& operator=(const Worker&) = delete;

  /// Ends the child if it still runs.
  ~Worker();

  /// Asks the child to begin no further command, and to give up one that it has not begun to save.
  void Interrupt();

  /// The next event; nothing once the child has ended. Throws RunError.
  std::optional<Event> Receive();

  /// After Receive() gave nothing: all events of the command in which the child ended. Throws RunError.
  std::vector<Event> EventsOfLastCommand() const;

  /// After Receive() gave nothing: what the child wrote to standard error or, where that is nothing, how it ended.
  /// Empty for a child that ended well and wrote nothing.
  std::string LastWords() const;

  /// After Receive() gave nothing: whether the child ended by itself and not well, as it does for want of resources.
  bool HasGivenUp() const;

 private:
  void WaitForEnd();

  Descriptor fCurrentCommand;  // file in memory with the events of the running command
  Descriptor fStandardError;   // file in memory
  Descriptor fEvents;
  std::string fReceived;
  std::size_t fTaken = 0;  // of what was received
  pid_t fChild = -1;
  std::optional<int> fStatus;
};

}  // namespace standalone

#endif  // STANDALONE_RUN_WORKER_H
