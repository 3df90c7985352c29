#ifndef STANDALONE_TABULATION_READING_VALUE_TEST_H
#define STANDALONE_TABULATION_READING_VALUE_TEST_H

#include <string>
#include <string_view>
#include <vector>

#include "standalone/tabulation/request.h"

namespace standalone {

/// Which values of a variable are meant: those that compare so with any of the numbers or texts. A missing cell
/// compares with nothing.
struct ValueTest {
  Condition::Operator compare = Condition::Operator::kEqual;
  std::vector<double> numbers;
  std::vector<std::string> texts;  ///< as they are compared
  bool isOfMissing = false;        ///< missing cells are meant, and no others

  bool Holds(double number) const;
  bool Holds(std::string_view text) const;
};

/// The test of missing cells.
ValueTest MissingTest();

}  // namespace standalone

#endif  // STANDALONE_TABULATION_READING_VALUE_TEST_H
