#ifndef STANDALONE_STORAGE_INTERRUPT_H
#define STANDALONE_STORAGE_INTERRUPT_H

#include <atomic>

namespace standalone {

/// Whether the user asked to give up what is under way. Set by a handler of a signal; whoever reads datasets looks.
inline std::atomic<bool> isInterruptRequested{false};  // NOLINT(*-avoid-non-const-global-variables)

inline bool IsInterrupted() {
  return isInterruptRequested.load(std::memory_order_relaxed);
}

}  // namespace standalone

#endif  // STANDALONE_STORAGE_INTERRUPT_H
