#ifndef STANDALONE_SETS_SET_COMMAND_H
#define STANDALONE_SETS_SET_COMMAND_H

#include <optional>
#include <string>

#include "standalone/dataset/stored_set.h"

namespace standalone {

/// Why no command can make this set, whatever the dictionary: a sentence; nothing where its name, its texts and its
/// type stand in no command's way.
std::optional<std::string> WhyNoCommandMakes(const StoredSet& set);

/// The command that makes the set, as lines of a script, the last of which ends in the final period and a line end. No
/// other line of it ends a command. Variables are listed one by one, so that their order in the dictionary on which the
/// command runs does not matter. A counted value of numeric variables is written as a number if it is one; any other is
/// quoted. For sets of which WhyNoCommandMakes() says nothing.
std::string CommandThatMakes(const StoredSet& set, bool variablesAreNumeric);

}  // namespace standalone

#endif  // STANDALONE_SETS_SET_COMMAND_H
