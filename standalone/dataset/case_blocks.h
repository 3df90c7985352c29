#ifndef STANDALONE_DATASET_CASE_BLOCKS_H
#define STANDALONE_DATASET_CASE_BLOCKS_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "standalone/cases/block.h"
#include "standalone/storage/database.h"

namespace standalone {

/// The id under which a variable's block is stored.
inline std::int64_t IdOfBlock(int variable, std::size_t number) {
  return static_cast<std::int64_t>(number << 32U) + variable;
}

/// The blocks of cases of a dataset, as they are in one state of it. What is read is verified; an Error of kind
/// kDamaged tells of anything else than blocks that fit together.
class CaseBlocks {
 public:
  struct Column {
    int variable;
    bool isNumeric;
  };

  /// The database must outlive the object.
  explicit CaseBlocks(Database& database) : fDatabase(database) {}

  std::size_t Count();
  std::size_t CasesOf(std::size_t number);
  BlockHead ReadHead(Column column, std::size_t number);
  void ReadBlock(Column column, std::size_t number, Block& block);

 private:
  void FailUnlessComplete(std::size_t count);
  BlockHead LoadHead(int variable, std::size_t number);

  Database& fDatabase;
  std::optional<std::size_t> fCount;
  std::vector<std::size_t> fCases;  // of each block, as far as they were asked for
};

}  // namespace standalone

#endif  // STANDALONE_DATASET_CASE_BLOCKS_H
