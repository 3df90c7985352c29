#ifndef STANDALONE_DATASET_DATASET_WRITER_H
#define STANDALONE_DATASET_DATASET_WRITER_H

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "standalone/cases/block_builder.h"
#include "standalone/dataset/variable.h"
#include "standalone/files/temporary_file.h"
#include "standalone/storage/database.h"
#include "standalone/storage/dataset_options.h"

namespace standalone {

/// Writes variables and cases into a new dataset, or into one that exists and keeps its sets.
class DatasetWriter {
 public:
  /// Begins to write `path`. A file that exists is refused unless `replace`; then it must be a dataset. Whoever reads
  /// the path meanwhile finds what was there before. Without a Commit(), everything is as it was.
  DatasetWriter(const std::string& path, bool replace, const DatasetOptions& options = {});

  /// The dictionary; once, before the first case. Names are valid and differ without regard to case. A string variable
  /// of width kWidthOfLongestValue becomes as wide as its longest value.
  void SetVariables(const std::vector<Variable>& variables);

  /// One case: a cell for each variable, empty where it is missing. A cell of a numeric variable is a number as JSON
  /// writes it; the nearest double is kept.
  void AddCase(const std::vector<std::string_view>& cells);

  /// What the log of imports tells of this one; without it the import is not in that log.
  void SetCommand(const std::string& command) { fCommand = command; }

  /// Puts the new dictionary and cases in place, all at once and on the disk.
  void Commit();

 private:
  struct Column {
    BlockBuilder cells;
    bool hasWidthOfLongest;
    std::size_t longest;
  };

  bool IsOutOfMemory();
  void WriteBlock();
  void WriteWidths();
  void FinishFile();

  std::string fPath;
  bool fReplace;
  DatasetOptions fOptions;
  // All is written beside the destination first, so that reading the input, however long it takes, holds no lock.
  TemporaryFile fFile;
  std::unique_ptr<Database> fDatabase;
  std::vector<Column> fColumns;
  std::int64_t fCaseCount = 0;
  std::size_t fBlockCount = 0;
  std::size_t fCasesOfBlock = 0;  // of the one that is not yet written
  std::size_t fBytesToLook = 0;   // of cells since the memory was looked at
  std::string fCommand;
};

}  // namespace standalone

#endif  // STANDALONE_DATASET_DATASET_WRITER_H
