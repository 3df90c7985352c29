#include "tests/properties/prediction.h"

#include "tests/properties/watch.h"

namespace properties {

std::optional<std::string> Prediction::Assertion() const {
  if (parse.assertion) {
    return parse.assertion;
  }
  return apply ? apply->assertion : std::nullopt;
}

Parsed Prediction::ExpectedParse() const {
  return {parse.parsed, parse.records, parse.messages, parse.cursor, {}};
}

Outcome Prediction::ExpectedOutcome() const {
  Outcome outcome;
  outcome.messages = parse.messages;
  if (apply) {
    outcome.messages.insert(outcome.messages.end(), apply->messages.begin(), apply->messages.end());
    outcome.tables = apply->tables;
    outcome.saved = apply->saved;
    outcome.saves = 1;
  }
  return outcome;
}

Prediction Predict(const Case& example) {
  const Watch watch(example);
  Prediction prediction;
  prediction.parse = reference::Parse(example.tokens, example.dictionary, example.end);
  if (prediction.parse.parsed) {
    prediction.apply = reference::Apply(prediction.parse.records, example.dictionary, example.sets);
  }
  return prediction;
}

}  // namespace properties
