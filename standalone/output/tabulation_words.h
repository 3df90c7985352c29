#ifndef STANDALONE_OUTPUT_TABULATION_WORDS_H
#define STANDALONE_OUTPUT_TABULATION_WORDS_H

#include <string>
#include <string_view>

#include "standalone/tabulation/tabulation.h"

namespace standalone {

// What every form of output calls the parts of a tabulation.

/// "answered", "asked", "complete" or "all".
std::string_view NameOf(TabulationBase base);

/// The label of a column as one text: those of a pair are joined by ", ".
std::string LabelOf(const TabulationColumn& column);

/// Whether the BY is a set, whose members a test compares one by one.
bool IsSet(std::string_view by);

}  // namespace standalone

#endif  // STANDALONE_OUTPUT_TABULATION_WORDS_H
