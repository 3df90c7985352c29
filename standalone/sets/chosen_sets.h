#ifndef STANDALONE_SETS_CHOSEN_SETS_H
#define STANDALONE_SETS_CHOSEN_SETS_H

#include <string>
#include <vector>

#include "standalone/dataset/stored_set.h"

namespace standalone {

/// The sets of these names, without regard to case, in the order in which they are stored; all of them where no name is
/// given. `datasetPath` is where they come from, for the sentence. Throws Error.
std::vector<StoredSet> ChooseSets(const std::vector<StoredSet>& sets, const std::vector<std::string>& names,
                                  const std::string& datasetPath);

}  // namespace standalone

#endif  // STANDALONE_SETS_CHOSEN_SETS_H
