#ifndef STANDALONE_CASES_BLOCK_ENCODING_H
#define STANDALONE_CASES_BLOCK_ENCODING_H

#include <cstdint>

namespace standalone {

/// How the cells of a block lie on the disk; the numbers are part of the format. Codes of less than a byte are byte
/// codes once they are read.
enum class BlockEncoding : std::uint8_t {
  kConstant = 0,
  kBits1 = 1,
  kBits2 = 2,
  kBits4 = 3,
  kBits8 = 4,
  kBits16 = 5,
  kNumbers = 6,
  kTexts = 7
};

}  // namespace standalone

#endif  // STANDALONE_CASES_BLOCK_ENCODING_H
