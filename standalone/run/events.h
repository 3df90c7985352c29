#ifndef STANDALONE_RUN_EVENTS_H
#define STANDALONE_RUN_EVENTS_H

#include <cstddef>
#include <string>
#include <variant>

#include "standalone/output/items.h"

namespace standalone {

// What the process that runs commands tells the one that supervises it, in the order in which it happens.

struct ProcedureOpened {
  std::string title;
};

struct ItemIssued {
  Item item;
};

/// Advice that belongs to no message.
struct HintGiven {
  std::string hint;
};

/// What the command would change, as a sentence.
struct DryRunTold {
  std::string sentence;
};

/// The command begins anew: what it has told so far does not count.
struct CommandRestarted {};

/// The command did its work and begins to save it. Until CommandDone it is open whether it was saved.
struct CommandSaves {};

/// The command with this index came to its end, and what it saved is on the disk.
struct CommandDone {
  std::size_t command = 0;
  bool hasSaved = false;  ///< whether it changed the dataset
};

/// No command can be run any more; a sentence.
struct RunFailed {
  std::string sentence;
};

/// A sentence that a user should see at once, while a command waits or after it; not part of its output.
struct Noticed {
  std::string sentence;
};

using Event = std::variant<ProcedureOpened, ItemIssued, CommandRestarted, CommandSaves, CommandDone, RunFailed, Noticed,
                           HintGiven, DryRunTold>;

/// An event as one line, without its line end, and back.
std::string ToLine(const Event& event);
Event EventFromLine(const std::string& line);

}  // namespace standalone

#endif  // STANDALONE_RUN_EVENTS_H
