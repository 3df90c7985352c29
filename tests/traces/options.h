#ifndef TESTS_TRACES_OPTIONS_H
#define TESTS_TRACES_OPTIONS_H

#include <cstddef>
#include <optional>
#include <string>

#include "tests/host/scripted_host.h"

namespace traces {

/// What the command line asks for, beside what GoogleTest reads from it.
///
///   trace_tests --update-goldens
///   trace_tests --scenario=NAME
///   trace_tests --scenario=NAME --call=N --kind=standard|odd --mode=once|from-then-on
///   trace_tests --scenario=NAME --allocation=N --mode=once|from-then-on
///
/// Without a number a scenario's trace is compared and all its faults are swept.
struct Options {
  std::string program;
  bool updateGoldens = false;
  std::string scenario;                   ///< empty: every one
  std::optional<std::size_t> call;        ///< none: every one
  std::optional<std::size_t> allocation;  ///< none: every one
  std::optional<scripted::FaultKind> kind;
  std::optional<scripted::FaultMode> mode;
};

/// Those of this run.
Options& RunOptions();

/// False after it has said on standard error what it does not understand.
bool ReadOptions(int count, char** arguments, Options& options);

/// Whether there is the scenario that the options name, if they name one; else false after saying so.
bool NamesAScenario(const Options& options);

/// The tests that the options ask for, as GoogleTest's filter; empty when they leave the choice to GoogleTest.
std::string Filter(const Options& options);

const char* ToText(scripted::FaultKind kind);
const char* ToText(scripted::FaultMode mode);

}  // namespace traces

#endif  // TESTS_TRACES_OPTIONS_H
