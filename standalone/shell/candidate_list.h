#ifndef STANDALONE_SHELL_CANDIDATE_LIST_H
#define STANDALONE_SHELL_CANDIDATE_LIST_H

#include <cstddef>
#include <string>

#include "standalone/shell/completer.h"

namespace standalone {

/// The candidates as lines of at most `width` terminal columns, in columns that are read downwards; a candidate that is
/// wider stands alone on its line.
std::string CandidateList(const Completion& completion, std::size_t width);

}  // namespace standalone

#endif  // STANDALONE_SHELL_CANDIDATE_LIST_H
