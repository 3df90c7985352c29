#ifndef STANDALONE_STORAGE_FILE_FORMAT_H
#define STANDALONE_STORAGE_FILE_FORMAT_H

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "standalone/storage/database.h"
#include "standalone/storage/dataset_options.h"

namespace standalone {

/// The format that this program writes. Version 1 had no history.
inline constexpr std::int64_t kFormatVersion = 2;

struct TableDefinition {
  const char* name;
  std::int64_t since;  ///< the first format version that has it
  const char* sql;     ///< word for word what the file's schema holds
};

/// Every table of a dataset.
const std::vector<TableDefinition>& Tables();

/// Makes the tables of a dataset without variables, cases and sets in an empty file.
void CreateSchema(Database& database);

/// The format version of an open dataset, 1 to kFormatVersion.
std::int64_t FormatVersion(Database& database);

/// Throws Error for the empty path.
void FailIfNameless(const std::string& path);

/// Whether the file begins as datasets do; false where it cannot be read. It may still be damaged, or of a newer
/// format.
bool IsDatasetFile(const std::string& path);

/// Opens a dataset that exists: what is committed is on the disk, unless the options are relaxed. Throws one sentence
/// where the path is not a file that can be read, is not a dataset, is damaged, was made by a newer version, or has
/// other tables, or anything else in its schema, than this program makes: nothing of the file is read before that.
std::unique_ptr<Database> OpenDataset(const std::string& path, const DatasetOptions& options = {});

}  // namespace standalone

#endif  // STANDALONE_STORAGE_FILE_FORMAT_H
