#ifndef STANDALONE_DATASET_MIGRATION_H
#define STANDALONE_DATASET_MIGRATION_H

#include <optional>
#include <string>

#include "standalone/storage/database.h"

namespace standalone {

/// Brings a dataset of an older format version to the present one, within the caller's transaction, which holds the
/// right to write and has written nothing. First a copy of the file is set aside beside it, on the disk, in the place
/// of no other file. Returns the sentence to be told once the transaction is committed; nothing where there was nothing
/// to do.
std::optional<std::string> Migrate(Database& database, const std::string& path);

}  // namespace standalone

#endif  // STANDALONE_DATASET_MIGRATION_H
