#include <set>

#include "tests/properties/generators.h"
#include "tests/properties/module_run.h"
#include "tests/properties/prediction.h"
#include "tests/properties/property.h"
#include "tests/properties/watch.h"

namespace properties {
namespace {

using scripted::Message;

/// A keyword in full and as it was respelled.
using Pairs = std::set<std::pair<std::string, std::string>>;

Pairs KeywordPairs(const Spellings& spellings) {
  const Tokens inFull = TokensOf(spellings.inFull);
  const Tokens respelled = TokensOf(spellings.respelled);
  Pairs pairs;
  for (std::size_t index = 0; index < inFull.size(); ++index) {
    pairs.emplace(inFull[index].text, respelled[index].text);
  }
  return pairs;
}

/// Whether the messages are the same but for a keyword that is quoted as it was written.
bool IsSameMessage(const Message& first, const Message& second, const Pairs& pairs) {
  bool same = first.level == second.level && first.pattern == second.pattern &&
              first.arguments.size() == second.arguments.size();
  for (std::size_t index = 0; same && index < first.arguments.size(); ++index) {
    const Lines& texts = first.arguments[index].texts;
    const Lines& others = second.arguments[index].texts;
    same = texts == others ||
           (texts.size() == 1 && others.size() == 1 && pairs.count({texts.front(), others.front()}) == 1);
  }
  return same;
}

struct Run {
  Outcome outcome;
  std::vector<Message> messages;
};

Run RunSentence(Case example, const Sentence& sentence) {
  example.tokens = TokensOf(sentence);
  const Watch watch(example);
  CaseHost host(example);
  Run run;
  run.outcome = RunByModule(*host);
  run.messages = host->Messages();
  run.outcome.messages.clear();
  return run;
}

bool EndsProcess(Case example, const Sentence& sentence) {
  example.tokens = TokensOf(sentence);
  return Predict(example).Assertion().has_value();
}

void RequireSameRun(const Spellings& spellings) {
  const bool ends = EndsProcess(spellings.example, spellings.inFull);
  RequireEqual("an assertion", EndsProcess(spellings.example, spellings.respelled), ends);
  if (ends) {
    return;
  }
  const Run first = RunSentence(spellings.example, spellings.inFull);
  const Run second = RunSentence(spellings.example, spellings.respelled);
  RequireEqual("the outcome", second.outcome, first.outcome);
  RequireEqual("the number of messages", second.messages.size(), first.messages.size());
  const Pairs pairs = KeywordPairs(spellings);
  for (std::size_t index = 0; index < first.messages.size(); ++index) {
    Require(IsSameMessage(first.messages[index], second.messages[index], pairs),
            ToText(first.messages[index]) + "\nbecame\n" + ToText(second.messages[index]));
  }
}

TEST(Keywords, MayBeInAnyCaseAndAbbreviated) {
  Check(DifferentialCases() / 12, [] { RequireSameRun(*SpellingCases()); });
}

}  // namespace
}  // namespace properties
