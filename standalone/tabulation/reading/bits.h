#ifndef STANDALONE_TABULATION_READING_BITS_H
#define STANDALONE_TABULATION_READING_BITS_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace standalone {

/// Cases are counted in chunks of so many, so that all that is known of a chunk stays in the processor's cache.
inline constexpr std::size_t kChunkCases = 8192;
inline constexpr std::size_t kCasesOfWord = 64;
inline constexpr std::size_t kChunkWords = kChunkCases / kCasesOfWord;

/// One bit for each case of a chunk. Those behind the last case are 0.
using Bits = std::array<std::uint64_t, kChunkWords>;

/// The first `cases` cases of a chunk.
Bits FirstCases(std::size_t cases);

inline void KeepIn(Bits& bits, const Bits& others) {
  for (std::size_t word = 0; word < kChunkWords; ++word) {
    bits[word] &= others[word];
  }
}

inline void TakeOut(Bits& bits, const Bits& others) {
  for (std::size_t word = 0; word < kChunkWords; ++word) {
    bits[word] &= ~others[word];
  }
}

inline void AddTo(Bits& bits, const Bits& others) {
  for (std::size_t word = 0; word < kChunkWords; ++word) {
    bits[word] |= others[word];
  }
}

inline void AddCase(Bits& bits, std::size_t place) {
  bits[place / kCasesOfWord] |= std::uint64_t{1} << (place % kCasesOfWord);
}

inline Bits Both(const Bits& first, const Bits& second) {
  Bits both = first;
  KeepIn(both, second);
  return both;
}

/// Those of the first that are none of the second.
inline Bits Without(const Bits& first, const Bits& second) {
  Bits without = first;
  TakeOut(without, second);
  return without;
}

inline bool HasCases(const Bits& bits) {
  std::uint64_t any = 0;
  for (const std::uint64_t word : bits) {
    any |= word;
  }
  return any != 0;
}

std::int64_t CountOf(const Bits& bits);
std::int64_t CountOfBoth(const Bits& first, const Bits& second);

/// The ways to count those of both that this processor has, the fastest first.
using CountFunction = std::int64_t (*)(const Bits& first, const Bits& second);
std::vector<CountFunction> CountFunctions();

/// Calls `visit` with the place of each case, ascending.
template <class Visit>
void ForEachCase(const Bits& bits, Visit visit) {
  for (std::size_t word = 0; word < kChunkWords; ++word) {
    for (std::uint64_t rest = bits[word]; rest != 0; rest &= rest - 1) {
      visit(word * kCasesOfWord + static_cast<std::size_t>(__builtin_ctzll(rest)));
    }
  }
}

}  // namespace standalone

#endif  // STANDALONE_TABULATION_READING_BITS_H
