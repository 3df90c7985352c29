#ifndef STANDALONE_TABULATION_READING_CODE_BITS_H
#define STANDALONE_TABULATION_READING_CODE_BITS_H

#include <cstddef>
#include <cstdint>

#include "standalone/tabulation/reading/bits.h"

namespace standalone {

/// Keeps those of the cases that have the code. The codes of the chunk's cases are `cases` from `codes` on; where no
/// case is left they are not looked at.
void KeepCode(const std::uint8_t* codes, std::size_t cases, std::uint8_t code, Bits& bits);
void KeepCode(const std::uint16_t* codes, std::size_t cases, std::uint16_t code, Bits& bits);

/// The same with the instructions that every processor has.
void KeepCodeAnywhere(const std::uint8_t* codes, std::size_t cases, std::uint8_t code, Bits& bits);

}  // namespace standalone

#endif  // STANDALONE_TABULATION_READING_CODE_BITS_H
