#include "standalone/sets/copy_transaction.h"

#include "standalone/dataset/retry.h"
#include "standalone/text/unicode.h"

namespace standalone {

CopySide SideOf(Dataset& dataset, const std::string& name) {
  return {[&dataset](const std::string& wanted) { return dataset.VariableNamed(wanted); }, name};
}

VariablesByName::VariablesByName(Dataset& dataset, const std::vector<StoredSet>& sets) {
  for (const StoredSet& set : sets) {
    for (const std::string& name : set.variables) {
      if (const Variable* variable = dataset.VariableNamed(name)) {
        fVariables.emplace(ToUpper(name), *variable);
      }
    }
  }
}

VariableFinder VariablesByName::Finder() const {
  return [this](const std::string& name) -> const Variable* {
    const auto found = fVariables.find(ToUpper(name));
    return found == fVariables.end() ? nullptr : &found->second;
  };
}

CopyPlan CopySets(const std::vector<StoredSet>& chosen, const CopySide& source, Dataset& target,
                  const std::string& targetName, const CommandOfCopy& commandOf) {
  CopyPlan plan;
  SaveWithRetries([&](Access access) {
    target.BeginTransaction(access);
    plan = PlanCopy(chosen, target.Sets(), source, SideOf(target, targetName));
    const std::optional<std::string> command = commandOf(plan);
    if (!command) {
      target.EndTransaction();
      return Dataset::Saved::kUnchanged;
    }
    return target.SaveSets(plan.sets, *command);
  });
  return plan;
}

}  // namespace standalone
