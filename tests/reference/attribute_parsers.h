#ifndef TESTS_REFERENCE_ATTRIBUTE_PARSERS_H
#define TESTS_REFERENCE_ATTRIBUTE_PARSERS_H

#include <string>

#include "tests/reference/command.h"

namespace reference {

// Entered with the keyword current; false means reported, stop.
bool ParseMRName(Command& command, std::string& name);
bool ParseLabel(Command& command, std::string& label);
bool ParseLabelSource(Command& command, bool& labelByVariable);
bool ParseCategoryLabels(Command& command, bool& countedValues);
bool ParseValue(Command& command, std::string& value, bool& isNumber);

}  // namespace reference

#endif  // TESTS_REFERENCE_ATTRIBUTE_PARSERS_H
