#ifndef TESTS_REFERENCE_VARIABLE_LISTS_H
#define TESTS_REFERENCE_VARIABLE_LISTS_H

#include <string>
#include <vector>

#include "tests/reference/command.h"

namespace reference {

// False means reported, stop.
bool ParseVariables(Command& command, std::vector<std::string>& variables, bool& all);
bool AreValidVariables(const std::vector<std::string>& variableNames, const Variables& dictionary,
                       const std::string& countedValue, bool countedValueLabels, int& narrowestWidth, Report& report);

}  // namespace reference

#endif  // TESTS_REFERENCE_VARIABLE_LISTS_H
