#include "standalone/tabulation/set_reader.h"

#include "standalone/tabulation/category_reader.h"
#include "standalone/tabulation/dichotomy_reader.h"

namespace standalone {

std::unique_ptr<SetReader> MakeSetReader(CountedSet set, const std::optional<Spoken>& none, Columns& columns) {
  if (set.isCategory) {
    return std::make_unique<CategoryReader>(std::move(set), none, columns);
  }
  return std::make_unique<DichotomyReader>(std::move(set), columns);
}

}  // namespace standalone
