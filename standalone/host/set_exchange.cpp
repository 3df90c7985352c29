#include "standalone/host/set_exchange.h"

#include <cstddef>
#include <memory>
#include <utility>

namespace standalone {
namespace {

VariableSet ToForm(const StoredSet& stored) {
  const bool isCategorySet = stored.type == SetType::kCategory;
  VariableSet form(stored.name, isCategorySet ? VariableSet::kMCSet : VariableSet::kMDSet);
  form.SetLabel(stored.label);
  form.SetValue(stored.countedValue);
  form.LabelSetByVariable(stored.labelFromVariable);
  form.UseVariableCategoryLabels(stored.categoryLabelsFromCountedValue);
  for (const std::string& variable : stored.variables) {
    form.AddVariableName(variable);
  }
  return form;
}

SetType TypeOf(const VariableSet& form) {
  return form.GetType() == VariableSet::kMCSet ? SetType::kCategory : SetType::kDichotomy;
}

StoredSet ToStored(const VariableSet& form) {
  StoredSet stored;
  stored.name = form.GetName(VariableSet::kAsStored);
  stored.type = TypeOf(form);
  stored.label = form.GetLabel();
  stored.countedValue = form.GetValue();
  stored.labelFromVariable = form.qLabelSetByVariable();
  stored.categoryLabelsFromCountedValue = form.qUseVariableCategoryLabels();
  stored.variables = form.GetVariableNames(VariableSet::kAsStored);
  return stored;
}

/// As ToStored(form) == stored, but for the copies that would take.
bool IsFormOf(const VariableSet& form, const StoredSet& stored) {
  return form.GetName(VariableSet::kAsStored) == stored.name && TypeOf(form) == stored.type &&
         form.GetLabel() == stored.label && form.GetValue() == stored.countedValue &&
         form.qLabelSetByVariable() == stored.labelFromVariable &&
         form.qUseVariableCategoryLabels() == stored.categoryLabelsFromCountedValue &&
         form.GetVariableNames(VariableSet::kAsStored) == stored.variables;
}

}  // namespace

const VARIABLESETS& SetExchange::Give(const SetList& sets) {
  std::size_t same = 0;
  while (same < sets.size() && same < fSets.size() && sets[same] == fSets[same]) {
    ++same;
  }
  fSets.resize(same);
  fForms.erase(fForms.begin() + static_cast<std::ptrdiff_t>(same), fForms.end());
  for (; same < sets.size(); ++same) {
    fForms.push_back(ToForm(*sets[same]));
    fSets.push_back(sets[same]);
  }
  return fForms;
}

// A command seldom does more than add, replace or drop a set here and there, so that a set that has stayed is looked
// for where the one before it was left, or one further on.
SetList SetExchange::Take(const VARIABLESETS& forms) {
  const SetList given = std::exchange(fSets, {});
  VARIABLESETS givenForms = std::exchange(fForms, {});
  SetList sets;
  VARIABLESETS kept;
  sets.reserve(forms.size());
  kept.reserve(forms.size());
  std::size_t next = 0;
  const auto stayed = [&](const VariableSet& form, std::size_t index) {
    return index < given.size() && IsFormOf(form, *given[index]);
  };
  for (const VariableSet& form : forms) {
    const std::size_t index = stayed(form, next) ? next : next + 1;
    if (index == next || stayed(form, index)) {
      sets.push_back(given[index]);
      kept.push_back(std::move(givenForms[index]));
      next = index + 1;
    } else {
      sets.push_back(std::make_shared<StoredSet>(ToStored(form)));
      kept.push_back(form);
    }
  }
  fSets = sets;
  fForms = std::move(kept);
  return sets;
}

}  // namespace standalone
