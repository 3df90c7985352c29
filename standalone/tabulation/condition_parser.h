#ifndef STANDALONE_TABULATION_CONDITION_PARSER_H
#define STANDALONE_TABULATION_CONDITION_PARSER_H

#include "standalone/tabulation/request.h"
#include "standalone/tabulation/token_reader.h"

namespace standalone {

/// Reads what WHERE asks, up to the token that can be no part of it. Throws TabulationError.
Condition ReadCondition(TokenReader& reader);

}  // namespace standalone

#endif  // STANDALONE_TABULATION_CONDITION_PARSER_H
