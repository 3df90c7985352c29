#ifndef STANDALONE_SETS_COPY_TRANSACTION_H
#define STANDALONE_SETS_COPY_TRANSACTION_H

#include <functional>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "standalone/dataset/dataset.h"
#include "standalone/sets/set_copy.h"

namespace standalone {

/// A dataset as a side of a copy, for as long as its command lasts. `dataset` must outlive it.
CopySide SideOf(Dataset& dataset, const std::string& name);

/// The variables of some sets that a dataset has, as they were when it was read.
class VariablesByName {
 public:
  VariablesByName() = default;
  VariablesByName(Dataset& dataset, const std::vector<StoredSet>& sets);

  /// Valid as long as this object.
  VariableFinder Finder() const;

 private:
  std::unordered_map<std::string, Variable> fVariables;  // by upper-case name
};

/// The text with which a copy is kept in the history of the target's sets; nothing where it is not to be written.
using CommandOfCopy = std::function<std::optional<std::string>(const CopyPlan& plan)>;

/// Copies the chosen sets into `target`, which sentences call `targetName`, in one transaction: planned again where
/// another process changes the target meanwhile, at last with the target locked. Returns the plan that holds. Throws
/// Error.
CopyPlan CopySets(const std::vector<StoredSet>& chosen, const CopySide& source, Dataset& target,
                  const std::string& targetName, const CommandOfCopy& commandOf);

}  // namespace standalone

#endif  // STANDALONE_SETS_COPY_TRANSACTION_H
