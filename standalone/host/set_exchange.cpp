#include "standalone/host/set_exchange.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
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

// The names in a form, without the copy of them that host/ gives out: that copy, of each set in each command, was some
// 40% of the cost of a long script. An explicit instantiation may name what is private.
using NamesInForm = std::vector<std::string> VariableSet::*;

struct VariableNames {
  friend NamesInForm Member(VariableNames names);
};

template <NamesInForm kMember>
struct Opened {
  friend NamesInForm Member(VariableNames /*names*/) { return kMember; }
};

template struct Opened<&VariableSet::fVariableNames>;

/// As ToStored(form) == stored, but for the copies that would take.
bool IsFormOf(const VariableSet& form, const StoredSet& stored) {
  return form.GetName(VariableSet::kAsStored) == stored.name && TypeOf(form) == stored.type &&
         form.GetLabel() == stored.label && form.GetValue() == stored.countedValue &&
         form.qLabelSetByVariable() == stored.labelFromVariable &&
         form.qUseVariableCategoryLabels() == stored.categoryLabelsFromCountedValue &&
         form.*Member(VariableNames()) == stored.variables;
}

/// Finds the sets that stay. Most do so in their order; the others are looked up by their names.
class GivenSets {
 public:
  explicit GivenSets(const SetList& sets) : fSets(sets) {}

  /// The set of that form; null where there is none.
  SharedSet Find(const VariableSet& form) {
    std::size_t index = fNext;
    if (!IsAt(index, form)) {
      index = fFound < fSets.size() ? IndexOf(form.GetName(VariableSet::kAsStored)) : fSets.size();
    }
    if (!IsAt(index, form)) {
      return nullptr;
    }
    ++fFound;
    fNext = index + 1;
    return fSets[index];
  }

 private:
  bool IsAt(std::size_t index, const VariableSet& form) const {
    return index < fSets.size() && IsFormOf(form, *fSets[index]);
  }

  std::size_t IndexOf(const std::string& name) {
    if (fIndices.empty()) {
      for (std::size_t index = 0; index < fSets.size(); ++index) {
        fIndices.emplace(fSets[index]->name, index);
      }
    }
    const auto found = fIndices.find(name);
    return found == fIndices.end() ? fSets.size() : found->second;
  }

  const SetList& fSets;
  std::size_t fNext = 0;   // after the one that was found last
  std::size_t fFound = 0;  // how many were
  std::unordered_map<std::string_view, std::size_t> fIndices;
};

}  // namespace

const VARIABLESETS& SetExchange::Give(const SetList& sets) {
  const auto differing = std::mismatch(fSets.begin(), fSets.end(), sets.begin(), sets.end()).first;
  const auto same = static_cast<std::size_t>(differing - fSets.begin());
  std::unordered_map<SharedSet, VariableSet> rest;  // of the forms that there are
  for (std::size_t index = same; index < fSets.size(); ++index) {
    rest.emplace(fSets[index], std::move(fForms[index]));
  }
  fSets.erase(differing, fSets.end());
  fForms.erase(fForms.begin() + static_cast<std::ptrdiff_t>(same), fForms.end());
  for (std::size_t index = same; index < sets.size(); ++index) {
    const auto kept = rest.extract(sets[index]);
    fForms.push_back(kept.empty() ? ToForm(*sets[index]) : std::move(kept.mapped()));
    fSets.push_back(sets[index]);
  }
  return fForms;
}

SetList SetExchange::Take(const VARIABLESETS& forms) const {
  GivenSets given(fSets);
  SetList sets;
  sets.reserve(forms.size());
  for (const VariableSet& form : forms) {
    SharedSet set = given.Find(form);
    sets.push_back(set != nullptr ? std::move(set) : std::make_shared<StoredSet>(ToStored(form)));
  }
  return sets;
}

}  // namespace standalone
