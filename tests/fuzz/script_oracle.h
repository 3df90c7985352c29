#ifndef TESTS_FUZZ_SCRIPT_ORACLE_H
#define TESTS_FUZZ_SCRIPT_ORACLE_H

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/tokens.h"

namespace fuzz {

// Small parts of the command language, written a second time and as plainly as can be.

/// The code points of a text; nothing when it is not valid UTF-8.
std::optional<std::vector<char32_t>> CodePoints(std::string_view text);

/// Whether there is a character that acts on a terminal: a control, line or paragraph separator, or one that turns the
/// direction of writing; a text that is not valid UTF-8 has one too. Line feeds are not looked at.
bool ActsOnTerminal(std::string_view text);

/// Whether a command can be read as tokens.
bool IsReadable(std::string_view command);

/// How many bytes of blanks and comments a text begins with.
std::size_t LengthOfBlanks(std::string_view text);

/// The type of the token with which a text begins; none where that takes knowledge of letters beyond ASCII.
std::optional<TokenSequenceBase::TokenType> TypeOfToken(std::string_view text);

/// The positions that the words of a variable list name in a dictionary of upper-case names; nothing when it is no list
/// that can be read. A word that is empty stands for a token that is none.
std::optional<std::vector<int>> PlainVariableList(const std::vector<std::string>& words,
                                                  const std::vector<std::string>& dictionary);

}  // namespace fuzz

#endif  // TESTS_FUZZ_SCRIPT_ORACLE_H
