#include "standalone/tabulation/reading/set_reader.h"

#include "standalone/tabulation/reading/category_reader.h"
#include "standalone/tabulation/reading/dichotomy_reader.h"

namespace standalone {

std::unique_ptr<SetReader> MakeSetReader(CountedSet set, const TabulationRequest& request, Columns& columns) {
  if (set.isCategory) {
    return std::make_unique<CategoryReader>(std::move(set), request.none, columns);
  }
  return std::make_unique<DichotomyReader>(std::move(set), request.base == TabulationBase::kComplete, columns);
}

}  // namespace standalone
