#include "tests/traces/sweep.h"

#include <algorithm>
#include <string_view>

#include "tests/traces/options.h"

namespace traces {
namespace {

using scripted::FaultKind;

/// The command runs again after each so many faults, and always after the last run of a sweep.
constexpr std::size_t kRunAgainEvery = RUN_AGAIN_EVERY;

bool BeginsWith(std::string_view text, std::string_view begin) {
  return text.substr(0, begin.size()) == begin;
}

bool EndsWith(std::string_view text, std::string_view end) {
  return text.size() >= end.size() && text.substr(text.size() - end.size()) == end;
}

Departure ExpectedDeparture(const FaultCase& fault) {
  if (fault.place == FaultPlace::kAllocation) {
    return Departure::kBadAlloc;
  }
  return fault.kind == FaultKind::kStandard ? Departure::kFault : Departure::kOddFault;
}

/// The trace takes most of the time, and with one kind and mode it has shown all.
bool IsTraced(const FaultCase& fault) {
  return fault.kind == FaultKind::kStandard && fault.mode == scripted::FaultMode::kOnce;
}

}  // namespace

std::string HowToRepeat(const Scenario& scenario, const FaultCase& fault) {
  const bool isCall = fault.place == FaultPlace::kCall;
  std::string line = RunOptions().program + " --scenario=" + scenario.name;
  line += (isCall ? " --call=" : " --allocation=") + std::to_string(fault.number);
  line += isCall ? std::string(" --kind=") + ToText(fault.kind) : "";
  return line + " --mode=" + ToText(fault.mode);
}

Sweep::Sweep(const Scenario& scenario, Lines trace)
    : fScenario(scenario), fTrace(std::move(trace)), fHost(scenario.setup) {
  Prepare(fHost, scenario);
  RunCommand();
  fSetsAfter = fHost.StoredSets();
  StartOver();
}

bool Sweep::Try(const FaultCase& fault, std::vector<std::string>& complaints) {
  fHost.SetTracing(IsTraced(fault));
  const CommandRun run = RunWith(fault);
  fHost.SetTracing(true);
  const bool fired = fHost.Fired() || run.allocationFaults > 0;
  if (fired) {
    CheckFault(fault, run, complaints);
    if (IsTraced(fault)) {
      CheckTraceUpToTheFault(complaints);
    }
  } else if (run.departure != Departure::kReturn) {
    complaints.push_back("without a fault, " + ToText(run.departure, run.call) + " left the command");
  }
  CheckRelease(run, complaints);
  CheckStoredSets(complaints);
  if (!fired || fault.number % kRunAgainEvery == 0) {
    RunAgain(complaints);
  }
  StartOver();
  return fired;
}

CommandRun Sweep::RunWith(const FaultCase& fault) {
  if (fault.place == FaultPlace::kAllocation) {
    return RunCommand(AllocationFault{fault.number, fault.mode});
  }
  fHost.FailAtCall(fault.number, fault.kind, fault.mode);
  return RunCommand();
}

/// Also with faults from then on there is only one: nothing is called or allocated on the way out.
void Sweep::CheckFault(const FaultCase& fault, const CommandRun& run, std::vector<std::string>& complaints) const {
  const bool isCall = fault.place == FaultPlace::kCall;
  const std::size_t call = isCall ? fault.number : 0;
  if (run.departure != ExpectedDeparture(fault) || run.call != call) {
    complaints.push_back(ToText(run.departure, run.call) + " left the command instead of " +
                         ToText(ExpectedDeparture(fault), call));
  }
  const std::size_t faults = isCall ? fHost.FaultCount() : run.allocationFaults;
  if (faults != 1) {
    complaints.push_back(std::to_string(faults) + " calls or allocations failed instead of one");
  }
  const std::size_t last = isCall ? fHost.CallCount() : run.allocations;
  if (last != fault.number) {
    complaints.push_back("the last call or allocation was number " + std::to_string(last));
  }
}

void Sweep::CheckRelease(const CommandRun& run, std::vector<std::string>& complaints) const {
  const Lines problems = fHost.Problems();
  complaints.insert(complaints.end(), problems.begin(), problems.end());
  if (run.blocksLeft != 0) {
    complaints.push_back(std::to_string(run.blocksLeft) + " allocated blocks were not released");
  }
}

/// The calls before the fault are those of every run; behind the call that failed, and what the host had said in it,
/// there are releases only.
void Sweep::CheckTraceUpToTheFault(std::vector<std::string>& complaints) const {
  const Lines& trace = fHost.Trace();
  auto line = std::mismatch(fTrace.begin(), fTrace.end(), trace.begin(), trace.end()).second;
  if (line != trace.end() && EndsWith(*line, " throws")) {
    ++line;
    line = std::find_if(line, trace.end(), [](const std::string& said) { return !BeginsWith(said, "  "); });
  }
  const auto other =
      std::find_if(line, trace.end(), [](const std::string& release) { return !BeginsWith(release, "~"); });
  if (other != trace.end()) {
    complaints.push_back("after the fault came " + *other);
  }
}

void Sweep::CheckStoredSets(std::vector<std::string>& complaints) const {
  const bool saved = fHost.SaveCount() > 0;
  if (fHost.StoredSets() != (saved ? fSetsAfter : fScenario.setup.sets)) {
    complaints.push_back(saved ? "the sets were saved and are not those after the command"
                               : "the sets were not saved and are not those before the command");
  }
}

void Sweep::StartOver() {
  fHost.SetStoredSets(fScenario.setup.sets);
  fHost.StartOver();
}

void Sweep::RunAgain(std::vector<std::string>& complaints) {
  StartOver();
  const CommandRun run = RunCommand();
  if (run.departure != Departure::kReturn) {
    complaints.push_back("afterwards " + ToText(run.departure, run.call) + " left the command");
  }
  CheckRelease(run, complaints);
  if (fHost.Trace() != fTrace) {
    complaints.push_back("afterwards the trace differed " + Difference(fTrace, fHost.Trace()));
  }
  if (fHost.StoredSets() != fSetsAfter) {
    complaints.push_back("afterwards the stored sets differed");
  }
}

}  // namespace traces
