#include "standalone/cases/checksum.h"

#include <xxhash.h>

namespace standalone {

std::uint64_t Checksum(std::string_view bytes) {
  return XXH3_64bits(bytes.data(), bytes.size());
}

}  // namespace standalone
