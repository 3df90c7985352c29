#ifndef STANDALONE_RUN_COMMAND_RUNNER_H
#define STANDALONE_RUN_COMMAND_RUNNER_H

#include <optional>
#include <string>
#include <vector>

#include "standalone/dataset/dataset.h"
#include "standalone/host/command_context.h"
#include "standalone/host/set_exchange.h"
#include "standalone/language/script.h"
#include "standalone/run/events.h"
#include "standalone/run/module.h"
#include "standalone/run/tabulate_run.h"

namespace standalone {

/// Runs commands on a dataset in this process, one transaction each. A failed assertion of the module ends the process.
class CommandRunner {
 public:
  /// Opens the dataset. In a dry run nothing is written, and each command finds the sets that the one before it left.
  /// Throws Error.
  CommandRunner(const std::string& datasetPath, bool dryRun, Tell tell, const DatasetOptions& options = {},
                BeginCounting beginCounting = {});

  /// Runs one command, telling all that it puts out. Whether it changed the dataset. Throws Error.
  bool Run(const ScriptCommand& command);

 private:
  bool RunMrset(const ScriptCommand& command, const std::vector<Token>& tokens);
  void Tabulate(const ScriptCommand& command, const std::vector<Token>& tokens);
  Dataset::Saved TryRun(const ScriptCommand& command, const std::vector<Token>& tokens, Access access);
  void GiveHints(const SetList& before, const SetList& after);

  Dataset fDataset;
  bool fDryRun;
  std::optional<SetList> fDryRunSets;  // none before a command saved
  SetExchange fExchange;
  Tell fTell;
  BeginCounting fBeginCounting;
  OutputSink fSink;
  CommandEntry fMrset = nullptr;  // loaded by the first command that needs it
};

}  // namespace standalone

#endif  // STANDALONE_RUN_COMMAND_RUNNER_H
