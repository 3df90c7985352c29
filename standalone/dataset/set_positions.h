#ifndef STANDALONE_DATASET_SET_POSITIONS_H
#define STANDALONE_DATASET_SET_POSITIONS_H

#include <cstdint>
#include <optional>
#include <vector>

namespace standalone {

/// Positions in ascending order, none beyond kMaxNumber, for the rows of a list, of which some have a position
/// already (0 to kMaxNumber). As few of these as can be are given another one, but for those that must make room
/// for a new row; where there is no room below the limit, all are.
std::vector<std::int64_t> PlanPositions(const std::vector<std::optional<std::int64_t>>& before);

}  // namespace standalone

#endif  // STANDALONE_DATASET_SET_POSITIONS_H
