#ifndef TESTS_TRACES_GOLDEN_H
#define TESTS_TRACES_GOLDEN_H

#include <cstddef>
#include <map>
#include <string>

#include "tests/host/scripted_host.h"
#include "tests/traces/line_diff.h"
#include "tests/traces/scenarios.h"

namespace traces {

// The committed files of this folder, in the source tree.

/// The lines of a text file. Throws std::runtime_error when it cannot be read.
Lines ReadLines(const std::string& path);
void WriteLines(const std::string& path, const Lines& lines);

/// The path of a file of the project, given relative to its root. The environment's MRSET_SOURCES names another root.
std::string ProjectPath(const std::string& relative);

std::string GoldenFolder();
std::string GoldenPath(const Scenario& scenario);

/// The scenario, its trace, and what it showed and kept, of a host that has run it: a line for each call, and lines
/// that begin with "#" for a reader.
Lines GoldenLines(const Scenario& scenario, const scripted::ScriptedHost& host);

/// Without the lines that begin with "#".
Lines TraceOf(const Lines& golden);

/// How many faults are swept in a scenario, of each kind and mode.
struct FaultCounts {
  std::size_t calls = 0;
  std::size_t allocations = 0;
};

std::string FaultCountsPath();

/// By scenario, as the file has them. Throws std::runtime_error on a line that is not understood.
std::map<std::string, FaultCounts> ReadFaultCounts();

std::string AssertionGoldenPath();

/// For each assertion that fails, what the host saw before it did, and the sets and the record as they were then.
Lines AssertionGoldenLines();

/// How the reader of a failure accepts it.
std::string HowToUpdate();

/// Writes every golden file and the counts anew, and removes the goldens of scenarios that are no more.
void UpdateGoldens();

}  // namespace traces

#endif  // TESTS_TRACES_GOLDEN_H
