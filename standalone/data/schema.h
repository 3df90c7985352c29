#ifndef STANDALONE_DATA_SCHEMA_H
#define STANDALONE_DATA_SCHEMA_H

#include <string>

#include "standalone/data/database.h"

namespace standalone {

/// Makes the tables of a dataset without variables, cases and sets in an empty file.
void CreateSchema(Database& database);

/// Opens a dataset that exists for commands: what they commit is on the disk. Throws one sentence where the path is not
/// a file that can be read, is not a dataset, is damaged, or was made by a newer version.
std::unique_ptr<Database> OpenDataset(const std::string& path);

}  // namespace standalone

#endif  // STANDALONE_DATA_SCHEMA_H
