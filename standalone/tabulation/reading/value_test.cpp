#include "standalone/tabulation/reading/value_test.h"

#include <algorithm>
#include <cmath>

#include "standalone/tabulation/reading/values.h"

namespace standalone {
namespace {

template <class Value, class Other>
bool Compares(const Value& value, Condition::Operator compare, const Other& other) {
  switch (compare) {
    case Condition::Operator::kEqual:
      return value == other;
    case Condition::Operator::kNotEqual:
      return value != other;
    case Condition::Operator::kLess:
      return value < other;
    case Condition::Operator::kLessOrEqual:
      return value <= other;
    case Condition::Operator::kGreater:
      return value > other;
    case Condition::Operator::kGreaterOrEqual:
      return value >= other;
  }
  return false;
}

}  // namespace

bool ValueTest::Holds(double number) const {
  if (isOfMissing || std::isnan(number)) {
    return isOfMissing && std::isnan(number);
  }
  return std::any_of(numbers.begin(), numbers.end(), [&](double other) { return Compares(number, compare, other); });
}

bool ValueTest::Holds(std::string_view text) const {
  const std::string_view compared = ComparedText(text);
  if (isOfMissing || compared.empty()) {
    return isOfMissing && compared.empty();
  }
  return std::any_of(texts.begin(), texts.end(),
                     [&](const std::string& other) { return Compares(compared, compare, other); });
}

ValueTest MissingTest() {
  ValueTest test;
  test.isOfMissing = true;
  return test;
}

}  // namespace standalone
