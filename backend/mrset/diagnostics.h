#ifndef BACKEND_MRSET_DIAGNOSTICS_H
#define BACKEND_MRSET_DIAGNOSTICS_H

#include <string>

#include "backend/mrset/export.h"

// Messages to the user. "^1" and "^2" in the template stand for the arguments, which fill them in order. An empty
// argument counts as absent, so that an argument after it moves up. Each text ends at its first NUL. Whether the
// command goes on is the caller's decision.

/// Issues a message at error level.
MRSET_EXPORT void GenerateError(const std::string& messageTemplate, const std::string& first,
                                const std::string& second);

/// Issues a message at warning level.
MRSET_EXPORT void GenerateWarning(const std::string& messageTemplate, const std::string& first,
                                  const std::string& second);

#endif  // BACKEND_MRSET_DIAGNOSTICS_H
