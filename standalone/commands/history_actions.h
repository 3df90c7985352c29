#ifndef STANDALONE_COMMANDS_HISTORY_ACTIONS_H
#define STANDALONE_COMMANDS_HISTORY_ACTIONS_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "standalone/console/exit_status.h"
#include "standalone/dataset/dataset.h"

namespace standalone {

/// Writes the changes and imports that the dataset keeps to standard output, for people.
void WriteLog(Dataset& dataset, std::size_t width);

/// Goes back to the sets of version `to`, or to those before the last change, and says so; kErrors, and a sentence on
/// standard error, where there is no change. Throws Error, also where standard output
/// cannot be written.
ExitStatus UndoAndSay(const std::string& datasetPath, const DatasetOptions& options, std::optional<std::int64_t> to);

}  // namespace standalone

#endif  // STANDALONE_COMMANDS_HISTORY_ACTIONS_H
