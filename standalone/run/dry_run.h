#ifndef STANDALONE_RUN_DRY_RUN_H
#define STANDALONE_RUN_DRY_RUN_H

#include <optional>
#include <string>

#include "standalone/dataset/stored_set.h"

namespace standalone {

/// What a command would change that found the sets `before` and would leave `after`, as a sentence; nothing where it
/// would change nothing. Costs what differs, as far as the lists share their sets.
std::optional<std::string> SentenceOnDryRun(const SetList& before, const SetList& after);

}  // namespace standalone

#endif  // STANDALONE_RUN_DRY_RUN_H
