#include "standalone/tabulation/reading/code_bits.h"

#if defined(__x86_64__)
#include <immintrin.h>
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

#if defined(__x86_64__)

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

/// For the cases of the last word, which is not full.
template <class Code>
void KeepRest(const Code* codes, std::size_t cases, Code code, Bits& bits) {
  const std::size_t fullWords = cases / kCasesOfWord;
  if (cases % kCasesOfWord != 0) {
    bits[fullWords] &= WordOf(codes + fullWords * kCasesOfWord, cases % kCasesOfWord, code);
  }
}

template <class Code>
void Keep(const Code* codes, std::size_t cases, Code code, Bits& bits) {
  const auto repeated = Repeated(code);
  for (std::size_t word = 0; word < cases / kCasesOfWord; ++word) {
    __builtin_prefetch(codes + word * kCasesOfWord + kChunkCases, 0,
                       2);  // of the next chunk, into the second-level cache
    if (bits[word] != 0) {
      bits[word] &= FullWordOf(codes + word * kCasesOfWord, repeated);
    }
  }
  KeepRest(codes, cases, code, bits);
}

#if defined(__x86_64__)

/// With an instruction that compares a word's cases at once, which servers have had since 2017.
__attribute__((target("avx512f,avx512bw"))) void KeepByVector(const std::uint8_t* codes, std::size_t cases,
                                                              std::uint8_t code, Bits& bits) {
  const __m512i repeated = _mm512_set1_epi8(static_cast<char>(code));
  for (std::size_t word = 0; word < cases / kCasesOfWord; ++word) {
    const std::uint8_t* ofWord = codes + word * kCasesOfWord;
    __builtin_prefetch(ofWord + kChunkCases, 0, 2);  // as above
    bits[word] &= _mm512_cmpeq_epi8_mask(_mm512_loadu_si512(ofWord), repeated);
  }
  KeepRest(codes, cases, code, bits);
}

bool HasVectors() {
  static const bool hasVectors = __builtin_cpu_supports("avx512bw") != 0;
  return hasVectors;
}

#endif

}  // namespace

void KeepCode(const std::uint8_t* codes, std::size_t cases, std::uint8_t code, Bits& bits) {
#if defined(__x86_64__)
  if (HasVectors()) {
    KeepByVector(codes, cases, code, bits);
    return;
  }
#endif
  KeepCodeAnywhere(codes, cases, code, bits);
}

void KeepCode(const std::uint16_t* codes, std::size_t cases, std::uint16_t code, Bits& bits) {
  Keep(codes, cases, code, bits);
}

void KeepCodeAnywhere(const std::uint8_t* codes, std::size_t cases, std::uint8_t code, Bits& bits) {
  Keep(codes, cases, code, bits);
}

}  // namespace standalone
