#ifndef STANDALONE_DATASET_DATASET_OPERAND_H
#define STANDALONE_DATASET_DATASET_OPERAND_H

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "standalone/dataset/dataset.h"

namespace standalone {

/// A dataset's sets as a user names them: as they are, or as a version had them.
struct DatasetOperand {
  std::string path;
  std::optional<std::int64_t> version;
};

/// What is wrong with the number of a version; empty where nothing is.
std::string VersionComplaint(const std::string& text);

/// Reads DATASET or DATASET@N. A file whose very name is the whole text comes first, so that an "@" in a name is no
/// trouble.
DatasetOperand ReadDatasetOperand(const std::string& text);

/// The sets that the operand names, of the dataset at its path. Throws Error.
std::vector<StoredSet> SetsOf(Dataset& dataset, const DatasetOperand& operand);

}  // namespace standalone

#endif  // STANDALONE_DATASET_DATASET_OPERAND_H
