#include "tests/properties/generators.h"
#include "tests/properties/module_run.h"
#include "tests/properties/prediction.h"
#include "tests/properties/property.h"

// The module and the reference agree on every command: in the records, the messages and the cursor of the parse phase
// called by itself, and in the messages, tables and saved sets of the whole command.

namespace properties {
namespace {

void RequireAgreement(const Case& example) {
  const Prediction prediction = Predict(example);
  if (!prediction.parse.assertion) {
    RequireEqual("the parse phase", ParseByModule(example), prediction.ExpectedParse());
  }
  if (!prediction.Assertion()) {
    RequireEqual("the command", RunByModule(example), prediction.ExpectedOutcome());
  }
}

void CheckAgreement(Style style) {
  Check(DifferentialCases() / 3, [style] { RequireAgreement(*Cases(style)); });
}

TEST(Differential, ModuleAndReferenceAgreeOnSentences) {
  CheckAgreement(Style::kSentence);
}

TEST(Differential, ModuleAndReferenceAgreeOnMutatedSentences) {
  CheckAgreement(Style::kMutated);
}

TEST(Differential, ModuleAndReferenceAgreeOnTokenSoup) {
  CheckAgreement(Style::kSoup);
}

}  // namespace
}  // namespace properties
