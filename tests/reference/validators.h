#ifndef TESTS_REFERENCE_VALIDATORS_H
#define TESTS_REFERENCE_VALIDATORS_H

#include "tests/reference/host_rules.h"
#include "tests/reference/record.h"
#include "tests/reference/report.h"

namespace reference {

// Whether a record of any origin is accepted. What is wrong with it is reported.

bool ValidateMDGroup(const Record& record, const Variables& dictionary, Report& report);
bool ValidateMCGroup(const Record& record, const Variables& dictionary, Report& report);

/// By the record's own type.
bool Validate(const Record& record, const Variables& dictionary, Report& report);

}  // namespace reference

#endif  // TESTS_REFERENCE_VALIDATORS_H
