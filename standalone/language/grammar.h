#ifndef STANDALONE_LANGUAGE_GRAMMAR_H
#define STANDALONE_LANGUAGE_GRAMMAR_H

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

#include "standalone/language/tokenizer.h"

namespace standalone {

// The grammar of MRSET as far as it helps to type a command. What a command means, and whether it is right, only the
// module says.

inline constexpr std::string_view kMrsetCommand = "MRSET";

/// The other command, whose grammar is in tabulation/.
inline constexpr std::string_view kTabulateCommand = "TABULATE";

inline constexpr std::array<std::string_view, 2> kCommands = {kMrsetCommand, kTabulateCommand};

/// What comes after a keyword and its "=".
enum class ValueKind {
  kNewSetName,    ///< $name
  kSetNames,      ///< [$name ...] or ALL
  kText,          ///< 'text'
  kOption,        ///< one of the keyword's options
  kCountedValue,  ///< a number or 'text'
  kVariables      ///< names and ranges
};

struct Keyword {
  std::string_view name;
  ValueKind value;
  std::vector<std::string_view> options = {};
};

struct SubcommandRule {
  std::string_view name;
  std::vector<Keyword> keywords;
};

/// The subcommands in the order in which they are tried.
const std::vector<SubcommandRule>& MrsetSubcommands();

/// What a command can go on with.
enum class Expected {
  kNothing,  ///< what stands there is wrong, or nothing can be said
  kCommand,
  kSubcommand,
  kKeyword,  ///< or "/" and a subcommand, or the end
  kEquals,
  kValue,           ///< the first token of the value of `keyword`
  kSetNameInList,   ///< after "["; or "]"
  kVariableInList,  ///< after a word of a list of variables; or as kKeyword
};

struct Expectation {
  Expected what = Expected::kNothing;
  const SubcommandRule* subcommand = nullptr;  ///< in which the command stands, from kKeyword on
  const Keyword* keyword = nullptr;            ///< whose "=" or value is expected
  std::vector<const Keyword*> given;           ///< the subcommand's keywords so far, each with its value
  std::size_t listBegin = 0;                   ///< first token of the list that is open
  std::size_t variablesBegin = 0;              ///< tokens of the subcommand's complete list of variables, if any
  std::size_t variablesEnd = 0;
};

/// What can follow the first `count` tokens of a command; the end of the command is none of them.
Expectation ExpectedAfter(const std::vector<Token>& tokens, std::size_t count);

// Words may be in any case, and shortened.

/// Whether an upper-case token names a keyword: the whole of it, or its first letters, three at least.
bool NamesKeyword(std::string_view upperCaseToken, std::string_view keyword);

/// Whether an upper-case word names a command.
bool NamesCommand(std::string_view upperCaseWord);

/// Whether the token is a word that names the keyword.
bool NamesKeyword(const Token& token, std::string_view keyword);

/// The subcommand that a word names; null when it names none.
const SubcommandRule* FindSubcommand(std::string_view word);

/// The keyword with "=" and a value that a word names in a subcommand; null when it names none there.
const Keyword* FindKeyword(const SubcommandRule& rule, std::string_view word);

/// Whether a value of the keyword can begin with the token.
bool CanBeginValue(const Keyword& keyword, const Token& token);

/// Whether the token is the word TO of a list of variables.
bool IsRangeWord(const Token& token);

}  // namespace standalone

#endif  // STANDALONE_LANGUAGE_GRAMMAR_H
