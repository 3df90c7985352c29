#include "standalone/tabulation/bits.h"

namespace standalone {
namespace {

using CountFunction = std::int64_t (*)(const Bits& first, const Bits& second);

std::int64_t CountByPlainCode(const Bits& first, const Bits& second) {
  std::int64_t count = 0;
  for (std::size_t word = 0; word < kChunkWords; ++word) {
    count += __builtin_popcountll(first[word] & second[word]);
  }
  return count;
}

#if defined(__x86_64__)

/// The same with the instruction that every processor of the last fifteen years has, and the architecture does not
/// promise.
__attribute__((target("popcnt"))) std::int64_t CountByInstruction(const Bits& first, const Bits& second) {
  std::int64_t count = 0;
  for (std::size_t word = 0; word < kChunkWords; ++word) {
    count += __builtin_popcountll(first[word] & second[word]);
  }
  return count;
}

CountFunction FastestCount() {
  return __builtin_cpu_supports("popcnt") != 0 ? CountByInstruction : CountByPlainCode;
}

#else

CountFunction FastestCount() {
  return CountByPlainCode;
}

#endif

}  // namespace

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
  static const CountFunction count = FastestCount();
  return count(first, second);
}

std::int64_t CountOf(const Bits& bits) {
  return CountOfBoth(bits, bits);
}

}  // namespace standalone
