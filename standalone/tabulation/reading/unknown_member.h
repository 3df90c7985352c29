#ifndef STANDALONE_TABULATION_READING_UNKNOWN_MEMBER_H
#define STANDALONE_TABULATION_READING_UNKNOWN_MEMBER_H

#include <vector>

#include "standalone/tabulation/reading/set_reader.h"
#include "standalone/tabulation/request.h"
#include "standalone/tabulation/tabulation_error.h"

namespace standalone {

/// The error of a word that is a member of none of the sets.
TabulationError UnknownMember(const Spoken& member, const std::vector<const SetReader*>& sets);

}  // namespace standalone

#endif  // STANDALONE_TABULATION_READING_UNKNOWN_MEMBER_H
