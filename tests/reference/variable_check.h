#ifndef TESTS_REFERENCE_VARIABLE_CHECK_H
#define TESTS_REFERENCE_VARIABLE_CHECK_H

#include <string>
#include <vector>

#include "tests/reference/host_rules.h"
#include "tests/reference/report.h"

namespace reference {

/// Whether the variables make a set. What is wrong with them is reported.
bool AreValidVariables(const std::vector<std::string>& variableNames, const Variables& dictionary,
                       const std::string& countedValue, bool countedValueLabels, int& narrowestWidth, Report& report);

}  // namespace reference

#endif  // TESTS_REFERENCE_VARIABLE_CHECK_H
