#ifndef STANDALONE_STORAGE_COMMIT_H
#define STANDALONE_STORAGE_COMMIT_H

#include <cstdint>
#include <optional>
#include <string>

#include "standalone/storage/database.h"

namespace standalone {

/// The counter of writing transactions that the open dataset holds.
std::int64_t GenerationOf(Database& database);

/// Commits the transaction of a dataset, which has set the counter to `generation`, and decides whether it is done.
/// Returns when it is: nothing, or a sentence on what could not be confirmed. Throws Error when it is not;
/// an Error of kind kUnknownOutcome when that cannot be found out.
std::optional<std::string> CommitGeneration(Database& database, std::int64_t generation);

}  // namespace standalone

#endif  // STANDALONE_STORAGE_COMMIT_H
