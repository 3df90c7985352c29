#ifndef TESTS_TRACES_ASSERTION_PROVOKERS_H
#define TESTS_TRACES_ASSERTION_PROVOKERS_H

#include <functional>
#include <string>
#include <vector>

#include "tests/traces/line_diff.h"

namespace traces {

/// What makes one assertion of the module fail.
struct AssertionProvoker {
  const char* function;
  const char* expression;
  std::function<void()> provoke;
};

/// All of them, in the order of the module's parts.
const std::vector<AssertionProvoker>& AssertionProvokers();

/// Null when there is none.
const AssertionProvoker* FindProvoker(const std::string& function, const std::string& expression);

/// How a process of its own ends by the assertion.
struct AssertionEnd {
  std::string report;  ///< what it writes to standard error; a sentence when it does not end so
  Lines calls;         ///< the host calls before, then in lines with "#" the sets and the lists of the record
};

AssertionEnd EndOf(const AssertionProvoker& provoker);

}  // namespace traces

#endif  // TESTS_TRACES_ASSERTION_PROVOKERS_H
