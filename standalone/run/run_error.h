#ifndef STANDALONE_RUN_RUN_ERROR_H
#define STANDALONE_RUN_RUN_ERROR_H

#include <stdexcept>

namespace standalone {

/// Why no command can be run any more; what() is one sentence.
class RunError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace standalone

#endif  // STANDALONE_RUN_RUN_ERROR_H
