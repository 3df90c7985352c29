#ifndef STANDALONE_TABULATION_READING_KNOWN_WORDS_H
#define STANDALONE_TABULATION_READING_KNOWN_WORDS_H

#include <cstddef>
#include <string>
#include <vector>

#include "standalone/tabulation/reading/set_reader.h"
#include "standalone/tabulation/request.h"

namespace standalone {

/// Asks the sets for the members of nets and of LAST, before the first block.
void FindNamedMembers(const TabulationRequest& request, const std::vector<SetReader*>& sets);

/// Throws TabulationError unless one of the sets has all members of a net, for each net, and each member of LAST is in
/// one of them. Which members a category set has is known when all cases are read.
void RequireKnownMembers(const TabulationRequest& request, const std::vector<SetReader*>& sets);

/// Whether the word names a member of the set.
bool HasMember(SetReader& set, const std::string& word);

}  // namespace standalone

#endif  // STANDALONE_TABULATION_READING_KNOWN_WORDS_H
