#include "standalone/tabulation/reading/unknown_member.h"

#include <fmt/format.h>

#include "standalone/language/nearest_name.h"

namespace standalone {

TabulationError UnknownMember(const Spoken& member, const std::vector<const SetReader*>& sets) {
  NearestName nearest(member.text);
  for (const SetReader* set : sets) {
    if (const std::optional<std::string> candidate = set->NearestTo(member.text)) {
      nearest.Offer(*candidate);
    }
  }
  return TabulationError(sets.size() == 1 ? fmt::format("{} is not a member of {}.", member.text, sets[0]->Set().name)
                                          : fmt::format("{} is not a member of any of the sets.", member.text),
                         member.offset, member.size, nearest.Result());
}

}  // namespace standalone
