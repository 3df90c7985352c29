#include "standalone/cases/checksum.h"

#include <sys/auxv.h>
#include <xxhash.h>

namespace standalone {

namespace {

/// The kernel gives every program that starts 16 random bytes, which cannot fail.
std::uint64_t Seed() {
  constexpr std::size_t kSize = 16;
  static const std::uint64_t seed = XXH3_64bits(reinterpret_cast<const void*>(getauxval(AT_RANDOM)), kSize);
  return seed;
}

}  // namespace

std::uint64_t Checksum(std::string_view bytes) {
  return XXH3_64bits(bytes.data(), bytes.size());
}

std::uint64_t SeededHash(std::string_view bytes) {
  return XXH3_64bits_withSeed(bytes.data(), bytes.size(), Seed());
}

}  // namespace standalone
