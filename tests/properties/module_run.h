#ifndef TESTS_PROPERTIES_MODULE_RUN_H
#define TESTS_PROPERTIES_MODULE_RUN_H

#include <iosfwd>
#include <optional>
#include <vector>

#include "backend/mrset/mrsetsubcommand.h"
#include "tests/properties/case.h"
#include "tests/reference/record.h"

namespace properties {

/// What a parse leaves behind.
struct Parsed {
  bool parsed = false;
  std::vector<reference::Record> records;
  Lines messages;
  int cursor = -1;
  Lines problems;  ///< calls against the host's contracts, objects that were not released in order
};

bool operator==(const Parsed& first, const Parsed& second);
std::ostream& operator<<(std::ostream& stream, const Parsed& parsed);

/// What a whole command leaves behind.
struct Outcome {
  Lines messages;
  std::vector<Lines> tables;
  std::optional<Sets> saved;  ///< none when nothing was saved
  std::size_t saves = 0;
  Lines problems;
};

bool operator==(const Outcome& first, const Outcome& second);
std::ostream& operator<<(std::ostream& stream, const Outcome& outcome);

reference::Record ToRecord(const MRSetSubcommand& subcommand);
MRSetSubcommand ToSubcommand(const reference::Record& record);

/// A host for the case, without a trace.
class CaseHost {
 public:
  explicit CaseHost(const Case& example);
  scripted::ScriptedHost& operator*() { return fHost; }
  scripted::ScriptedHost* operator->() { return &fHost; }

 private:
  scripted::ScriptedHost fHost;
};

/// The parse phase by the module, called by itself. An assertion that fails ends the process.
Parsed ParseByModule(const Case& example);

/// The whole command by the module, through its entry point.
Outcome RunByModule(const Case& example);
Outcome RunByModule(scripted::ScriptedHost& host);

/// The outcome of what has been run on the host.
Outcome OutcomeOf(const scripted::ScriptedHost& host);

}  // namespace properties

#endif  // TESTS_PROPERTIES_MODULE_RUN_H
