#ifndef TESTS_FUZZ_TARGET_H
#define TESTS_FUZZ_TARGET_H

#include <cstddef>
#include <cstdint>

/// The entry point of a fuzz target: tries one input and ends the process where something is wrong. Always 0.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

#endif  // TESTS_FUZZ_TARGET_H
