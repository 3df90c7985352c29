#include "standalone/sets/set_diff.h"

#include <algorithm>
#include <unordered_map>

#include "standalone/text/unicode.h"

namespace standalone {
namespace {

using Names = std::vector<std::string>;
using Keys = std::vector<std::string>;

Keys KeysOf(const Names& names) {
  Keys keys;
  std::transform(names.begin(), names.end(), std::back_inserter(keys),
                 [](const std::string& name) { return ToUpper(name); });
  return keys;
}

/// Divides names into those that the other list has as well, as often as it has them, and the rest.
void Divide(const Names& names, const Keys& otherKeys, Names& common, Names& rest) {
  std::unordered_map<std::string, int> left;
  for (const std::string& key : otherKeys) {
    ++left[key];
  }
  for (const std::string& name : names) {
    (left[ToUpper(name)]-- > 0 ? common : rest).push_back(name);
  }
}

ListDifference CompareNames(const Names& a, const Names& b) {
  ListDifference difference;
  Divide(a, KeysOf(b), difference.commonInA, difference.onlyInA);
  Divide(b, KeysOf(a), difference.commonInB, difference.onlyInB);
  difference.reordered = KeysOf(difference.commonInA) != KeysOf(difference.commonInB);
  return difference;
}

std::string TypeName(const StoredSet& set) {
  return set.type == SetType::kDichotomy ? "dichotomy" : "category";
}

template <typename Value>
void CompareField(const char* field, const Value& a, const Value& b, std::vector<FieldDifference>& differences) {
  if (!(a == b)) {
    differences.push_back({field, a, b});
  }
}

DifferingSet CompareSet(const StoredSet& a, const StoredSet& b) {
  DifferingSet changed{a, b, {}, a.variables != b.variables, CompareNames(a.variables, b.variables)};
  CompareField("name", a.name, b.name, changed.fields);
  CompareField("type", TypeName(a), TypeName(b), changed.fields);
  CompareField("label", a.label, b.label, changed.fields);
  CompareField("countedValue", a.countedValue, b.countedValue, changed.fields);
  CompareField("labelFromVariable", a.labelFromVariable, b.labelFromVariable, changed.fields);
  CompareField("categoryLabelsFromCountedValue", a.categoryLabelsFromCountedValue, b.categoryLabelsFromCountedValue,
               changed.fields);
  return changed;
}

class SetsByName {
 public:
  explicit SetsByName(const std::vector<StoredSet>& sets) {
    for (const StoredSet& set : sets) {
      fSets.emplace(ToUpper(set.name), &set);
    }
  }

  /// Null when there is none of that name.
  const StoredSet* Find(const std::string& name) const {
    const auto found = fSets.find(ToUpper(name));
    return found == fSets.end() ? nullptr : found->second;
  }

 private:
  std::unordered_map<std::string, const StoredSet*> fSets;
};

Names NamesOf(const std::vector<StoredSet>& sets) {
  Names names;
  std::transform(sets.begin(), sets.end(), std::back_inserter(names), [](const StoredSet& set) { return set.name; });
  return names;
}

}  // namespace

SetsDifference CompareSets(const std::vector<StoredSet>& a, const std::vector<StoredSet>& b) {
  SetsDifference difference;
  difference.names = CompareNames(NamesOf(a), NamesOf(b));
  const SetsByName inA(a);
  const SetsByName inB(b);
  for (const StoredSet& set : a) {
    const StoredSet* other = inB.Find(set.name);
    if (other == nullptr) {
      difference.onlyInA.push_back(set);
    } else if (!(set == *other)) {
      difference.changed.push_back(CompareSet(set, *other));
    }
  }
  std::copy_if(b.begin(), b.end(), std::back_inserter(difference.onlyInB),
               [&](const StoredSet& set) { return inA.Find(set.name) == nullptr; });
  return difference;
}

}  // namespace standalone
