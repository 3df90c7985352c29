#include <gtest/gtest.h>

#include "tests/properties/property.h"

/// For the address sanitizer: the property library has no frame pointers, so that deeper stacks of allocations are all
/// different and fill the memory.
extern "C" const char* __asan_default_options() {  // NOLINT(bugprone-reserved-identifier,cert-*): its name
  return "malloc_context_size=8";
}

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  properties::Configure();
  return RUN_ALL_TESTS();
}
