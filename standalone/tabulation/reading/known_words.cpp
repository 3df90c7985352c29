#include "standalone/tabulation/reading/known_words.h"

#include <algorithm>

#include "standalone/tabulation/reading/unknown_member.h"

namespace standalone {
namespace {

std::vector<const SetReader*> AllOf(const std::vector<SetReader*>& sets) {
  return {sets.begin(), sets.end()};
}

bool IsInAny(const std::vector<SetReader*>& sets, const Spoken& member) {
  return std::any_of(sets.begin(), sets.end(), [&](SetReader* set) { return HasMember(*set, member.text); });
}

/// The end of the members where the set has all of them.
std::vector<Spoken>::const_iterator FirstUnknown(const NetRequest& net, SetReader& set) {
  return std::find_if(net.members.begin(), net.members.end(),
                      [&set](const Spoken& member) { return !HasMember(set, member.text); });
}

void RequireFit(const NetRequest& net, const std::vector<SetReader*>& sets) {
  for (const Spoken& member : net.members) {
    if (!IsInAny(sets, member)) {
      throw UnknownMember(member, AllOf(sets));
    }
  }
  const auto best = std::max_element(sets.begin(), sets.end(), [&net](SetReader* first, SetReader* second) {
    return FirstUnknown(net, *first) < FirstUnknown(net, *second);
  });
  if (const auto unknown = FirstUnknown(net, **best); unknown != net.members.end()) {
    throw UnknownMember(*unknown, {*best});
  }
}

}  // namespace

bool HasMember(SetReader& set, const std::string& word) {
  const std::optional<std::size_t> found = set.Find(word);
  return found && set.IsKnown(*found);
}

void FindNamedMembers(const TabulationRequest& request, const std::vector<SetReader*>& sets) {
  for (SetReader* set : sets) {
    for (const NetRequest& net : request.nets) {
      std::for_each(net.members.begin(), net.members.end(), [set](const Spoken& member) { set->Find(member.text); });
    }
    std::for_each(request.last.begin(), request.last.end(), [set](const Spoken& member) { set->Find(member.text); });
  }
}

void RequireKnownMembers(const TabulationRequest& request, const std::vector<SetReader*>& sets) {
  for (const NetRequest& net : request.nets) {
    RequireFit(net, sets);
  }
  for (const Spoken& member : request.last) {
    if (!IsInAny(sets, member)) {
      throw UnknownMember(member, AllOf(sets));
    }
  }
}

}  // namespace standalone
