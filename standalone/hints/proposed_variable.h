#ifndef STANDALONE_HINTS_PROPOSED_VARIABLE_H
#define STANDALONE_HINTS_PROPOSED_VARIABLE_H

#include <cstddef>
#include <optional>
#include <vector>

#include "standalone/dataset/dataset.h"
#include "standalone/language/tokenizer.h"

namespace standalone {

/// A list of variables in a command: its tokens [begin, end).
struct ListTokens {
  std::size_t begin = 0;
  std::size_t end = 0;
};

enum class VariableKind { kNumeric, kString };

/// Whether a word of a list may be replaced by the variable at a position: that variable, and what a range takes in
/// with it, is not in the list yet, is of the kind of the others whose names are known, and reverses no range. `wanted`
/// is the kind that counts where no other name is known; nothing where any is good. Throws Error.
bool FitsInList(Dataset& dataset, const std::vector<Token>& tokens, const ListTokens& list, std::size_t word,
                int position, std::optional<VariableKind> wanted);

}  // namespace standalone

#endif  // STANDALONE_HINTS_PROPOSED_VARIABLE_H
