#ifndef STANDALONE_LANGUAGE_KEYWORDS_H
#define STANDALONE_LANGUAGE_KEYWORDS_H

#include <string_view>

namespace standalone {

/// Whether an upper-case token names a keyword: the whole of it, or its first letters, three at least.
bool NamesKeyword(std::string_view upperCaseToken, std::string_view keyword);

}  // namespace standalone

#endif  // STANDALONE_LANGUAGE_KEYWORDS_H
