#include "standalone/host/stored_sets.h"

namespace standalone {
namespace {

VariableSet ToVariableSet(const StoredSet& stored) {
  const bool isCategorySet = stored.type == SetType::kCategory;
  VariableSet set(stored.name, isCategorySet ? VariableSet::kMCSet : VariableSet::kMDSet);
  set.SetLabel(stored.label);
  set.SetValue(stored.countedValue);
  set.LabelSetByVariable(stored.labelFromVariable);
  set.UseVariableCategoryLabels(stored.categoryLabelsFromCountedValue);
  for (const std::string& variable : stored.variables) {
    set.AddVariableName(variable);
  }
  return set;
}

StoredSet ToStoredSet(const VariableSet& set) {
  StoredSet stored;
  stored.name = set.GetName(VariableSet::kAsStored);
  stored.type = set.GetType() == VariableSet::kMCSet ? SetType::kCategory : SetType::kDichotomy;
  stored.label = set.GetLabel();
  stored.countedValue = set.GetValue();
  stored.labelFromVariable = set.qLabelSetByVariable();
  stored.categoryLabelsFromCountedValue = set.qUseVariableCategoryLabels();
  stored.variables = set.GetVariableNames(VariableSet::kAsStored);
  return stored;
}

}  // namespace

VARIABLESETS ToVariableSets(const std::vector<StoredSet>& sets) {
  VARIABLESETS result;
  result.reserve(sets.size());
  for (const StoredSet& set : sets) {
    result.push_back(ToVariableSet(set));
  }
  return result;
}

std::vector<StoredSet> ToStoredSets(const VARIABLESETS& sets) {
  std::vector<StoredSet> result;
  result.reserve(sets.size());
  for (const VariableSet& set : sets) {
    result.push_back(ToStoredSet(set));
  }
  return result;
}

}  // namespace standalone
