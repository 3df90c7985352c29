#ifndef STANDALONE_DATASET_IMPORT_LOG_H
#define STANDALONE_DATASET_IMPORT_LOG_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "standalone/dataset/change.h"
#include "standalone/storage/database.h"

namespace standalone {

// A dataset keeps when its variables and cases were imported, the last kMaxKeptChanges times. All of this needs a
// transaction of the caller.

/// Adds the import that makes a new dataset.
void AddFirstImport(Database& database, const std::string& command, std::int64_t variables, std::int64_t cases);

/// Adds the import of the attached schema `new`, which replaces variables and cases, and drops the oldest one that is
/// too many.
void AddReplacingImport(Database& database);

/// From the newest to the oldest.
std::vector<LoggedImport> LoadImports(Database& database);

}  // namespace standalone

#endif  // STANDALONE_DATASET_IMPORT_LOG_H
