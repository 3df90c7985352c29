#ifndef STANDALONE_TABULATION_INTERRUPTION_H
#define STANDALONE_TABULATION_INTERRUPTION_H

#include "standalone/storage/interrupt.h"
#include "standalone/text/error.h"

namespace standalone {

/// Throws an Error of kind kInterrupted where the user interrupts; to be called in whatever takes long.
inline void RequireNoInterrupt() {
  if (IsInterrupted()) {
    throw Error(ErrorKind::kInterrupted, "The count was interrupted.");
  }
}

}  // namespace standalone

#endif  // STANDALONE_TABULATION_INTERRUPTION_H
