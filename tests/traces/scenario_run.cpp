#include "tests/traces/scenario_run.h"

#include <new>
#include <typeinfo>

#include "backend/mrset/mrset.h"
#include "tests/host/allocation.h"

namespace traces {
namespace {

/// Calls the entry point. Allocates nothing itself.
void Enter(CommandRun& run) {
  try {
    mrset_();
    run.departure = Departure::kReturn;
  } catch (const scripted::Fault& fault) {
    run.departure = Departure::kFault;
    run.call = fault.Call();
  } catch (const scripted::OddFault& fault) {
    run.departure = Departure::kOddFault;
    run.call = fault.call;
  } catch (const std::bad_alloc& exception) {
    run.departure = typeid(exception) == typeid(std::bad_alloc) ? Departure::kBadAlloc : Departure::kOther;
  } catch (...) {
    run.departure = Departure::kOther;
  }
}

}  // namespace

std::string ToText(Departure departure, std::size_t call) {
  switch (departure) {
    case Departure::kReturn:
      return "nothing";
    case Departure::kFault:
      return "a standard exception of call " + std::to_string(call);
    case Departure::kOddFault:
      return "an odd exception of call " + std::to_string(call);
    case Departure::kBadAlloc:
      return "std::bad_alloc";
    case Departure::kOther:
      return "another exception";
  }
  return "another exception";
}

CommandRun RunCommand(const std::optional<AllocationFault>& fault) {
  CommandRun run;
  const AllocationFault toFail = fault.value_or(AllocationFault());
  scripted::AllocationScope scope(toFail.allocation, toFail.mode);
  Enter(run);
  scope.Stop();
  run.allocations = scope.Count();
  run.allocationFaults = scope.FaultCount();
  run.blocksLeft = scope.LiveBlocks();
  return run;
}

}  // namespace traces
