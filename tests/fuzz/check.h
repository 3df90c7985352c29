#ifndef TESTS_FUZZ_CHECK_H
#define TESTS_FUZZ_CHECK_H

#include <string>

namespace fuzz {

/// Prints the finding and ends the process, which is how a fuzzer learns of it.
[[noreturn]] void Fail(const std::string& what);

/// Fails unless `holds`.
inline void Check(bool holds, const char* what) {
  if (!holds) {
    Fail(what);
  }
}

/// Fails with both texts unless they are the same.
void CheckSame(const std::string& actual, const std::string& expected, const char* what);

}  // namespace fuzz

#endif  // TESTS_FUZZ_CHECK_H
