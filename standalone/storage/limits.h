#ifndef STANDALONE_STORAGE_LIMITS_H
#define STANDALONE_STORAGE_LIMITS_H

#include <cstdint>

namespace standalone {

/// The greatest number that a dataset counts up to: ids and positions of sets, numbers of changes, the generation. What
/// is read, written and checked keeps to it. Every number up to it is exact as a JSON number.
inline constexpr std::int64_t kMaxNumber = std::int64_t{1} << 53;

}  // namespace standalone

#endif  // STANDALONE_STORAGE_LIMITS_H
