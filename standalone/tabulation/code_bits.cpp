#include "standalone/tabulation/code_bits.h"

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace standalone {
namespace {

template <class Code>
std::uint64_t WordOf(const Code* codes, std::size_t cases, Code code) {
  std::uint64_t word = 0;
  for (std::size_t place = 0; place < cases; ++place) {
    word |= std::uint64_t{codes[place] == code ? 1U : 0U} << place;
  }
  return word;
}

#if defined(__SSE2__)

constexpr std::size_t kCasesOfVector = 16;

__m128i VectorAt(const void* codes) {
  return _mm_loadu_si128(static_cast<const __m128i*>(codes));
}

/// All ones for each code that is the one looked for, as sixteen bytes.
__m128i Compared(const std::uint8_t* codes, __m128i code) {
  return _mm_cmpeq_epi8(VectorAt(codes), code);
}

__m128i Compared(const std::uint16_t* codes, __m128i code) {
  constexpr std::size_t kHalf = kCasesOfVector / 2;
  return _mm_packs_epi16(_mm_cmpeq_epi16(VectorAt(codes), code), _mm_cmpeq_epi16(VectorAt(codes + kHalf), code));
}

__m128i Repeated(std::uint8_t code) {
  return _mm_set1_epi8(static_cast<char>(code));
}

__m128i Repeated(std::uint16_t code) {
  return _mm_set1_epi16(static_cast<short>(code));
}

template <class Code>
std::uint64_t FullWordOf(const Code* codes, __m128i code) {
  std::uint64_t word = 0;
  for (std::size_t place = 0; place < kCasesOfWord; place += kCasesOfVector) {
    word |= std::uint64_t{static_cast<unsigned>(_mm_movemask_epi8(Compared(codes + place, code)))} << place;
  }
  return word;
}

#else

template <class Code>
Code Repeated(Code code) {
  return code;
}

template <class Code>
std::uint64_t FullWordOf(const Code* codes, Code code) {
  return WordOf(codes, kCasesOfWord, code);
}

#endif

template <class Code>
void Keep(const Code* codes, std::size_t cases, Code code, Bits& bits) {
  const auto repeated = Repeated(code);
  const std::size_t fullWords = cases / kCasesOfWord;
  for (std::size_t word = 0; word < fullWords; ++word) {
    __builtin_prefetch(codes + word * kCasesOfWord + kChunkCases);  // of the next chunk
    if (bits[word] != 0) {
      bits[word] &= FullWordOf(codes + word * kCasesOfWord, repeated);
    }
  }
  if (cases % kCasesOfWord != 0) {
    bits[fullWords] &= WordOf(codes + fullWords * kCasesOfWord, cases % kCasesOfWord, code);
  }
}

}  // namespace

void KeepCode(const std::uint8_t* codes, std::size_t cases, std::uint8_t code, Bits& bits) {
  Keep(codes, cases, code, bits);
}

void KeepCode(const std::uint16_t* codes, std::size_t cases, std::uint16_t code, Bits& bits) {
  Keep(codes, cases, code, bits);
}

}  // namespace standalone
