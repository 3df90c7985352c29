#include "tests/properties/child.h"
#include "tests/properties/generators.h"
#include "tests/properties/module_run.h"
#include "tests/properties/prediction.h"
#include "tests/properties/property.h"

// Each command runs in a process of its own, which ends by the very assertion that the reference foresees, or not at
// all.

namespace properties {
namespace {

std::string PredictedEnd(const Case& example) {
  const Prediction prediction = Predict(example);
  const auto assertion = prediction.Assertion();
  return assertion ? AssertionEnd(*assertion, prediction.ExpectedOutcome().messages) : "returned";
}

void RequirePredictedEnd(const Case& example) {
  CaseHost host(example);
  const std::string end = EndOfChild([&] { RunByModule(*host); }, [&] { return host->MessageLines(); });
  RequireEqual("the process", end, PredictedEnd(example));
}

TEST(Assertions, EndTheProcessAfterTheMessagesThatTheReferenceSays) {
  Check(DifferentialCases() / 60, [] { RequirePredictedEnd(*Cases(Style::kTrap)); });
}

TEST(Assertions, NothingElseEndsTheProcessOnAnyTokens) {
  Check(DifferentialCases() / 120, [] { RequirePredictedEnd(*AnyCases()); });
}

}  // namespace
}  // namespace properties
