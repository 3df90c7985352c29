#include "standalone/tabulation/reading/code_bits.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <vector>

namespace standalone {
namespace {

/// The cases among `candidates` that have the code, one by one.
Bits ExpectedCases(const std::vector<std::uint8_t>& codes, std::uint8_t code, const Bits& candidates) {
  Bits expected{};
  ForEachCase(candidates, [&](std::size_t place) {
    if (codes[place] == code) {
      AddCase(expected, place);
    }
  });
  return expected;
}

TEST(CodeBitsTest, KeepsTheCasesThatHaveTheCodeOnEveryProcessor) {
  std::mt19937 random(1);
  for (const std::size_t cases : {0U, 1U, 63U, 64U, 65U, 200U, 8191U, 8192U}) {
    std::vector<std::uint8_t> codes(cases);
    Bits candidates{};
    for (std::size_t place = 0; place < cases; ++place) {
      codes[place] = static_cast<std::uint8_t>(random() % 3 == 0 ? 255 : random() % 3);
      if (random() % 4 != 0) {
        AddCase(candidates, place);
      }
    }
    for (const std::uint8_t code : std::vector<std::uint8_t>{0, 1, 2, 7, 255}) {
      Bits fast = candidates;
      Bits anywhere = candidates;
      KeepCode(codes.data(), cases, code, fast);
      KeepCodeAnywhere(codes.data(), cases, code, anywhere);
      EXPECT_EQ(fast, ExpectedCases(codes, code, candidates)) << cases << " cases, code " << int{code};
      EXPECT_EQ(anywhere, fast) << cases << " cases, code " << int{code};
    }
  }
}

}  // namespace
}  // namespace standalone
