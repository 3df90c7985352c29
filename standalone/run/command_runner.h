#ifndef STANDALONE_RUN_COMMAND_RUNNER_H
#define STANDALONE_RUN_COMMAND_RUNNER_H

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "standalone/data/dataset.h"
#include "standalone/host/session.h"
#include "standalone/host/set_exchange.h"
#include "standalone/language/script.h"
#include "standalone/run/choice_hints.h"
#include "standalone/run/events.h"
#include "standalone/run/module.h"

namespace standalone {

/// Runs commands on a dataset in this process, one transaction each. A failed assertion of the module ends the process.
class CommandRunner {
 public:
  using Tell = std::function<void(const Event&)>;

  /// Opens the dataset. In a dry run nothing is written, and each command finds the sets that the one before it left.
  /// Throws DatasetError.
  CommandRunner(const std::string& datasetPath, bool dryRun, Tell tell, const DatasetOptions& options = {});

  /// Runs one command, telling all that it puts out and at last CommandDone with its index. False when it put out an
  /// error. Throws DatasetError and ModuleError.
  bool Run(const ScriptCommand& command, std::size_t index);

 private:
  void TellDone(std::size_t index);
  void RunTokens(const ScriptCommand& command, const std::vector<Token>& tokens);
  bool TryRun(const ScriptCommand& command, const std::vector<Token>& tokens, bool exclusive);
  void GiveHints(const SetList& before, const SetList& after);
  void TellItem(const Item& item);

  Dataset fDataset;
  bool fDryRun;
  std::optional<SetList> fDryRunSets;  // none before a command saved
  SetExchange fExchange;
  Tell fTell;
  OutputSink fSink;
  ChoiceHints fChoiceHints{fDataset};
  bool fHasError = false;         // of the command that runs
  bool fHasSaved = false;         // likewise
  CommandEntry fMrset = nullptr;  // loaded by the first command that needs it
};

}  // namespace standalone

#endif  // STANDALONE_RUN_COMMAND_RUNNER_H
