#include "standalone/tabulation/table/row_order.h"

#include <algorithm>
#include <cmath>

namespace standalone {

namespace {

/// Sums of weights that differ by rounding alone, as the order of cases leaves them, are the same.
double ComparedCount(double count) {
  constexpr int kDigits = 12;
  if (count == 0) {
    return count;
  }
  const double scale = std::pow(10, kDigits - 1 - std::floor(std::log10(count)));
  return std::round(count * scale) / scale;
}

}  // namespace

std::vector<Member> MembersInOrder(const SetCount& count, const TabulationRequest& request) {
  std::vector<Member> members = count.Set().Members();
  const auto countOf = [&count](const Member& member) {
    return ComparedCount(count.SumsOf(0).At(count.RowOf(member.index), 0).weights.once);
  };
  if (request.sort != Sort::kNone) {
    std::stable_sort(members.begin(), members.end(), [&](const Member& first, const Member& second) {
      return request.sort == Sort::kAscending ? countOf(first) < countOf(second) : countOf(first) > countOf(second);
    });
  }
  for (const Spoken& last : request.last) {
    const std::optional<std::size_t> index = count.Set().Find(last.text);
    const auto member =
        std::find_if(members.begin(), members.end(), [index](const Member& one) { return one.index == index; });
    if (member != members.end()) {
      std::rotate(member, member + 1, members.end());
    }
  }
  return members;
}

}  // namespace standalone
