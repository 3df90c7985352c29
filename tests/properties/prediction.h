#ifndef TESTS_PROPERTIES_PREDICTION_H
#define TESTS_PROPERTIES_PREDICTION_H

#include <optional>
#include <string>

#include "tests/properties/case.h"
#include "tests/properties/module_run.h"
#include "tests/reference/reference_apply.h"
#include "tests/reference/reference_parser.h"

namespace properties {

/// What the reference makes of a case.
struct Prediction {
  reference::ParseResult parse;
  std::optional<reference::ApplyResult> apply;  ///< none when the command does not parse

  /// The expression of the assertion that ends the process; none when it goes on.
  std::optional<std::string> Assertion() const;

  /// The module's outcomes when no assertion fails.
  Parsed ExpectedParse() const;
  Outcome ExpectedOutcome() const;
};

Prediction Predict(const Case& example);

}  // namespace properties

#endif  // TESTS_PROPERTIES_PREDICTION_H
