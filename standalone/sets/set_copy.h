#ifndef STANDALONE_SETS_SET_COPY_H
#define STANDALONE_SETS_SET_COPY_H

#include <functional>
#include <string>
#include <vector>

#include "standalone/dataset/stored_set.h"
#include "standalone/dataset/variable.h"

namespace standalone {

/// The variable of that name without regard to case, null when the dictionary has none.
using VariableFinder = std::function<const Variable*(const std::string& name)>;

/// One side of a copy: what its dictionary has, and how sentences call it.
struct CopySide {
  VariableFinder find;
  std::string name;
};

/// What becomes of one set.
struct CopiedSet {
  enum class Outcome {
    kAdded,
    kReplaced,
    kUnchanged,  ///< the target has the very same set
    kIncomplete  ///< not copied
  };

  std::string name;
  Outcome outcome = Outcome::kAdded;
  std::vector<std::string> problems;  ///< why it is incomplete, without a period at the end
  std::vector<std::string> remarks;   ///< what is other in the target and does no harm, likewise
};

struct CopyPlan {
  std::vector<StoredSet> sets;     ///< the target's list after the copy
  std::vector<CopiedSet> outcome;  ///< for each chosen set, in their order

  bool IsComplete() const;
};

/// Puts the chosen sets into the target's list: in the place of the set of the same name, without regard to case, else
/// at the end. Variables are spelled as in the target's dictionary. A set is incomplete, and left out of the list,
/// where the target lacks one of its variables, has it with another type, or not wide enough for the counted value, or
/// has no value labels where the set takes its category labels from them.
CopyPlan PlanCopy(const std::vector<StoredSet>& chosen, const std::vector<StoredSet>& targetSets,
                  const CopySide& source, const CopySide& target);

}  // namespace standalone

#endif  // STANDALONE_SETS_SET_COPY_H
