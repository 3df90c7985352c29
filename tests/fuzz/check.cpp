#include "tests/fuzz/check.h"

#include <cstdlib>
#include <iostream>

namespace fuzz {

void Fail(const std::string& what) {
  std::cerr << "FOUND: " << what << std::endl;
  std::abort();
}

void CheckSame(const std::string& actual, const std::string& expected, const char* what) {
  if (actual != expected) {
    Fail(std::string(what) + "\n-- is:\n" + actual + "\n-- should be:\n" + expected);
  }
}

}  // namespace fuzz
