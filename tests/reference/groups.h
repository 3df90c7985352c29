#ifndef TESTS_REFERENCE_GROUPS_H
#define TESTS_REFERENCE_GROUPS_H

#include "tests/reference/command.h"
#include "tests/reference/record.h"

namespace reference {

// The definitions of sets. False means stop; as a rule it has been reported.
bool ParseMDGroup(Command& command, Record& subcmd);
bool ParseMCGroup(Command& command, Record& subcmd);
bool ValidateMDGroup(Command& command, Record& subcmd);
bool ValidateMCGroup(Command& command, Record& subcmd);

/// The validators on a record of any origin.
bool ValidateMDGroup(const Record& subcmd, const Variables& dictionary, Report& report);
bool ValidateMCGroup(const Record& subcmd, const Variables& dictionary, Report& report);

}  // namespace reference

#endif  // TESTS_REFERENCE_GROUPS_H
