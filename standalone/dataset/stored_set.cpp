#include "standalone/dataset/stored_set.h"

#include <tuple>

namespace standalone {

namespace {

auto Members(const StoredSet& set) {
  return std::tie(set.name, set.type, set.label, set.countedValue, set.labelFromVariable,
                  set.categoryLabelsFromCountedValue, set.variables);
}

}  // namespace

bool StoredSet::operator==(const StoredSet& other) const {
  return Members(*this) == Members(other);
}

SetList Shared(const std::vector<StoredSet>& sets) {
  SetList shared;
  shared.reserve(sets.size());
  for (const StoredSet& set : sets) {
    shared.push_back(std::make_shared<StoredSet>(set));
  }
  return shared;
}

std::vector<StoredSet> Copies(const SetList& sets) {
  std::vector<StoredSet> copies;
  copies.reserve(sets.size());
  for (const SharedSet& set : sets) {
    copies.push_back(*set);
  }
  return copies;
}

bool AreSame(const SharedSet& first, const SharedSet& second) {
  return first == second || *first == *second;
}

}  // namespace standalone
