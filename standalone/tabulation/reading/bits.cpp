#include "standalone/tabulation/reading/bits.h"

namespace standalone {
namespace {

// Inlined into functions for different processors, so that the compiler makes the best of each.
inline __attribute__((always_inline)) std::int64_t CommonBits(const Bits& first, const Bits& second) {
  std::int64_t count = 0;
  for (std::size_t word = 0; word < kChunkWords; ++word) {
    count += __builtin_popcountll(first[word] & second[word]);
  }
  return count;
}

std::int64_t CountByPlainCode(const Bits& first, const Bits& second) {
  return CommonBits(first, second);
}

#if defined(__x86_64__)

/// With an instruction that processors have had since 2008.
__attribute__((target("popcnt"))) std::int64_t CountByWord(const Bits& first, const Bits& second) {
  return CommonBits(first, second);
}

/// With one for several words at once, which servers have had since 2019.
__attribute__((target("avx512f,avx512vl,avx512vpopcntdq"))) std::int64_t CountByVector(const Bits& first,
                                                                                       const Bits& second) {
  return CommonBits(first, second);
}

#endif

}  // namespace

std::vector<CountFunction> CountFunctions() {
  std::vector<CountFunction> functions;
#if defined(__x86_64__)
  if (__builtin_cpu_supports("avx512vl") != 0 && __builtin_cpu_supports("avx512vpopcntdq") != 0) {
    functions.push_back(CountByVector);
  }
  if (__builtin_cpu_supports("popcnt") != 0) {
    functions.push_back(CountByWord);
  }
#endif
  functions.push_back(CountByPlainCode);
  return functions;
}

Bits FirstCases(std::size_t cases) {
  Bits bits{};
  for (std::size_t word = 0; word < cases / kCasesOfWord; ++word) {
    bits[word] = ~std::uint64_t{0};
  }
  if (const std::size_t rest = cases % kCasesOfWord; rest != 0) {
    bits[cases / kCasesOfWord] = (std::uint64_t{1} << rest) - 1;
  }
  return bits;
}

std::int64_t CountOfBoth(const Bits& first, const Bits& second) {
  static const CountFunction count = CountFunctions().front();
  return count(first, second);
}

std::int64_t CountOf(const Bits& bits) {
  return CountOfBoth(bits, bits);
}

}  // namespace standalone
