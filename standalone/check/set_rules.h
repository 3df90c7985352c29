#ifndef STANDALONE_CHECK_SET_RULES_H
#define STANDALONE_CHECK_SET_RULES_H

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "standalone/dataset/stored_set.h"
#include "standalone/dataset/variable.h"

namespace standalone {

// What every command keeps to when it makes a set. A file that something else has written need not.

/// One rule that a set does not keep.
struct SetProblem {
  std::string_view kind;  ///< the same for all problems of one rule
  std::string text;       ///< what goes between "The set $name " and a period
};

/// The kind of a name that cannot be one of a set.
inline constexpr std::string_view kSetNameProblem = "set name";

/// The kinds of variables whose labels of the counted value cannot name the categories: there is none, or another one
/// has it.
inline constexpr std::string_view kNoValueLabelProblem = "no value label";
inline constexpr std::string_view kSameValueLabelProblem = "same value label";

/// The longest label in bytes.
inline constexpr std::size_t kMaxSetLabelBytes = 255;

/// The bytes of a counted value that a string variable must be able to hold: all but leading and trailing blanks.
std::size_t NeededWidth(const std::string& countedValue);

/// The rules that a set keeps whatever the dictionary holds.
std::vector<SetProblem> FaultsOf(const StoredSet& set);

/// The variable of that name without regard to case, or nothing. Its value labels are only asked for `withLabels`.
using FindVariable = std::function<std::optional<Variable>(const std::string& name, bool withLabels)>;

/// The rules by which a set fits the dictionary. An import may replace the variables, so that a set no longer does.
std::vector<SetProblem> MisfitsOf(const StoredSet& set, const FindVariable& find);

/// Whether the variables of the set that exist are numeric; nothing where their types differ or none exists.
std::optional<bool> AreNumeric(const StoredSet& set, const FindVariable& find);

/// The sentence of a problem.
std::string Sentence(const StoredSet& set, const SetProblem& problem);

}  // namespace standalone

#endif  // STANDALONE_CHECK_SET_RULES_H
