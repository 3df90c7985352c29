#ifndef STANDALONE_SHELL_TABULATE_CANDIDATES_H
#define STANDALONE_SHELL_TABULATE_CANDIDATES_H

#include <string>
#include <vector>

#include "standalone/shell/completer.h"
#include "standalone/tabulation/grammar/tabulate_grammar.h"

namespace standalone {

/// What can stand at a place of a TABULATE command.
struct TabulateCandidates {
  std::vector<std::string> keywords;  ///< in upper case
  std::vector<std::string> symbols;   ///< to be offered where no word has begun
  std::vector<std::string> values;    ///< as they are stored
  bool offersSets = false;
  bool offersVariables = false;
};

/// `tokens` are those of the command so far. Throws what the source throws.
TabulateCandidates CandidatesFor(const TabulateExpectation& expectation, const std::vector<Token>& tokens,
                                 CompletionSource& source);

}  // namespace standalone

#endif  // STANDALONE_SHELL_TABULATE_CANDIDATES_H
