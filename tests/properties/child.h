#ifndef TESTS_PROPERTIES_CHILD_H
#define TESTS_PROPERTIES_CHILD_H

#include <functional>
#include <string>

#include "tests/properties/case.h"

namespace properties {

/// Runs the work in a process of its own and says how that ended: "returned"; what AssertionEnd() writes, with the
/// lines that `lastWords` gave when the assertion had failed; or, for anything else, the signal or status with all that
/// was written to standard error.
std::string EndOfChild(const std::function<void()>& work, const std::function<Lines()>& lastWords);

/// The end by a failed assertion of that expression.
std::string AssertionEnd(const std::string& expression, const Lines& lastWords);

}  // namespace properties

#endif  // TESTS_PROPERTIES_CHILD_H
