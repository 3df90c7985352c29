#include "standalone/tabulation/dataset_source.h"

#include <utility>

#include "standalone/text/unicode.h"

namespace standalone {

DatasetSource::DatasetSource(Dataset& dataset, SetList sets) : fDataset(dataset), fSets(std::move(sets)) {
  for (const SharedSet& set : fSets) {
    fSetOfKey.emplace(ToUpper(set->name), set.get());
  }
}

const StoredSet* DatasetSource::FindSet(std::string_view name) {
  const auto found = fSetOfKey.find(ToUpper(name));
  return found == fSetOfKey.end() ? nullptr : found->second;
}

void DatasetSource::VisitSetNames(const std::function<void(std::string_view name)>& visit) {
  for (const SharedSet& set : fSets) {
    visit(set->name);
  }
}

void DatasetSource::VisitVariableNames(const std::function<void(std::string_view name)>& visit) {
  fDataset.VisitVariables("", 0, [&visit](int /*position*/, const std::string& name) {
    visit(name);
    return true;
  });
}

void DatasetSource::ReadBlock(int variable, std::size_t number, Block& block) {
  fDataset.ReadBlock(variable, number, block);
}

}  // namespace standalone
