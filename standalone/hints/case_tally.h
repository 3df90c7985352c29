#ifndef STANDALONE_HINTS_CASE_TALLY_H
#define STANDALONE_HINTS_CASE_TALLY_H

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "standalone/cases/case_reader.h"
#include "standalone/dataset/dataset.h"

namespace standalone {

/// Different values in the order in which they came. Values that differ only in blanks at their ends are one; missing
/// ones are none.
class ValueList {
 public:
  /// Keeps the value if the list holds it not yet, and has room among `most`.
  void Add(const CaseCell& cell, std::size_t most);

  const std::vector<CaseCell>& Values() const { return fValues; }

  /// Whether there was no room for a value.
  bool HasMore() const { return fHasMore; }

  /// The same list as far as `most` values go.
  ValueList ShortenedTo(std::size_t most) const;

 private:
  std::vector<CaseCell> fValues;
  bool fHasMore = false;
};

/// What the cases hold of one variable of a set.
struct VariableTally {
  int position = 0;  ///< in the dictionary; -1 for one that is not there
  bool isChosen = false;
  ValueList values;  ///< at most kMaxShownValues; all of them, where the variable is not chosen
};

inline constexpr std::size_t kMaxShownValues = 6;

/// What the cases hold of one dichotomy set.
struct SetTally {
  /// The set must outlive the tally.
  SetTally(Dataset& dataset, const StoredSet& set);

  /// Blanks around a text do not count here, so that no hint says that a value is not there when it is, padded.
  bool IsCounted(const CaseCell& cell) const;

  const StoredSet& set;
  std::vector<VariableTally> variables;  ///< as in the set

 private:
  std::optional<double> fCountedNumber;
  std::string_view fCountedText;
};

/// How much of the cases is looked at, from the first on.
inline constexpr std::size_t kMaxBytesOfCases = 2'000'000;

/// Reads the cases for some sets, no farther than to the first case that leaves nothing to say. Whether every case was
/// read that may matter, and there is one. Takes the bytes that it reads from `bytesLeft`, and ends where these do.
bool TallyCases(Dataset& dataset, std::vector<SetTally>& tallies, std::size_t& bytesLeft);

/// A variable of a set that no case has chosen yet.
struct OpenVariable {
  int position;
  SetTally* set;
  VariableTally* variable;
};

/// In the order of the dictionary, those of the variables that are not chosen.
std::vector<OpenVariable> OpenVariables(std::vector<SetTally>& tallies);
void DropChosen(std::vector<OpenVariable>& open);

}  // namespace standalone

#endif  // STANDALONE_HINTS_CASE_TALLY_H
