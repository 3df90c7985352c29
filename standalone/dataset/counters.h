#ifndef STANDALONE_DATASET_COUNTERS_H
#define STANDALONE_DATASET_COUNTERS_H

#include <string>

#include "standalone/storage/database.h"

namespace standalone {

// A dataset counts its writes and the changes of its sets, both up to kMaxNumber. Each function is called within
// the transaction that writes, before it writes, and throws Error, one sentence that names the file as
// `name`, where the next number would go beyond that.

/// For any write.
void FailIfWritesAreUsedUp(Database& database, const std::string& name);

/// For a write that changes the sets.
void FailIfChangesAreUsedUp(Database& database, const std::string& name);

}  // namespace standalone

#endif  // STANDALONE_DATASET_COUNTERS_H
