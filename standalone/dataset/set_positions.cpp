#include "standalone/dataset/set_positions.h"

#include <algorithm>
#include <cstddef>

#include "standalone/storage/limits.h"

namespace standalone {

namespace {

using Before = std::vector<std::optional<std::int64_t>>;

/// What lies between two positions at the end, so that others find room there later.
constexpr std::int64_t kStep = std::int64_t{1} << 20;

// The last rows of ascending runs, by the length of the run: ends[n] ends the run of n + 1 rows that ends lowest.
// previous[row] is the row before it in its run.
struct Runs {
  std::vector<std::size_t> ends;
  std::vector<std::size_t> previous;
};

Runs FindRuns(const Before& before) {
  Runs runs;
  runs.previous.resize(before.size());
  for (std::size_t row = 0; row < before.size(); ++row) {
    if (!before[row]) {
      continue;
    }
    const auto end = std::lower_bound(runs.ends.begin(), runs.ends.end(), *before[row],
                                      [&](std::size_t last, std::int64_t value) { return *before[last] < value; });
    runs.previous[row] = end == runs.ends.begin() ? row : *(end - 1);
    if (end == runs.ends.end()) {
      runs.ends.push_back(row);
    } else {
      *end = row;
    }
  }
  return runs;
}

/// The positions of the longest ascending run; the other rows have none.
Before KeepLongestRun(const Before& before) {
  const Runs runs = FindRuns(before);
  Before kept(before.size());
  std::size_t row = runs.ends.empty() ? 0 : runs.ends.back();
  for (std::size_t count = runs.ends.size(); count > 0; --count) {
    kept[row] = before[row];
    row = runs.previous[row];
  }
  return kept;
}

/// New positions for all rows, where those that they have leave no room below the limit.
void Spread(std::vector<std::int64_t>& positions) {
  const std::int64_t room = kMaxNumber / (static_cast<std::int64_t>(positions.size()) + 1);
  std::int64_t last = 0;
  for (std::int64_t& position : positions) {
    position = last += std::min(room, kStep);
  }
}

}  // namespace

std::vector<std::int64_t> PlanPositions(const Before& before) {
  const Before kept = KeepLongestRun(before);
  std::vector<std::int64_t> positions(before.size());
  std::int64_t last = -1;
  for (std::size_t row = 0; row < before.size();) {
    std::size_t next = row;
    while (next < kept.size() && !(kept[next] && *kept[next] > last)) {
      ++next;
    }
    const auto count = static_cast<std::int64_t>(next - row);
    const std::int64_t room = next < kept.size() ? (*kept[next] - last) / (count + 1) : kStep;
    for (; row < next; ++row) {
      last += std::clamp<std::int64_t>(room, 1, kStep);
      positions[row] = last;
    }
    if (row < kept.size() && *kept[row] > last) {
      last = positions[row] = *kept[row];
      ++row;
    }
  }
  if (last > kMaxNumber) {
    Spread(positions);
  }
  return positions;
}

}  // namespace standalone
