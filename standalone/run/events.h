#ifndef STANDALONE_RUN_EVENTS_H
#define STANDALONE_RUN_EVENTS_H

#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "standalone/data/dataset.h"
#include "standalone/output/items.h"

namespace standalone {

// What the process that runs commands tells the one that supervises it, in the order in which it happens.

struct ProcedureOpened {
  std::string title;
};

struct ItemIssued {
  Item item;
};

/// The command begins anew: what it has told so far does not count.
struct CommandRestarted {};

/// The command came to its end. `sets` are those that a dry run leaves to the commands after it.
struct CommandDone {
  std::optional<std::vector<StoredSet>> sets;
};

/// No command can be run any more; a sentence.
struct RunFailed {
  std::string sentence;
};

using Event = std::variant<ProcedureOpened, ItemIssued, CommandRestarted, CommandDone, RunFailed>;

/// An event as one line, without its line end, and back.
std::string ToLine(const Event& event);
Event EventFromLine(const std::string& line);

}  // namespace standalone

#endif  // STANDALONE_RUN_EVENTS_H
