#include <algorithm>
#include <set>

#include "backend/mrset/mrset.h"
#include "tests/host/letters.h"
#include "tests/properties/generators.h"
#include "tests/properties/module_run.h"
#include "tests/properties/prediction.h"
#include "tests/properties/property.h"
#include "tests/properties/subcommand_text.h"
#include "tests/properties/watch.h"

namespace properties {
namespace {

std::string TextOf(const Sets& sets) {
  std::string text;
  for (const scripted::SetData& set : sets) {
    text += ToText(set) + "\n";
  }
  return text;
}

bool HasSet(const Sets& sets, const std::string& name) {
  return std::any_of(sets.begin(), sets.end(), [&](const scripted::SetData& set) { return set.name == name; });
}

/// The sets after this command on a dataset with those sets.
Sets SetsAfter(Case example, const std::string& command) {
  example.tokens = scripted::Tokenize(command);
  const Watch watch(example);
  CaseHost host(example);
  mrset_();
  return host->StoredSets();
}

TEST(StoredSets, StayAsTheyAreWhenTheCommandDoesNotParse) {
  Check(DifferentialCases() / 6, [] {
    const Case example = *AnyCases();
    if (Predict(example).Assertion() || ParseByModule(example).parsed) {
      return;
    }
    const Watch watch(example);
    CaseHost host(example);
    const Outcome outcome = RunByModule(*host);
    RequireEqual("saves", outcome.saves, std::size_t{0});
    RequireEqual("tables", outcome.tables.size(), std::size_t{0});
    RequireEqual("the sets", TextOf(host->StoredSets()), TextOf(example.sets));
  });
}

TEST(StoredSets, StayAsTheyAreWhenNoDatasetIsOpen) {
  Check(DifferentialCases() / 36, [] {
    const Case example = *AnyCases();
    const Watch watch(example);
    CaseHost host(example);
    host->SetDatasetOpen(false);
    RequireEqual("the command", RunByModule(*host), Outcome{});
    RequireEqual("the sets", TextOf(host->StoredSets()), TextOf(example.sets));
  });
}

void RequireUniqueNames(const Sets& sets) {
  std::set<std::string> names;
  for (const scripted::SetData& set : sets) {
    Require(names.insert(scripted::UpperCase(set.name)).second, "a second set of the name " + set.name);
  }
}

/// Runs the commands that do not end the process, each on what the former ones left.
void RequireSession(const Session& session) {
  Case example = session.example;
  CaseHost host(example);
  for (const Tokens& tokens : session.commands) {
    example.tokens = tokens;
    const Prediction prediction = Predict(example);
    if (prediction.Assertion()) {
      continue;
    }
    const Watch watch(example);
    host->SetTokens(tokens);
    RequireEqual("a command of the session", RunByModule(*host), prediction.ExpectedOutcome());
    example.sets = host->StoredSets();
    RequireUniqueNames(example.sets);
  }
}

TEST(StoredSets, KeepNamesThatDifferInMoreThanCase) {
  Check(DifferentialCases() / 12, [] { RequireSession(*Sessions()); });
}

TEST(StoredSets, AreTheSameWhenASetIsDefinedTwice) {
  Check(DifferentialCases() / 18, [] {
    const Case example = *Cases(Style::kDefinition);
    const Parsed parsed = ParseByModule(example);
    RC_PRE(parsed.parsed);
    const std::string definition = SubcommandText(parsed.records.front());
    Case after = example;
    after.sets = SetsAfter(example, "MRSET " + definition);
    RequireEqual("twice in a command", TextOf(SetsAfter(example, "MRSET " + definition + " " + definition)),
                 TextOf(after.sets));
    RequireEqual("in two commands", TextOf(SetsAfter(after, "MRSET " + definition)), TextOf(after.sets));
    Require(HasSet(after.sets, parsed.records.front().fName), "nothing was defined");
  });
}

}  // namespace
}  // namespace properties
