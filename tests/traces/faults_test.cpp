#include <gtest/gtest.h>

#include <numeric>
#include <optional>

#include "tests/traces/golden.h"
#include "tests/traces/options.h"
#include "tests/traces/scenario_param.h"
#include "tests/traces/sweep.h"

namespace traces {
namespace {

using scripted::FaultKind;
using scripted::FaultMode;

/// Far beyond the calls and the allocations of any scenario: a sweep that comes here would never end.
constexpr std::size_t kCap = 20000;

constexpr FaultMode kModes[] = {FaultMode::kOnce, FaultMode::kFromThenOn};

template <class Choice>
bool IsAskedFor(const std::optional<Choice>& asked, Choice choice) {
  return !asked || *asked == choice;
}

/// Tries one case and reports all that was wrong with it; whether it fired.
bool Passes(Sweep& sweep, const Scenario& scenario, const FaultCase& fault, bool& fired) {
  std::vector<std::string> complaints;
  fired = sweep.Try(fault, complaints);
  if (complaints.empty()) {
    return true;
  }
  ADD_FAILURE() << std::accumulate(complaints.begin(), complaints.end(), std::string(),
                                   [](const std::string& all, const std::string& one) { return all + one + "\n"; })
                << "repeat: " << HowToRepeat(scenario, fault);
  return false;
}

/// Lets the faults with the numbers 1, 2, ... happen until one does not fire; how many fired. None after a case failed.
std::optional<std::size_t> SweepAll(Sweep& sweep, const Scenario& scenario, FaultCase fault) {
  bool fired = false;
  for (fault.number = 1; fault.number <= kCap; ++fault.number) {
    if (!Passes(sweep, scenario, fault, fired)) {
      return std::nullopt;
    }
    if (!fired) {
      return fault.number - 1;
    }
  }
  ADD_FAILURE() << "still firing at " << kCap << "; repeat: " << HowToRepeat(scenario, fault);
  return std::nullopt;
}

/// All numbers, which are as many as were counted, or the one that was asked for, which must fire.
void SweepOrRepeat(Sweep& sweep, const Scenario& scenario, FaultCase fault, const std::optional<std::size_t>& asked,
                   std::size_t counted) {
  if (asked) {
    fault.number = *asked;
    bool fired = false;
    Passes(sweep, scenario, fault, fired);
    EXPECT_TRUE(fired) << "nothing fired: " << HowToRepeat(scenario, fault);
    return;
  }
  if (const auto swept = SweepAll(sweep, scenario, fault)) {
    EXPECT_EQ(*swept, counted) << "faults of " << scenario.name << " in " << FaultCountsPath()
                               << "; if that is what it should be: " << RunOptions().program << " --update-goldens";
  }
}

FaultCounts CountsOf(const Scenario& scenario) {
  const auto counts = ReadFaultCounts();
  const auto found = counts.find(scenario.name);
  EXPECT_NE(found, counts.end()) << scenario.name << " is not in " << FaultCountsPath();
  return found == counts.end() ? FaultCounts() : found->second;
}

class Faults : public testing::TestWithParam<Scenario> {
 protected:
  Faults() : fSweep(GetParam(), TraceOf(ReadLines(GoldenPath(GetParam())))) {}

  Sweep fSweep;
};

class FaultsOfCalls : public Faults {};
class FaultsOfAllocations : public Faults {};

TEST_P(FaultsOfCalls, LeaveTheCommandAndNothingBehind) {
  const Scenario& scenario = GetParam();
  for (const FaultKind kind : {FaultKind::kStandard, FaultKind::kOdd}) {
    for (const FaultMode mode : kModes) {
      if (IsAskedFor(RunOptions().kind, kind) && IsAskedFor(RunOptions().mode, mode)) {
        SweepOrRepeat(fSweep, scenario, {FaultPlace::kCall, 0, kind, mode}, RunOptions().call,
                      CountsOf(scenario).calls);
      }
    }
  }
}

TEST_P(FaultsOfAllocations, LeaveTheCommandAndNothingBehind) {
  const Scenario& scenario = GetParam();
  for (const FaultMode mode : kModes) {
    if (IsAskedFor(RunOptions().mode, mode)) {
      SweepOrRepeat(fSweep, scenario, {FaultPlace::kAllocation, 0, FaultKind::kStandard, mode}, RunOptions().allocation,
                    CountsOf(scenario).allocations);
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Of, FaultsOfCalls, testing::ValuesIn(Scenarios()), NameOfScenario);
INSTANTIATE_TEST_SUITE_P(Of, FaultsOfAllocations, testing::ValuesIn(Scenarios()), NameOfScenario);

}  // namespace
}  // namespace traces
