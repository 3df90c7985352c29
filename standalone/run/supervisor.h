#ifndef STANDALONE_RUN_SUPERVISOR_H
#define STANDALONE_RUN_SUPERVISOR_H

#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include "standalone/data/dataset.h"
#include "standalone/language/script.h"
#include "standalone/output/items.h"

namespace standalone {

/// Why no command can be run any more; what() is one sentence.
class RunError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

struct RunRequest {
  std::string datasetPath;
  std::vector<ScriptCommand> commands;
  bool dryRun = false;
  bool stopOnError = false;
  DatasetOptions datasetOptions = {};  ///< what is to be told of goes to standard error
};

/// Runs the commands in their order and hands over the result of each when it is complete. The commands run in a
/// process of their own, which is replaced when one of them ends it; so that costs exactly that command. Throws
/// RunError.
void RunCommands(const RunRequest& request, const std::function<void(const CommandResult&)>& handOver);

}  // namespace standalone

#endif  // STANDALONE_RUN_SUPERVISOR_H
