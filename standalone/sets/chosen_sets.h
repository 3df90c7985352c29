#ifndef STANDALONE_SETS_CHOSEN_SETS_H
#define STANDALONE_SETS_CHOSEN_SETS_H

#include <stdexcept>
#include <string>
#include <vector>

#include "standalone/data/dataset.h"

namespace standalone {

/// A set that is asked for and is not there; what() is one sentence.
class UnknownSetError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// The sets of these names, without regard to case, in the order in which they are stored; all of them where no name is
/// given. `datasetPath` is where they come from, for the sentence. Throws UnknownSetError.
std::vector<StoredSet> ChooseSets(const std::vector<StoredSet>& sets, const std::vector<std::string>& names,
                                  const std::string& datasetPath);

}  // namespace standalone

#endif  // STANDALONE_SETS_CHOSEN_SETS_H
