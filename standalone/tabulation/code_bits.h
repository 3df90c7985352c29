#ifndef STANDALONE_TABULATION_CODE_BITS_H
#define STANDALONE_TABULATION_CODE_BITS_H

#include <cstddef>
#include <cstdint>

#include "standalone/tabulation/bits.h"

namespace standalone {

/// The cases, `cases` of them from `codes` on, that have the code.
void FindCode(const std::uint8_t* codes, std::size_t cases, std::uint8_t code, Bits& bits);
void FindCode(const std::uint16_t* codes, std::size_t cases, std::uint16_t code, Bits& bits);

}  // namespace standalone

#endif  // STANDALONE_TABULATION_CODE_BITS_H
