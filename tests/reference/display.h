#ifndef TESTS_REFERENCE_DISPLAY_H
#define TESTS_REFERENCE_DISPLAY_H

#include <string>
#include <vector>

#include "tests/reference/host_rules.h"
#include "tests/reference/record.h"
#include "tests/reference/report.h"

namespace reference {

/// The lines of the table that a DISPLAY record makes of the sorted sets.
std::vector<std::string> DisplayMRSets(const Record& subcmd, const Variables& dictionary,
                                       const std::vector<scripted::SetData>& sets, Report& report);

}  // namespace reference

#endif  // TESTS_REFERENCE_DISPLAY_H
