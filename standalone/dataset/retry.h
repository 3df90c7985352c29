#ifndef STANDALONE_DATASET_RETRY_H
#define STANDALONE_DATASET_RETRY_H

#include "standalone/dataset/dataset.h"

namespace standalone {

/// Optimistic concurrency control: makes the attempt, which begins a transaction with the given access and ends in
/// SaveSets(), again as long as another process changed the dataset meanwhile; at last where none can.
template <typename Attempt>
Dataset::Saved SaveWithRetries(const Attempt& attempt) {
  constexpr int kMaxSharedTries = 3;
  Dataset::Saved saved = Dataset::Saved::kConflict;
  for (int tries = 1; saved == Dataset::Saved::kConflict; ++tries) {
    saved = attempt(tries > kMaxSharedTries ? Access::kExclusive : Access::kShared);
  }
  return saved;
}

}  // namespace standalone

#endif  // STANDALONE_DATASET_RETRY_H
