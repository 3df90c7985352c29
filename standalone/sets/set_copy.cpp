#include "standalone/sets/set_copy.h"

#include <fmt/format.h>

#include <algorithm>
#include <optional>
#include <string_view>

#include "standalone/check/set_rules.h"
#include "standalone/text/unicode.h"

namespace standalone {
namespace {

std::string TypeName(const Variable& variable) {
  return variable.width == 0 ? "numeric" : "a string";
}

/// Copies one set.
class SetCopier {
 public:
  SetCopier(const CopySide& source, const CopySide& target, const StoredSet& set)
      : fSource(source), fTarget(target), fCopy(set) {
    fOutcome.name = set.name;
  }

  void Copy() {
    for (const SetProblem& fault : FaultsOf(fCopy)) {  // else it would be one of the target's
      fOutcome.problems.push_back("it " + fault.text);
    }
    std::vector<std::string> lacking;
    for (std::string& name : fCopy.variables) {
      if (const Variable* variable = fTarget.find(name)) {
        Compare(name, *variable);
        name = variable->name;
      } else {
        lacking.push_back(name);
      }
    }
    if (!lacking.empty()) {
      fOutcome.problems.push_back(fmt::format("{} lacks {}", fTarget.name, fmt::join(lacking, ", ")));
    }
    if (fOutcome.problems.empty()) {
      CompareLabels();
    }
  }

  const StoredSet& Set() const { return fCopy; }
  CopiedSet& Outcome() { return fOutcome; }

 private:
  void Compare(const std::string& name, const Variable& variable) {
    const Variable* original = fSource.find(name);
    const Variable& model = original != nullptr ? *original : Reference(variable);
    if ((variable.width == 0) != (model.width == 0)) {
      const std::string where = original != nullptr ? "unlike in " + fSource.name : "unlike others of the set";
      fOutcome.problems.push_back(
          fmt::format("{} is {} in {}, {}", variable.name, TypeName(variable), fTarget.name, where));
    } else if (variable.width != 0) {
      CompareWidths(variable, original);
    }
  }

  /// MRSET would not make the set without them.
  void CompareLabels() {
    const auto find = [this](const std::string& name, bool /*withLabels*/) -> std::optional<Variable> {
      const Variable* variable = fTarget.find(name);
      return variable == nullptr ? std::nullopt : std::make_optional(*variable);
    };
    const std::vector<SetProblem> misfits = MisfitsOf(fCopy, find);
    for (const std::string_view kind : {kNoValueLabelProblem, kSameValueLabelProblem}) {
      const auto isOfKind = [kind](const SetProblem& problem) { return problem.kind == kind; };
      const auto first = std::find_if(misfits.begin(), misfits.end(), isOfKind);
      if (first != misfits.end()) {
        const auto others = std::count_if(first + 1, misfits.end(), isOfKind);
        fOutcome.problems.push_back(fmt::format("in {} it {}{}", fTarget.name, first->text,
                                                others == 0 ? "" : fmt::format(" (and {} more)", others)));
      }
    }
  }

  void CompareWidths(const Variable& variable, const Variable* original) {
    const auto width = static_cast<std::size_t>(variable.width);
    if (width < NeededWidth(fCopy.countedValue)) {
      fOutcome.problems.push_back(
          fmt::format("{} has width {} in {}, too narrow for the counted value", variable.name, width, fTarget.name));
    } else if (original != nullptr && variable.width < original->width) {
      fOutcome.remarks.push_back(fmt::format("{} has width {} in {} and {} in {}", variable.name, width, fTarget.name,
                                             original->width, fSource.name));
    }
  }

  /// For a variable that the source itself lacks: the first of the set's that it has, else the first in the target.
  const Variable& Reference(const Variable& variable) const {
    for (const CopySide* side : {&fSource, &fTarget}) {
      for (const std::string& name : fCopy.variables) {
        if (const Variable* found = side->find(name)) {
          return *found;
        }
      }
    }
    return variable;
  }

  const CopySide& fSource;
  const CopySide& fTarget;
  StoredSet fCopy;
  CopiedSet fOutcome;
};

CopiedSet::Outcome Put(const StoredSet& set, std::vector<StoredSet>& sets) {
  const auto place = std::find_if(sets.begin(), sets.end(), [&set](const StoredSet& present) {
    return CompareNoCase(present.name, set.name) == 0;
  });
  if (place == sets.end()) {
    sets.push_back(set);
    return CopiedSet::Outcome::kAdded;
  }
  if (*place == set) {
    return CopiedSet::Outcome::kUnchanged;
  }
  *place = set;
  return CopiedSet::Outcome::kReplaced;
}

}  // namespace

bool CopyPlan::IsComplete() const {
  return std::all_of(outcome.begin(), outcome.end(),
                     [](const CopiedSet& set) { return set.outcome != CopiedSet::Outcome::kIncomplete; });
}

CopyPlan PlanCopy(const std::vector<StoredSet>& chosen, const std::vector<StoredSet>& targetSets,
                  const CopySide& source, const CopySide& target) {
  CopyPlan plan{targetSets, {}};
  for (const StoredSet& set : chosen) {
    SetCopier copier(source, target, set);
    copier.Copy();
    CopiedSet& outcome = copier.Outcome();
    outcome.outcome = outcome.problems.empty() ? Put(copier.Set(), plan.sets) : CopiedSet::Outcome::kIncomplete;
    plan.outcome.push_back(std::move(outcome));
  }
  return plan;
}

}  // namespace standalone
