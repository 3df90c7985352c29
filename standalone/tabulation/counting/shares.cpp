#include "standalone/tabulation/counting/shares.h"

namespace standalone {

Shares SharesOf(const TestedTable& table) {
  const CountedCell base = table.sums.Present(kBaseRow);
  Shares shares;
  shares.cases = static_cast<Exact>(base.cases);
  shares.weight = base.weights.once;
  for (const ByCategory& category : table.categories) {
    const CountedCell cell = table.sums.At(kBaseRow, category.index);
    shares.categories.push_back(
        {category.index, cell.weights.once / shares.weight, cell.cases > 0 && cell.cases < base.cases});
  }
  for (const Member& member : table.members) {
    const std::size_t row = table.firstMemberRow + member.index;
    const CountedCell cell = table.sums.Present(row);
    const Share share{member.index, cell.weights.once / shares.weight, cell.cases > 0 && cell.cases < base.cases};
    shares.members.push_back(share);
    shares.excess.emplace_back();
    for (const Share& category : shares.categories) {
      const Exact joint = table.sums.At(row, category.index).weights.once / shares.weight;
      shares.excess.back().push_back(joint - category.share * share.share);
    }
  }
  return shares;
}

}  // namespace standalone
