#include "tests/module/run.h"

#include <ostream>

#include "backend/mrset/mrset.h"

namespace module_test {
namespace {

void Print(std::ostream& stream, const char* heading, const Lines& lines) {
  stream << heading << '\n';
  for (const std::string& line : lines) {
    stream << "    " << line << '\n';
  }
}

Outcome OutcomeOf(const scripted::ScriptedHost& host) {
  Outcome outcome;
  outcome.messages = host.MessageLines();
  for (const scripted::Table& table : host.Tables()) {
    const Lines lines = table.Lines();
    outcome.tables.insert(outcome.tables.end(), lines.begin(), lines.end());
  }
  if (const auto saved = host.SavedSets()) {
    outcome.saved.emplace();
    for (const scripted::SetData& set : *saved) {
      outcome.saved->push_back(ToText(set));
    }
  }
  return outcome;
}

}  // namespace

bool operator==(const Outcome& first, const Outcome& second) {
  return first.messages == second.messages && first.tables == second.tables && first.saved == second.saved;
}

std::ostream& operator<<(std::ostream& stream, const Outcome& outcome) {
  stream << '\n';
  Print(stream, "  messages:", outcome.messages);
  Print(stream, "  tables:", outcome.tables);
  Print(stream, outcome.saved ? "  saved:" : "  nothing saved", outcome.saved.value_or(Lines{}));
  return stream;
}

std::vector<scripted::Variable> SurveyDictionary() {
  using scripted::Numeric;
  using scripted::String;
  return {Numeric("q1", "Tea", {{1.0, "Drinks tea"}, {0.0, "No"}}),
          Numeric("q2", "Coffee", {{1.0, "Drinks coffee"}, {0.0, "No"}}),
          Numeric("q3", "Milk", {{1.0, "Drinks milk"}, {0.0, "No"}}),
          Numeric("q4", std::nullopt, {{1.0, "Drinks water"}, {0.0, "No"}}),
          String("s8", 8, "Wide"),
          String("s3", 3, "Narrow"),
          Numeric("n1"),
          Numeric("n2")};
}

Outcome RunCommand(scripted::ScriptedHost& host, std::string_view command) {
  host.SetCommand(command);
  mrset_();
  EXPECT_EQ(host.Problems(), Lines{}) << "after: " << command;
  return OutcomeOf(host);
}

Outcome RunOnSurvey(std::string_view command, const std::vector<scripted::SetData>& storedSets) {
  scripted::ScriptedHost host({SurveyDictionary(), storedSets, true, {}});
  return RunCommand(host, command);
}

std::size_t CallNumber(const Lines& trace, std::string_view text) {
  std::size_t number = 0;
  for (const std::string& line : trace) {
    const bool isCall = line.front() != '~' && line.front() != ' ';  // neither a release nor a message of the host
    number += isCall ? 1 : 0;
    if (isCall && line.find(text) != std::string::npos) {
      return number;
    }
  }
  return 0;
}

}  // namespace module_test
