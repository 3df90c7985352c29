#ifndef STANDALONE_TABULATION_DATASET_SOURCE_H
#define STANDALONE_TABULATION_DATASET_SOURCE_H

#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "standalone/dataset/dataset.h"
#include "standalone/tabulation/source.h"

namespace standalone {

/// A dataset as sets are counted in it, within one transaction of it.
class DatasetSource final : public TabulationSource {
 public:
  /// The dataset must outlive the source. Its own sets are not looked at: a dry run has others.
  DatasetSource(Dataset& dataset, SetList sets);

  const StoredSet* FindSet(std::string_view name) override;
  void VisitSetNames(const std::function<void(std::string_view name)>& visit) override;
  int FindVariable(std::string_view name) override { return fDataset.FindVariable(name); }
  const Variable& VariableAt(int position) override { return fDataset.VariableAt(position); }
  void VisitVariableNames(const std::function<void(std::string_view name)>& visit) override;
  std::size_t BlockCount() override { return fDataset.BlockCount(); }
  std::size_t CasesOfBlock(std::size_t number) override { return fDataset.CasesOfBlock(number); }
  void ReadBlock(int variable, std::size_t number, Block& block) override;

 private:
  Dataset& fDataset;
  SetList fSets;
  std::unordered_map<std::string, const StoredSet*> fSetOfKey;  // by upper-case name
};

}  // namespace standalone

#endif  // STANDALONE_TABULATION_DATASET_SOURCE_H
