#ifndef STANDALONE_SETS_COMMAND_TRIAL_H
#define STANDALONE_SETS_COMMAND_TRIAL_H

#include <string_view>
#include <vector>

#include "standalone/dataset/dataset.h"
#include "standalone/output/items.h"
#include "standalone/run/module.h"

namespace standalone {

/// What commands came to on a dataset that had no sets.
struct TrialOutcome {
  std::vector<StoredSet> sets;
  std::vector<Message> messages;  ///< of the host and of the module, in their order
};

/// Runs commands through the module in this process and writes nothing. A failed assertion ends the process, so only
/// for commands whose names are valid.
class CommandTrial {
 public:
  /// Loads the module; throws Error. `dataset` must outlive the trial; what is tried sees the state of it in
  /// which its command began.
  explicit CommandTrial(Dataset& dataset) : fDataset(dataset), fMrset(LoadMrsetModule()) {}

  /// Runs the MRSET commands of a script, each on the sets that the one before it left.
  TrialOutcome Run(std::string_view script);

 private:
  Dataset& fDataset;
  CommandEntry fMrset;
};

}  // namespace standalone

#endif  // STANDALONE_SETS_COMMAND_TRIAL_H
