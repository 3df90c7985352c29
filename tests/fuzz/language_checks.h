#ifndef TESTS_FUZZ_LANGUAGE_CHECKS_H
#define TESTS_FUZZ_LANGUAGE_CHECKS_H

#include <string_view>

namespace fuzz {

/// Splits the text into commands and these, and the text itself, into tokens; reads each as a variable list and its
/// tokens as keywords; ends the process where one of them does not keep its contract.
void CheckScript(std::string_view script);

}  // namespace fuzz

#endif  // TESTS_FUZZ_LANGUAGE_CHECKS_H
