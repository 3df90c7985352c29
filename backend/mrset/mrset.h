#ifndef BACKEND_MRSET_MRSET_H
#define BACKEND_MRSET_MRSET_H

#include "backend/mrset/export.h"

/// Runs the host's current MRSET command: parses it and, if that succeeded, applies it to the active dataset. Does
/// nothing when no dataset is open. What is wrong with the command is reported to the user; exceptions of the host's
/// pass through after everything that was made has been released.
extern "C" MRSET_EXPORT void mrset_();

#endif  // BACKEND_MRSET_MRSET_H
