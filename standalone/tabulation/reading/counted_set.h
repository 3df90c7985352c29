#ifndef STANDALONE_TABULATION_READING_COUNTED_SET_H
#define STANDALONE_TABULATION_READING_COUNTED_SET_H

#include <optional>
#include <string>
#include <vector>

#include "standalone/tabulation/reading/value_test.h"
#include "standalone/tabulation/reading/values.h"
#include "standalone/tabulation/request.h"
#include "standalone/tabulation/source.h"

namespace standalone {

/// A set and what the dictionary says of it.
struct CountedSet {
  std::string name;
  std::string label;
  bool isCategory = false;
  bool isNumeric = true;
  std::string countedValue;
  std::vector<int> variables;               ///< positions of those that exist
  std::vector<std::string> variableNames;   ///< one for each, as in the dictionary
  std::vector<std::string> variableLabels;  ///< of a dichotomy set, the members' labels
  std::vector<std::string> lostVariables;   ///< names of those that do not exist any more
  ValueLabels valueLabels{true};            ///< of a category set
};

/// The set of that name. Throws TabulationError where there is none and where it cannot be counted any more.
CountedSet FindCountedSet(const Spoken& name, TabulationSource& source);

/// The test of cells that hold the value, as it is written.
ValueTest TestOfValue(const std::string& written, bool isNumeric);

/// The position of a variable. Throws TabulationError where there is none.
int FindVariable(const Spoken& name, TabulationSource& source);

}  // namespace standalone

#endif  // STANDALONE_TABULATION_READING_COUNTED_SET_H
