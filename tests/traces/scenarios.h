#ifndef TESTS_TRACES_SCENARIOS_H
#define TESTS_TRACES_SCENARIOS_H

#include <optional>
#include <string>
#include <vector>

#include "tests/host/scripted_host.h"

namespace traces {

/// One command on one host. Together they take every path that a command can take through the module. None of them ends
/// the process.
struct Scenario {
  std::string name;  ///< letters, digits and "_"; that of its golden file too
  scripted::HostSetup setup;
  std::vector<scripted::Token> tokens;
  std::string command;                 ///< the tokens for a person to read
  std::string hostRule;                ///< what is special about the host, for a person; may be empty
  std::optional<scripted::Token> end;  ///< text and symbol code of the end of the command; the host's own when none
};

/// In the order of the module's parts; their names differ.
const std::vector<Scenario>& Scenarios();

/// Gives a new host the scenario's command.
void Prepare(scripted::ScriptedHost& host, const Scenario& scenario);

}  // namespace traces

#endif  // TESTS_TRACES_SCENARIOS_H
