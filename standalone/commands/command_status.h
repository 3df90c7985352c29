#ifndef STANDALONE_COMMANDS_COMMAND_STATUS_H
#define STANDALONE_COMMANDS_COMMAND_STATUS_H

#include "standalone/console/exit_status.h"
#include "standalone/output/items.h"

namespace standalone {

/// What a command makes of the program's exit status.
inline ExitStatus StatusOf(const CommandResult& result) {
  switch (result.status) {
    case Status::kOk:
      return kSuccess;
    case Status::kError:
      return kErrors;
    case Status::kAborted:
      break;
  }
  return kAborted;
}

}  // namespace standalone

#endif  // STANDALONE_COMMANDS_COMMAND_STATUS_H
