#ifndef STANDALONE_LANGUAGE_VARIABLE_LIST_H
#define STANDALONE_LANGUAGE_VARIABLE_LIST_H

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "standalone/language/tokenizer.h"

namespace standalone {

/// What a variable list asks of the dictionary.
struct VariableLookup {
  std::function<int(const std::string& name)> find;  ///< position of a variable, -1 when there is none
  std::function<std::string(int position)> name;     ///< name of the variable at a position
};

/// One item of a variable list: a name, or a range from one name to another. Tokens by index.
struct ListItem {
  std::size_t first = 0;
  std::size_t last = 0;  ///< of a single name, the same as `first`
};

/// The items in the tokens [begin, end), right or wrong; a TO that makes no range is an item by itself.
std::vector<ListItem> ListItems(const std::vector<Token>& tokens, std::size_t begin, std::size_t end);

/// What is wrong with a variable list.
struct ListProblem {
  std::string sentence;    ///< names the culprit
  std::size_t token = 0;   ///< the culprit's index
  bool isUnknown = false;  ///< the culprit is the name of no variable
};

/// Reads the variable list in the tokens [begin, end): names and ranges "a TO b", in dictionary order and inclusive.
/// Appends the positions to `positions`. Returns nothing on success, else what is wrong; `positions` then holds the
/// variables before it. A list without words is accepted and empty, also when `end` is not after `begin`.
std::optional<ListProblem> ReadVariableList(const std::vector<Token>& tokens, std::size_t begin, std::size_t end,
                                            const VariableLookup& lookup, std::vector<int>& positions);

}  // namespace standalone

#endif  // STANDALONE_LANGUAGE_VARIABLE_LIST_H
