#include "tests/traces/golden.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <iostream>
#include <set>

#include "tests/traces/options.h"
#include "tests/traces/scenario_param.h"
#include "tests/traces/scenario_run.h"

namespace traces {
namespace {

using testing::IsEmpty;

class CallTrace : public testing::TestWithParam<Scenario> {};

TEST_P(CallTrace, IsThatOfTheGoldenFile) {
  const Scenario& scenario = GetParam();
  scripted::ScriptedHost host(scenario.setup);
  Prepare(host, scenario);
  const CommandRun run = RunCommand();
  EXPECT_EQ(run.departure, Departure::kReturn);
  EXPECT_EQ(run.blocksLeft, 0U);
  EXPECT_THAT(host.Problems(), IsEmpty());

  const Lines actual = GoldenLines(scenario, host);
  const Lines expected = ReadLines(GoldenPath(scenario));
  EXPECT_TRUE(actual == expected) << GoldenPath(scenario) << " differs " << Difference(expected, actual)
                                  << HowToUpdate();
}

INSTANTIATE_TEST_SUITE_P(Of, CallTrace, testing::ValuesIn(Scenarios()), NameOfScenario);

std::set<std::string> NamesOfScenarios() {
  std::set<std::string> names;
  for (const Scenario& scenario : Scenarios()) {
    EXPECT_TRUE(names.insert(scenario.name).second) << "two scenarios are named " << scenario.name;
  }
  return names;
}

/// Expects that what was kept of scenarios was kept of each and of no other.
void ExpectAllKept(const std::set<std::string>& kept, const std::string& what) {
  const std::set<std::string> scenarios = NamesOfScenarios();
  for (const std::string& name : scenarios) {
    EXPECT_EQ(kept.count(name), 1U) << "there is no " << what << " of the scenario " << name << "; " << HowToUpdate();
  }
  for (const std::string& name : kept) {
    EXPECT_EQ(scenarios.count(name), 1U) << "there is a " << what << " and no scenario " << name << "; "
                                         << HowToUpdate();
  }
}

TEST(GoldenFiles, AreThoseOfTheScenarios) {
  std::set<std::string> goldens;
  for (const auto& entry : std::filesystem::directory_iterator(GoldenFolder())) {
    if (entry.path() != FaultCountsPath() && entry.path() != AssertionGoldenPath()) {
      EXPECT_EQ(entry.path().extension(), ".trace") << entry.path();
      goldens.insert(entry.path().stem().string());
    }
  }
  ExpectAllKept(goldens, "golden");
  EXPECT_GE(goldens.size(), 40U);
}

TEST(GoldenFiles, CountTheFaultsOfEveryScenario) {
  std::set<std::string> counted;
  FaultCounts all;
  for (const auto& [scenario, counts] : ReadFaultCounts()) {
    counted.insert(scenario);
    all.calls += counts.calls;
    all.allocations += counts.allocations;
  }
  ExpectAllKept(counted, "number of faults");
  std::cout << counted.size() << " scenarios, " << all.calls << " calls, " << all.allocations
            << " allocations; faults: " << 4 * all.calls << " of calls, " << 2 * all.allocations << " of allocations\n";
}

}  // namespace
}  // namespace traces
