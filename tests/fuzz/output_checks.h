#ifndef TESTS_FUZZ_OUTPUT_CHECKS_H
#define TESTS_FUZZ_OUTPUT_CHECKS_H

#include <cstddef>
#include <string_view>

namespace fuzz {

/// Fills templates, tables and messages with the lines of the text and renders them for a terminal of that width and in
/// every other form; ends the process where that does not keep its contract.
void CheckOutput(std::string_view text, std::size_t width);

}  // namespace fuzz

#endif  // TESTS_FUZZ_OUTPUT_CHECKS_H
