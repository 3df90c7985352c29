#ifndef STANDALONE_SETS_COPY_TRANSACTION_H
#define STANDALONE_SETS_COPY_TRANSACTION_H

#include <functional>
#include <string>
#include <vector>

#include "standalone/data/dataset.h"
#include "standalone/sets/set_copy.h"

namespace standalone {

/// A dataset as a side of a copy, for as long as its command lasts. `dataset` must outlive it.
CopySide SideOf(Dataset& dataset, const std::string& name);

/// Copies the chosen sets into `target`, which sentences call `targetName`, in one transaction: planned again where
/// another process changes the target meanwhile, at last with the target locked. The plan is written only when
/// `isWanted` says so. Returns the plan that holds. In the target's history it
/// is called "copy SOURCE $set...". Throws DatasetError.
CopyPlan CopySets(const std::vector<StoredSet>& chosen, const CopySide& source, Dataset& target,
                  const std::string& targetName, const std::function<bool(const CopyPlan& plan)>& isWanted);

}  // namespace standalone

#endif  // STANDALONE_SETS_COPY_TRANSACTION_H
