#include "standalone/sets/chosen_sets.h"

#include <fmt/format.h>

#include <algorithm>
#include <optional>

#include "standalone/language/nearest_name.h"
#include "standalone/text/error.h"
#include "standalone/text/unicode.h"

namespace standalone {
namespace {

bool IsNameOf(const StoredSet& set, const std::string& name) {
  return CompareNoCase(set.name, name) == 0;
}

/// A name that lacks its "$" is meant as well.
std::optional<std::string> MeantSet(const std::vector<StoredSet>& sets, const std::string& name) {
  const std::string word = name[0] == '$' ? name.substr(1) : name;
  NearestName nearest(word);
  for (const StoredSet& set : sets) {
    const std::string candidate = set.name.substr(std::min<std::size_t>(1, set.name.size()));
    if (CompareNoCase(candidate, word) == 0) {
      return set.name;
    }
    nearest.Offer(candidate);
  }
  const std::optional<std::string> found = nearest.Result();
  return found ? std::make_optional("$" + *found) : std::nullopt;
}

void CheckName(const std::vector<StoredSet>& sets, const std::string& name, const std::string& datasetPath) {
  if (name.empty()) {
    throw Error("The name of a set is empty; in a shell, put names in single quotes, as in '$drinks'.");
  }
  if (std::none_of(sets.begin(), sets.end(), [&](const StoredSet& set) { return IsNameOf(set, name); })) {
    const std::optional<std::string> meant = MeantSet(sets, name);
    throw Error(fmt::format("The dataset {} has no set {}{}", datasetPath, name,
                            meant ? "; did you mean " + *meant + "?" : "."));
  }
}

}  // namespace

std::vector<StoredSet> ChooseSets(const std::vector<StoredSet>& sets, const std::vector<std::string>& names,
                                  const std::string& datasetPath) {
  if (names.empty()) {
    return sets;
  }
  for (const std::string& name : names) {
    CheckName(sets, name, datasetPath);
  }
  std::vector<StoredSet> chosen;
  std::copy_if(sets.begin(), sets.end(), std::back_inserter(chosen), [&](const StoredSet& set) {
    return std::any_of(names.begin(), names.end(), [&](const std::string& name) { return IsNameOf(set, name); });
  });
  return chosen;
}

}  // namespace standalone
