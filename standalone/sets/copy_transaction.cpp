#include "standalone/sets/copy_transaction.h"

namespace standalone {
namespace {

/// How often a copy is tried without a lock where other processes come first.
constexpr int kOptimisticTries = 3;

}  // namespace

CopySide SideOf(Dataset& dataset, const std::string& name) {
  return {[&dataset](const std::string& wanted) -> const Variable* {
            const int position = dataset.FindVariable(wanted);
            return position < 0 ? nullptr : &dataset.VariableAt(position);
          },
          name};
}

CopyPlan CopySets(const std::vector<StoredSet>& chosen, const CopySide& source, Dataset& target,
                  const std::string& targetName, const CommandOfCopy& commandOf) {
  for (int tries = 1;; ++tries) {
    target.BeginCommand(tries > kOptimisticTries);
    CopyPlan plan = PlanCopy(chosen, target.Sets(), source, SideOf(target, targetName));
    const std::optional<std::string> command = commandOf(plan);
    if (!command) {
      target.EndCommand();
      return plan;
    }
    if (target.SaveSets(plan.sets, *command) == Dataset::Saved::kDone) {
      return plan;
    }
  }
}

}  // namespace standalone
