#ifndef TESTS_TRACES_ASSERTION_PROVOKERS_H
#define TESTS_TRACES_ASSERTION_PROVOKERS_H

#include <functional>
#include <string>

namespace traces {

/// What makes one assertion of the module fail.
struct AssertionProvoker {
  const char* function;
  const char* expression;
  std::function<void()> provoke;
};

/// Null when there is none.
const AssertionProvoker* FindProvoker(const std::string& function, const std::string& expression);

/// What a process of its own writes to standard error while it ends by the assertion; something else, as a sentence,
/// when it does not end so.
std::string ReportOf(const AssertionProvoker& provoker);

}  // namespace traces

#endif  // TESTS_TRACES_ASSERTION_PROVOKERS_H
