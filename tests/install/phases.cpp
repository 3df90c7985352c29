// Links with the installed module and runs its two phases, and its messages, by themselves.

#include <iostream>

#include "backend/mrset/mrsetsubcommand.h"
#include "host/module.h"
#include "tests/host/scripted_host.h"

int main() {
  scripted::ScriptedHost host({{scripted::Numeric("q1", "Tea"), scripted::Numeric("q2", "Coffee")}, {}, true, {}},
                              "MRSET /MCGROUP NAME=$drinks VARIABLES=q1 q2");
  BpProcedure procedure("Phases", 2);
  ZEVA_TokenSequence command(true);
  const ProcedureDataSource source;
  MRSETSUBCOMMANDS subcommands;
  if (MRSetParse(command, source, subcommands)) {
    subcommands.at(0).fLabel = "Drinks";
    MRSetApply(subcommands, *source.GetParentSource(), procedure);
  }
  GenerateWarning("^1 of ^2", "one", "two");
  GenerateError("^1", "", "three");
  for (const std::string& message : host.MessageLines()) {
    std::cout << message << '\n';
  }
  for (const scripted::SetData& set : host.StoredSets()) {
    std::cout << "saved " << set << '\n';
  }
}
