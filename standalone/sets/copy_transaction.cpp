#include "standalone/sets/copy_transaction.h"

#include <string>

namespace standalone {
namespace {

/// How often a copy is tried without a lock where other processes come first.
constexpr int kOptimisticTries = 3;

/// How the copy is called in the target's history.
std::string CommandOf(const std::vector<StoredSet>& chosen, const CopySide& source) {
  std::string command = "copy " + source.name;
  for (const StoredSet& set : chosen) {
    command += " " + set.name;
  }
  return command;
}

}  // namespace

CopySide SideOf(Dataset& dataset, const std::string& name) {
  return {[&dataset](const std::string& wanted) -> const Variable* {
            const int position = dataset.FindVariable(wanted);
            return position < 0 ? nullptr : &dataset.VariableAt(position);
          },
          name};
}

CopyPlan CopySets(const std::vector<StoredSet>& chosen, const CopySide& source, Dataset& target,
                  const std::string& targetName, const std::function<bool(const CopyPlan& plan)>& isWanted) {
  for (int tries = 1;; ++tries) {
    target.BeginCommand(tries > kOptimisticTries);
    CopyPlan plan = PlanCopy(chosen, target.Sets(), source, SideOf(target, targetName));
    if (!isWanted(plan)) {
      target.EndCommand();
      return plan;
    }
    if (target.SaveSets(plan.sets, CommandOf(chosen, source)) == Dataset::Saved::kDone) {
      return plan;
    }
  }
}

}  // namespace standalone
