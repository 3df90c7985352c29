#ifndef STANDALONE_STORAGE_FILE_FORMAT_H
#define STANDALONE_STORAGE_FILE_FORMAT_H

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "standalone/storage/database.h"
#include "standalone/storage/dataset_options.h"

namespace standalone {

/// The format that this program reads and writes, the first that was released.
inline constexpr std::int64_t kFormatVersion = 3;

struct TableDefinition {
  const char* name;
  const char* sql;  ///< word for word what the file's schema holds
};

/// Every table of a dataset.
const std::vector<TableDefinition>& Tables();

/// Makes the tables of a dataset without variables, cases and sets in an empty file.
void CreateSchema(Database& database);

/// Throws Error for the empty path.
void FailIfNameless(const std::string& path);

/// Whether the file begins as datasets do; false where it cannot be read. It may still be damaged, or of a newer
/// format.
bool IsDatasetFile(const std::string& path);

/// Opens a dataset that exists: what is committed is on the disk, unless the options are relaxed. Throws one sentence
/// where the path is not a file that can be read, is not a dataset, is damaged, is of another format version, or has
/// other tables, or anything else in its schema, than this program makes: nothing of the file is read before that.
std::unique_ptr<Database> OpenDataset(const std::string& path, const DatasetOptions& options = {});

}  // namespace standalone

#endif  // STANDALONE_STORAGE_FILE_FORMAT_H
