#ifndef STANDALONE_HOST_STORED_SETS_H
#define STANDALONE_HOST_STORED_SETS_H

#include <vector>

#include "host/variable_sets.h"
#include "standalone/data/dataset.h"

namespace standalone {

/// Sets as the dataset keeps them, in the form of host/, and back.
VARIABLESETS ToVariableSets(const std::vector<StoredSet>& sets);
std::vector<StoredSet> ToStoredSets(const VARIABLESETS& sets);

}  // namespace standalone

#endif  // STANDALONE_HOST_STORED_SETS_H
