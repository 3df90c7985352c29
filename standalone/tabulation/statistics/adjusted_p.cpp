#include "standalone/tabulation/statistics/adjusted_p.h"

#include <algorithm>
#include <cstddef>

namespace standalone {

void AdjustP(Adjustment adjustment, std::vector<MemberTest>& tests) {
  std::vector<MemberTest*> ascending;
  for (MemberTest& test : tests) {
    if (test.p) {
      ascending.push_back(&test);
    }
  }
  std::stable_sort(ascending.begin(), ascending.end(),
                   [](const MemberTest* first, const MemberTest* second) { return *first->p < *second->p; });
  double last = 0;
  for (std::size_t rank = 0; rank < ascending.size(); ++rank) {
    const std::size_t factor = adjustment == Adjustment::kHolm ? ascending.size() - rank : ascending.size();
    last = std::max(last, std::min(1.0, *ascending[rank]->p * static_cast<double>(factor)));
    ascending[rank]->adjustedP = last;
  }
}

}  // namespace standalone
