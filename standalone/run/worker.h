#ifndef STANDALONE_RUN_WORKER_H
#define STANDALONE_RUN_WORKER_H

#include <sys/types.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "standalone/files/descriptor.h"
#include "standalone/language/script.h"
#include "standalone/run/events.h"

namespace standalone {

/// A child process that runs commands, one after the other. It ends with the process that made it.
///
/// What a command tells is written to a file in memory that both processes have, and so is there however the child
/// ends. Nobody but the child waits while a transaction is open.
class Worker {
 public:
  /// Runs one command; whether it changed the dataset.
  using RunCommand = std::function<bool(const ScriptCommand& command)>;

  /// Called in the child, once. `tell` takes what a command tells. `notify` shows a sentence on the standard error of
  /// the process that made the child, at once. An exception of either function ends the work and is passed on.
  using Begin =
      std::function<RunCommand(const Tell& tell, const std::function<void(const std::string& sentence)>& notify)>;

  /// Throws Error.
  explicit Worker(const Begin& begin);
  Worker(const Worker&) = delete;
  Worker& operator=(const Worker&) = delete;

  /// Ends the child if it still runs.
  ~Worker();

  /// Runs a command and waits for its end: whether it changed the dataset; nothing where the child ended first. Throws
  /// Error where no further command can be run.
  std::optional<bool> Run(const ScriptCommand& command);

  /// What the last command told, up to where the child ended in it. Throws Error.
  std::vector<Event> Output() const;

  /// Lets the child end, as it does when there is no further command.
  void Finish();

  /// After the child's end: what it wrote to standard error or, where that is nothing, how it ended. Empty for a child
  /// that ended well and wrote nothing.
  std::string LastWords() const;

  /// After the child's end: whether it ended by itself and not well, as it does for want of resources.
  bool HasGivenUp() const;

 private:
  [[noreturn]] void ThrowReceivedError() const;
  bool Send(const std::string& bytes) const;
  void WaitForEnd();
  [[noreturn]] void FailToReadResults();

  Descriptor fOutput;         // file in memory: what the running command told
  Descriptor fStandardError;  // file in memory
  Descriptor fChannel;        // commands to the child; an Outcome for each back
  pid_t fChild = -1;
  std::optional<int> fStatus;
  bool fIsFinished = false;  // it was to end
};

}  // namespace standalone

#endif  // STANDALONE_RUN_WORKER_H
