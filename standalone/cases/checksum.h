#ifndef STANDALONE_CASES_CHECKSUM_H
#define STANDALONE_CASES_CHECKSUM_H

#include <cstdint>
#include <string_view>

namespace standalone {

/// XXH3 with 64 bits.
std::uint64_t Checksum(std::string_view bytes);

/// For tables in memory: another function in every process, so that nobody can make data whose places there collide.
std::uint64_t SeededHash(std::string_view bytes);

}  // namespace standalone

#endif  // STANDALONE_CASES_CHECKSUM_H
