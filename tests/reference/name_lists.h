#ifndef TESTS_REFERENCE_NAME_LISTS_H
#define TESTS_REFERENCE_NAME_LISTS_H

#include "tests/reference/command.h"
#include "tests/reference/record.h"

namespace reference {

// DISPLAY and DELETE. False means stop; as a rule it has been reported.
bool ParseDisplay(Command& command, Record& subcmd);
bool ParseDelete(Command& command, Record& subcmd);
bool ParseNames(Command& command, std::vector<std::string>& names, bool& all);
bool ValidateMRSetName(Command& command, Record& subcmd);

}  // namespace reference

#endif  // TESTS_REFERENCE_NAME_LISTS_H
