#ifndef STANDALONE_LANGUAGE_SLIPS_H
#define STANDALONE_LANGUAGE_SLIPS_H

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "standalone/language/script.h"
#include "standalone/language/tokenizer.h"

namespace standalone {

// Habits from other languages and from word processors: hints in plain words, without a final period.

/// A forgotten period, quotation marks that are not straight, commas, a comment of another language: where one of these
/// stands at the token that a message is about, or right beside it.
std::optional<std::string> HintOnSlip(const ScriptCommand& command, const std::vector<Token>& tokens,
                                      std::size_t token);

/// The same for a message about a subcommand as a whole, where `end` is the token after it: a "//" ended it.
std::optional<std::string> HintOnEndOfSubcommand(const std::vector<Token>& tokens, std::size_t end);

/// The same for a word that begins with "#", which may be a name that is misspelt: where no name is near.
std::optional<std::string> HintOnHashWord(const std::vector<Token>& tokens, std::size_t token);

/// The same for a command that begins with something other than its name.
std::optional<std::string> HintOnBeginning(std::string_view command);

/// The same for a string that is not closed.
std::optional<std::string> HintOnOpenString(std::string_view string);

/// The first line, from 0, of a comment of several lines that looks like the beginning of a command; 0 for none.
int LineTakenIn(std::string_view comment);

}  // namespace standalone

#endif  // STANDALONE_LANGUAGE_SLIPS_H
