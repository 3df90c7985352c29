#ifndef STANDALONE_SETS_SET_SCRIPT_H
#define STANDALONE_SETS_SET_SCRIPT_H

#include <optional>
#include <string>
#include <vector>

#include "standalone/dataset/dataset.h"

namespace standalone {

/// One set as a part of a script.
struct ScriptedSet {
  std::string command;              ///< makes exactly the set; empty when no command does
  std::optional<std::string> note;  ///< a sentence: why there is no command, or which error this one reports
};

/// Each set as a command that makes it on this dataset: what the command makes there has been compared with the set.
/// Nothing is written. Throws Error.
std::vector<ScriptedSet> ScriptSets(Dataset& dataset, const std::vector<StoredSet>& sets);

/// The sets as a script, in their order, with a comment for each note. `title` is the text of the first comment. With
/// `deleteAll` the script begins by deleting all sets of the dataset on which it runs.
std::string ScriptOf(const std::string& title, const std::vector<ScriptedSet>& sets, bool deleteAll);

}  // namespace standalone

#endif  // STANDALONE_SETS_SET_SCRIPT_H
