#ifndef TESTS_HOST_VARIABLE_LIST_H
#define TESTS_HOST_VARIABLE_LIST_H

#include <string>
#include <vector>

#include "tests/host/core.h"

namespace scripted {

/// The host's own reading of a variable list, as Hooks states it. False after it has reported an error; `indices` then
/// holds the variables before the culprit.
bool ReadVariableList(Core& core, const std::vector<std::string>& words, std::vector<int>& indices);

}  // namespace scripted

#endif  // TESTS_HOST_VARIABLE_LIST_H
