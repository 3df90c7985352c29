#ifndef STANDALONE_PROGRAM_TOLD_CHANGE_H
#define STANDALONE_PROGRAM_TOLD_CHANGE_H

#include <iostream>
#include <string>

#include "standalone/run/output_file.h"

namespace standalone {

/// Makes sure that standard output has told of a change that stands. Where it cannot, throws OutputError with what was
/// changed, as in "the sets are copied", so that nobody makes the change again.
inline void EnsureToldOf(const std::string& change) {
  std::cout.flush();
  if (!std::cout) {
    throw OutputError("Standard output cannot be written; the change is made all the same: " + change + ".");
  }
}

}  // namespace standalone

#endif  // STANDALONE_PROGRAM_TOLD_CHANGE_H
