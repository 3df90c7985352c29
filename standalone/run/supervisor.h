#ifndef STANDALONE_RUN_SUPERVISOR_H
#define STANDALONE_RUN_SUPERVISOR_H

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "standalone/language/script.h"
#include "standalone/output/items.h"
#include "standalone/run/tabulate_run.h"
#include "standalone/run/worker.h"
#include "standalone/storage/dataset_options.h"
#include "standalone/text/error.h"

namespace standalone {

struct RunRequest {
  std::string datasetPath;
  bool dryRun = false;
  DatasetOptions datasetOptions = {};  ///< what is to be told of goes to standard error
  BeginCounting beginCounting = {};    ///< is called in the process of the commands
};

/// Runs commands in a process of their own, which is replaced when a command ends it; so that costs exactly that
/// command.
class Supervisor {
 public:
  explicit Supervisor(RunRequest request) : fRequest(std::move(request)) {}

  /// The result of a command, when it is complete. Throws Error where it could not be run; the next command finds
  /// what is there then.
  CommandResult Run(const ScriptCommand& command);

  /// Lets the process end, and passes on what it wrote to standard error.
  void Finish();

 private:
  void StartWorker();
  CommandResult RunInWorker(const ScriptCommand& command);
  CommandResult Result(const ScriptCommand& command, const Worker& worker) const;
  void Abort(CommandResult& result);

  RunRequest fRequest;
  std::unique_ptr<Worker> fWorker;
  std::size_t fCount = 0;                 // of the commands that ran
  std::vector<ScriptCommand> fRehearsed;  // of a dry run: those that were not aborted
};

}  // namespace standalone

#endif  // STANDALONE_RUN_SUPERVISOR_H
