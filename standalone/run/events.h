#ifndef STANDALONE_RUN_EVENTS_H
#define STANDALONE_RUN_EVENTS_H

#include <functional>
#include <string>
#include <variant>

#include "standalone/output/items.h"

namespace standalone {

// What a command tells while it runs, in the order in which it happens.

struct ProcedureOpened {
  std::string title;
};

/// Advice that belongs to no message.
struct HintGiven {
  std::string hint;
};

/// What the command would change, as a sentence.
struct DryRunTold {
  std::string sentence;
};

/// The command did its work and begins to save it.
struct SaveBegun {};

/// The command starts over: what it has told so far does not count.
struct CommandRestarted {};

using Event =
    std::variant<ProcedureOpened, Message, Table, Tabulation, HintGiven, DryRunTold, SaveBegun, CommandRestarted>;

using Tell = std::function<void(const Event& event)>;

}  // namespace standalone

#endif  // STANDALONE_RUN_EVENTS_H
