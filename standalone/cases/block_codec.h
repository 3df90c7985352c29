#ifndef STANDALONE_CASES_BLOCK_CODEC_H
#define STANDALONE_CASES_BLOCK_CODEC_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "standalone/cases/block.h"

namespace standalone {

// A block on the disk is two strings of bytes, little-endian. The head can be read and verified alone:
//
//   u8 encoding, u8 1 where the variable is numeric, u32 cases, u32 missing, u32 values,
//   the values, ascending (f64 each; of texts, a u32 with the size of each, then all bytes),
//   u32 for each value: the cases that hold it,
//   u64 checksum of the cells, u64 checksum of the head up to here.
//
// The cells are, by the encoding: nothing (a constant); codes of 1, 2, 4, 8 or 16 bits, the first case in the lowest
// bits, those after the last case 0; a f64 for each case, NaN for a missing one; a u32 for each case with the size of
// its text, then all bytes.

/// The most cases of a block.
inline constexpr std::size_t kMaxCasesOfBlock = 65'536;

/// The most values of a block with codes.
inline constexpr std::size_t kMaxValuesOfBlock = 65'535;

struct EncodedBlock {
  std::string head;
  std::string cells;
};

/// What the head tells of a block with codes, and the code of each case: 0 is missing, else the index of the value
/// plus 1. Every value occurs; one without missing cells, and none, make a constant.
EncodedBlock EncodeCodes(const BlockHead& head, const std::vector<std::uint16_t>& codes);

/// Numbers, NaN for a missing one, as they are.
EncodedBlock EncodeNumbers(const std::vector<double>& cells);

/// Texts, an empty one for a missing one, as they are.
EncodedBlock EncodeTexts(const std::vector<std::string_view>& cells);

/// How many bits a code takes where there are so many values.
int BitsOfCode(std::size_t values);

// Both throw an Error of kind kDamaged, whose sentence is the end of one that begins with what is damaged, where the
// bytes are not what the functions above make, whatever they are. Whether the counts of the values are those of the
// codes is left to CheckCounts().

BlockHead DecodeHead(std::string_view head);

/// The memory of `block` is used again.
void DecodeBlock(std::string_view head, std::string_view cells, Block& block);

/// Throws such an Error where the head of a block counts other cells than there are.
void CheckCounts(const BlockHead& head, const Block& block);

}  // namespace standalone

#endif  // STANDALONE_CASES_BLOCK_CODEC_H
