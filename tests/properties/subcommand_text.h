#ifndef TESTS_PROPERTIES_SUBCOMMAND_TEXT_H
#define TESTS_PROPERTIES_SUBCOMMAND_TEXT_H

#include <string>

#include "tests/reference/record.h"

namespace properties {

/// The subcommand that a person types to get the record, "/" first. Names and numbers must be such as can be typed.
std::string SubcommandText(const reference::Record& record);

}  // namespace properties

#endif  // TESTS_PROPERTIES_SUBCOMMAND_TEXT_H
