#ifndef STANDALONE_HINTS_VANISHED_NAME_H
#define STANDALONE_HINTS_VANISHED_NAME_H

#include <optional>
#include <string>

#include "standalone/output/items.h"

namespace standalone {

/// The hint on a command that came as an argument and complained, where no name comes after a NAME= or TABULATE: a
/// shell replaces $names that are not in single quotes, mostly by nothing. Without a final period.
std::optional<std::string> HintOnVanishedName(const CommandResult& result);

}  // namespace standalone

#endif  // STANDALONE_HINTS_VANISHED_NAME_H
