#include "tests/traces/golden.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <sstream>
#include <stdexcept>

#include "tests/traces/assertion_provokers.h"
#include "tests/traces/options.h"
#include "tests/traces/scenario_run.h"

namespace traces {
namespace {

const char kFaultCountsHeading[] = "# scenario, host calls, allocations: each of them is made to fail in turn";

void PutAbout(Lines& lines, const char* what, const std::string& text) {
  lines.push_back("# " + std::string(what) + ": " + text);
}

void PutSets(Lines& lines, const char* what, const std::vector<scripted::SetData>& sets) {
  for (const scripted::SetData& set : sets) {
    PutAbout(lines, what, ToText(set));
  }
  if (sets.empty()) {
    PutAbout(lines, what, "nothing");
  }
}

void WriteFaultCounts(const Lines& rows) {
  Lines lines = {kFaultCountsHeading};
  lines.insert(lines.end(), rows.begin(), rows.end());
  WriteLines(FaultCountsPath(), lines);
}

bool IsGoldenOfAScenario(const std::filesystem::path& path) {
  const auto& scenarios = Scenarios();
  return std::any_of(scenarios.begin(), scenarios.end(),
                     [&](const Scenario& scenario) { return path.stem() == scenario.name; });
}

void RemoveAbandonedGoldens() {
  std::vector<std::filesystem::path> abandoned;
  for (const auto& entry : std::filesystem::directory_iterator(GoldenFolder())) {
    if (entry.path().extension() == ".trace" && !IsGoldenOfAScenario(entry.path())) {
      abandoned.push_back(entry.path());
    }
  }
  for (const auto& path : abandoned) {
    std::filesystem::remove(path);
  }
}

}  // namespace

Lines ReadLines(const std::string& path) {
  std::ifstream file(path);
  if (!file) {
    throw std::runtime_error("cannot read " + path);
  }
  Lines lines;
  for (std::string line; std::getline(file, line);) {
    lines.push_back(line);
  }
  return lines;
}

void WriteLines(const std::string& path, const Lines& lines) {
  std::ofstream file(path);
  std::copy(lines.begin(), lines.end(), std::ostream_iterator<std::string>(file, "\n"));
  if (!file.flush()) {
    throw std::runtime_error("cannot write " + path);
  }
}

std::string ProjectPath(const std::string& relative) {
  const char* folder = std::getenv("MRSET_SOURCES");
  return std::string(folder == nullptr ? MRSET_SOURCE_FOLDER : folder) + "/" + relative;
}

std::string GoldenFolder() {
  return ProjectPath("tests/traces/golden");
}

std::string GoldenPath(const Scenario& scenario) {
  return GoldenFolder() + "/" + scenario.name + ".trace";
}

Lines GoldenLines(const Scenario& scenario, const scripted::ScriptedHost& host) {
  Lines lines;
  PutAbout(lines, "command", scenario.command);
  if (!scenario.hostRule.empty()) {
    PutAbout(lines, "host", scenario.hostRule);
  }
  PutSets(lines, "stored before", scenario.setup.sets);
  lines.insert(lines.end(), host.Trace().begin(), host.Trace().end());
  for (const std::string& message : host.MessageLines()) {
    PutAbout(lines, "message", message);
  }
  for (const scripted::Table& table : host.Tables()) {
    for (const std::string& line : table.Lines()) {
      PutAbout(lines, "table", line);
    }
  }
  PutSets(lines, "stored after", host.StoredSets());
  return lines;
}

Lines TraceOf(const Lines& golden) {
  Lines trace;
  std::copy_if(golden.begin(), golden.end(), std::back_inserter(trace),
               [](const std::string& line) { return line.empty() || line.front() != '#'; });
  return trace;
}

std::string FaultCountsPath() {
  return GoldenFolder() + "/faults.txt";
}

std::map<std::string, FaultCounts> ReadFaultCounts() {
  std::map<std::string, FaultCounts> counts;
  for (const std::string& line : TraceOf(ReadLines(FaultCountsPath()))) {
    std::istringstream row(line);
    std::string scenario;
    FaultCounts ofScenario;
    if (!(row >> scenario >> ofScenario.calls >> ofScenario.allocations) ||
        !counts.emplace(scenario, ofScenario).second) {
      throw std::runtime_error(FaultCountsPath() + ": not understood: " + line);
    }
  }
  return counts;
}

std::string AssertionGoldenPath() {
  return GoldenFolder() + "/assertions.txt";
}

Lines AssertionGoldenLines() {
  Lines lines;
  for (const AssertionProvoker& provoker : AssertionProvokers()) {
    lines.push_back("[" + std::string(provoker.function) + ": " + provoker.expression + "]");
    const Lines calls = EndOf(provoker).calls;
    lines.insert(lines.end(), calls.begin(), calls.end());
    lines.emplace_back();
  }
  return lines;
}

std::string HowToUpdate() {
  return "if that is what it should be: " + RunOptions().program + " --update-goldens";
}

void UpdateGoldens() {
  std::filesystem::create_directories(GoldenFolder());
  RemoveAbandonedGoldens();
  Lines rows;
  for (const Scenario& scenario : Scenarios()) {
    scripted::ScriptedHost host(scenario.setup);
    Prepare(host, scenario);
    const CommandRun run = RunCommand();
    WriteLines(GoldenPath(scenario), GoldenLines(scenario, host));
    rows.push_back(scenario.name + " " + std::to_string(host.CallCount()) + " " + std::to_string(run.allocations));
  }
  WriteFaultCounts(rows);
  WriteLines(AssertionGoldenPath(), AssertionGoldenLines());
  std::cout << Scenarios().size() << " traces written to " << GoldenFolder() << '\n';
}

}  // namespace traces
