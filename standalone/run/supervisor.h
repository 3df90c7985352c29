#ifndef STANDALONE_RUN_SUPERVISOR_H
#define STANDALONE_RUN_SUPERVISOR_H

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "standalone/data/dataset.h"
#include "standalone/language/script.h"
#include "standalone/output/items.h"
#include "standalone/run/run_error.h"

namespace standalone {

struct RunRequest {
  std::string datasetPath;
  std::vector<ScriptCommand> commands;
  bool dryRun = false;
  bool stopOnError = false;
  DatasetOptions datasetOptions = {};  ///< what is to be told of goes to standard error
};

/// Takes the result of a command; false where no further command is to be run.
using HandOver = std::function<bool(const CommandResult&)>;

/// Runs the commands in their order and hands over the result of each when it is complete. The commands run in a
/// process of their own, which is replaced when one of them ends it; so that costs exactly that command. Returns how
/// many commands changed the dataset, those among them that were saved and not handed over any more. Throws RunError.
std::size_t RunCommands(const RunRequest& request, const HandOver& handOver);

/// Runs commands that come one after another, as RunCommands() does, but without ending when a dataset cannot be used:
/// the next command finds what is there then.
class LiveRun {
 public:
  /// `request` holds no command yet and does not stop on errors.
  explicit LiveRun(RunRequest request);
  LiveRun(const LiveRun&) = delete;
  LiveRun& operator=(const LiveRun&) = delete;
  ~LiveRun();

  /// The result of a command, when it is complete. Throws RunError where it could not be run.
  CommandResult Run(const ScriptCommand& command);

  /// Lets the process in which the commands run end.
  void Finish();

 private:
  class Implementation;
  std::unique_ptr<Implementation> fImplementation;
};

}  // namespace standalone

#endif  // STANDALONE_RUN_SUPERVISOR_H
