#include "standalone/tabulation/reading/bits.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <vector>

namespace standalone {
namespace {

/// A case is in them with this probability.
Bits RandomBits(std::mt19937& random, double probability) {
  std::bernoulli_distribution isIn(probability);
  Bits bits{};
  for (std::size_t place = 0; place < kChunkCases; ++place) {
    if (isIn(random)) {
      AddCase(bits, place);
    }
  }
  return bits;
}

std::int64_t CountedOneByOne(const Bits& bits) {
  std::int64_t count = 0;
  ForEachCase(bits, [&count](std::size_t /*place*/) { ++count; });
  return count;
}

TEST(BitsTest, EveryWayToCountThatTheProcessorHasCountsTheSame) {
  std::mt19937 random(1);
  std::vector<Bits> samples = {Bits{}, FirstCases(1), FirstCases(65), FirstCases(kChunkCases)};
  for (const double probability : {0.01, 0.5, 0.99}) {
    samples.push_back(RandomBits(random, probability));
  }
  const std::vector<CountFunction> functions = CountFunctions();
  ASSERT_FALSE(functions.empty());
  for (std::size_t way = 0; way < functions.size(); ++way) {
    for (const Bits& first : samples) {
      for (const Bits& second : samples) {
        EXPECT_EQ(functions[way](first, second), CountedOneByOne(Both(first, second))) << "way " << way;
      }
    }
  }
}

#if defined(__x86_64__)
TEST(BitsTest, AProcessorThatCountsVectorsHasEveryWay) {
  const bool hasVectors = __builtin_cpu_supports("avx512vl") != 0 && __builtin_cpu_supports("avx512vpopcntdq") != 0;
  EXPECT_EQ(CountFunctions().size(), hasVectors ? 3U : __builtin_cpu_supports("popcnt") != 0 ? 2U : 1U);
}
#endif

}  // namespace
}  // namespace standalone
