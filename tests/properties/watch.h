#ifndef TESTS_PROPERTIES_WATCH_H
#define TESTS_PROPERTIES_WATCH_H

#include "tests/properties/case.h"

namespace properties {

/// While one is alive, a crash, a failed assertion or a run of more than twenty seconds prints the case before the
/// process ends, so that it can be repeated. One at a time.
class Watch {
 public:
  explicit Watch(const Case& example);
  Watch(const Watch&) = delete;
  Watch& operator=(const Watch&) = delete;
  ~Watch();
};

}  // namespace properties

#endif  // TESTS_PROPERTIES_WATCH_H
