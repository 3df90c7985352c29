#include "standalone/program/version.h"

#include "commit.h"

namespace standalone {

std::string Version() {
  return MRSET_VERSION MRSET_COMMIT;
}

}  // namespace standalone
