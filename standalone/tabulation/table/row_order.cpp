#include "standalone/tabulation/table/row_order.h"

#include <algorithm>

namespace standalone {

std::vector<Member> MembersInOrder(const SetCount& count, const TabulationRequest& request) {
  std::vector<Member> members = count.Set().Members();
  const auto countOf = [&count](const Member& member) {
    return count.SumsOf(0).At(count.RowOf(member.index), 0).weights.once;
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
