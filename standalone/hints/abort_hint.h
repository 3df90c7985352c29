#ifndef STANDALONE_HINTS_ABORT_HINT_H
#define STANDALONE_HINTS_ABORT_HINT_H

#include <optional>
#include <string>

namespace standalone {

/// Why an assertion failed in the command, in plain words and without a final period: of what a user may write there
/// are a name without "$", an empty list of names, and a category set without a name. Nothing for other causes.
std::optional<std::string> HintOnAbort(const std::string& command);

}  // namespace standalone

#endif  // STANDALONE_HINTS_ABORT_HINT_H
