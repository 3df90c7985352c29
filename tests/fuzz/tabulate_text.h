#ifndef TESTS_FUZZ_TABULATE_TEXT_H
#define TESTS_FUZZ_TABULATE_TEXT_H

#include <string>

#include "standalone/tabulation/request.h"

namespace fuzz {

/// The request as a TABULATE command, which asks for the same.
std::string ToCommand(const standalone::TabulationRequest& request);

}  // namespace fuzz

#endif  // TESTS_FUZZ_TABULATE_TEXT_H
