#ifndef TESTS_TRACES_SWEEP_H
#define TESTS_TRACES_SWEEP_H

#include <cstddef>
#include <string>
#include <vector>

#include "tests/host/scripted_host.h"
#include "tests/traces/line_diff.h"
#include "tests/traces/scenario_run.h"
#include "tests/traces/scenarios.h"

namespace traces {

enum class FaultPlace { kCall, kAllocation };

/// One fault in one scenario.
struct FaultCase {
  FaultPlace place = FaultPlace::kCall;
  std::size_t number = 0;
  scripted::FaultKind kind = scripted::FaultKind::kStandard;  ///< of a call
  scripted::FaultMode mode = scripted::FaultMode::kOnce;
};

/// The command line that repeats the case alone.
std::string HowToRepeat(const Scenario& scenario, const FaultCase& fault);

/// One host on which one fault after the other happens, with a run without any in between.
class Sweep {
 public:
  /// `trace` is that of a run without a fault.
  Sweep(const Scenario& scenario, Lines trace);

  /// Makes the fault happen; then mostly runs again without. Returns whether it fired; `complaints` gets what was
  /// wrong.
  bool Try(const FaultCase& fault, std::vector<std::string>& complaints);

 private:
  CommandRun RunWith(const FaultCase& fault);
  void CheckFault(const FaultCase& fault, const CommandRun& run, std::vector<std::string>& complaints) const;
  void CheckRelease(const CommandRun& run, std::vector<std::string>& complaints) const;
  void CheckTraceUpToTheFault(std::vector<std::string>& complaints) const;
  void CheckStoredSets(std::vector<std::string>& complaints) const;
  void StartOver();
  void RunAgain(std::vector<std::string>& complaints);

  const Scenario& fScenario;
  const Lines fTrace;
  scripted::ScriptedHost fHost;
  std::vector<scripted::SetData> fSetsAfter;
};

}  // namespace traces

#endif  // TESTS_TRACES_SWEEP_H
