#ifndef STANDALONE_OUTPUT_PLAIN_EXCERPT_H
#define STANDALONE_OUTPUT_PLAIN_EXCERPT_H

#include <cstddef>
#include <string>

#include "standalone/output/items.h"

namespace standalone {

/// The line of a script on which a place lies, as far as it fits, in a form that is harmless on a terminal.
struct Excerpt {
  std::string line;            ///< with "..." where it is cut
  std::size_t tokenBegin = 0;  ///< the bytes of `line` that show the place; none at the end of a command
  std::size_t tokenEnd = 0;
  std::size_t caretColumn = 0;  ///< how many terminal columns stand before the carets
  std::size_t caretWidth = 1;   ///< how many columns the carets take, at least 1
};

/// The excerpt around a place of the command, no wider than `width` terminal columns, of which 20 are used at least.
Excerpt ExcerptAt(const CommandResult& command, const Place& place, std::size_t width);

/// The carets that mark the place below the excerpt, caretColumn columns from its beginning.
std::string Carets(const Excerpt& excerpt);

/// The place in words: "all.script, line 3, column 14"; harmless on a terminal.
std::string PlaceInWords(const CommandResult& command, const Place& place);

}  // namespace standalone

#endif  // STANDALONE_OUTPUT_PLAIN_EXCERPT_H
