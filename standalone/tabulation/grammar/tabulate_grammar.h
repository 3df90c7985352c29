#ifndef STANDALONE_TABULATION_GRAMMAR_TABULATE_GRAMMAR_H
#define STANDALONE_TABULATION_GRAMMAR_TABULATE_GRAMMAR_H

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "standalone/language/tokenizer.h"
#include "standalone/tabulation/request.h"

namespace standalone {

// The grammar of TABULATE. The parser, completion, help and the options of `mrset tabulate` share its table of
// subcommands.

enum class TabulateKey {
  kBy,
  kWeight,
  kBase,
  kWhere,
  kNone,
  kNet,
  kShow,
  kSort,
  kLast,
  kConfidence,
  kTest,
  kMinBase,
  kDecimals
};

/// What comes after a subcommand and its "=".
enum class TabulateValue {
  kColumns,    ///< variables, sets and pairs `a*b`
  kVariable,   ///< one
  kCondition,  ///< what WHERE asks
  kMember,     ///< a value
  kNet,        ///< a label, ":" and members
  kMembers,    ///< variables or values
  kWord,       ///< one of the subcommand's words
  kWords,      ///< one or more of them
  kNumber
};

struct TabulateSubcommand {
  TabulateKey key;
  std::string_view name;
  TabulateValue value;
  std::string_view form;     ///< how help shows the value
  std::string_view purpose;  ///< as help says it
  std::vector<std::string_view> words = {};
};

/// In the order in which help shows them.
const std::vector<TabulateSubcommand>& TabulateSubcommands();

const TabulateSubcommand& TabulateSubcommandOf(TabulateKey key);

/// The subcommand that a word names, in any case and shortened to three letters at least; null when it names none.
const TabulateSubcommand* FindTabulateSubcommand(std::string_view word);

/// Whether the subcommand may be given several times.
inline bool Repeats(const TabulateSubcommand& subcommand) {
  return subcommand.value == TabulateValue::kNet;
}

/// Whether the subcommand may do without a value.
inline bool IsValueOptional(const TabulateSubcommand& subcommand) {
  return subcommand.key == TabulateKey::kTest;
}

/// How deep parentheses and NOT may be nested in WHERE.
inline constexpr int kMaxConditionDepth = 100;

/// Reads a TABULATE command; `tokens` are those of `text`, the end last. Throws TabulationError.
TabulationRequest ParseTabulate(const std::vector<Token>& tokens, std::string_view text);

/// Reads what is given as the value of a subcommand's option into the request; `tokens` are those of `text`, the end
/// last. Sentences name the option. Throws TabulationError.
void ParseTabulateOption(const TabulateSubcommand& subcommand, const std::vector<Token>& tokens, std::string_view text,
                         TabulationRequest& request);

/// Throws TabulationError, about `test`, for a request of tests that has no BY. The names are those of the two where
/// the request was given.
void RequireColumnsToTest(const TabulationRequest& request, const Spoken& test, std::string_view testName,
                          std::string_view byName);

/// The option of a subcommand, as in "--by".
std::string OptionOf(const TabulateSubcommand& subcommand);

/// What a TABULATE command can go on with.
enum class TabulateExpected {
  kNothing,          ///< what stands there is wrong, or nothing can be said
  kSetName,          ///< or, where one is there, "/" and a subcommand
  kSubcommand,       ///
  kEquals,           ///< after the name of a subcommand
  kColumn,           ///< a variable or a set
  kVariable,         ///
  kMember,           ///< a variable or value of the sets
  kWord,             ///< of the subcommand's words
  kCondition,        ///< NOT, MISSING, a variable or a set
  kComparison,       ///< = and its kin, or IN
  kHas,              ///< after a set
  kValueOfVariable,  ///< in WHERE, of the variable `name`
  kMemberOfSet,      ///< in WHERE, of the set `name`
  kConnective        ///< AND, OR
};

struct TabulateExpectation {
  TabulateExpected what = TabulateExpected::kNothing;
  const TabulateSubcommand* subcommand = nullptr;  ///< in which the command stands
  std::vector<std::string> sets;                   ///< of the command so far
  std::vector<TabulateKey> given;                  ///< its subcommands so far
  std::size_t valueBegin = 0;                      ///< the first token of the subcommand's value
  std::string name;                                ///< of a variable or set that WHERE is about
  bool isComplete = false;                         ///< "/" and the next subcommand can follow, or the end
};

/// What can follow the first `count` tokens of a command that begins with TABULATE; the end of the command is none of
/// them. `tokens` are those of `text`.
TabulateExpectation ExpectedInTabulate(const std::vector<Token>& tokens, std::size_t count, std::string_view text);

}  // namespace standalone

#endif  // STANDALONE_TABULATION_GRAMMAR_TABULATE_GRAMMAR_H
