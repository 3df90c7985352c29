#ifndef STANDALONE_COMMANDS_COUNTING_PROGRESS_H
#define STANDALONE_COMMANDS_COUNTING_PROGRESS_H

#include <memory>
#include <optional>
#include <utility>

#include "standalone/console/progress.h"
#include "standalone/run/tabulate_run.h"

namespace standalone {

/// Shows on standard error how each count gets on.
inline BeginCounting ShowCounting() {
  return [screen = ErrorScreen()]() -> TabulationProgress {
    const auto progress = std::make_shared<Progress>(screen);
    return [progress, hasBegun = false](std::size_t done, std::size_t cases) mutable {
      if (!std::exchange(hasBegun, true)) {
        progress->Begin({"Counting", "cases", cases});
      }
      progress->Update(done);
    };
  };
}

}  // namespace standalone

#endif  // STANDALONE_COMMANDS_COUNTING_PROGRESS_H
