#ifndef STANDALONE_TABULATION_GRAMMAR_CONDITION_PARSER_H
#define STANDALONE_TABULATION_GRAMMAR_CONDITION_PARSER_H

#include "standalone/tabulation/grammar/token_reader.h"
#include "standalone/tabulation/request.h"

namespace standalone {

/// Reads what WHERE asks, up to the token that can be no part of it. Throws TabulationError.
Condition ReadCondition(TokenReader& reader);

}  // namespace standalone

#endif  // STANDALONE_TABULATION_GRAMMAR_CONDITION_PARSER_H
