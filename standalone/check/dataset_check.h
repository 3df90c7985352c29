#ifndef STANDALONE_CHECK_DATASET_CHECK_H
#define STANDALONE_CHECK_DATASET_CHECK_H

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "standalone/storage/dataset_options.h"

namespace standalone {

/// What a check of a dataset tells, each a sentence, as it goes on: whoever is told keeps the dataset from being
/// written meanwhile. Sentences of one kind say the same of different things.
struct CheckReport {
  using ShowProgress = std::function<void(std::uint64_t checked, std::uint64_t all)>;
  using Tell = std::function<void(std::string_view kind, const std::string& sentence)>;

  Tell finding;  ///< something that no sound dataset has
  Tell remark;   ///< something that is allowed, but worth knowing

  /// How many of the cases were checked, from 0 on; may be empty.
  ShowProgress progress = {};
};

/// Verifies one state of a dataset: the file's integrity, its tables, the dictionary, sets and cases, what they refer
/// to, and that every kept version of the sets can be rebuilt. Takes memory for the dictionary's types and for the
/// sets, not for the cases. Throws Error where the file is no dataset that can be read.
void CheckDataset(const std::string& path, const DatasetOptions& options, const CheckReport& report);

}  // namespace standalone

#endif  // STANDALONE_CHECK_DATASET_CHECK_H
