#ifndef TESTS_TRACES_SCENARIO_RUN_H
#define TESTS_TRACES_SCENARIO_RUN_H

#include <cstddef>
#include <optional>
#include <string>

#include "tests/host/scripted_host.h"

namespace traces {

/// What left the entry point.
enum class Departure { kReturn, kFault, kOddFault, kBadAlloc, kOther };

struct CommandRun {
  Departure departure = Departure::kReturn;
  std::size_t call = 0;  ///< of a fault, the call that threw it
  std::size_t allocations = 0;
  std::size_t allocationFaults = 0;
  std::size_t blocksLeft = 0;  ///< allocated and not released
};

/// As in "a standard exception of call 17".
std::string ToText(Departure departure, std::size_t call);

/// An allocation that is to fail.
struct AllocationFault {
  std::size_t allocation = 0;
  scripted::FaultMode mode = scripted::FaultMode::kOnce;
};

/// Runs the command of the installed host through the entry point and lets nothing but itself return.
CommandRun RunCommand(const std::optional<AllocationFault>& fault = std::nullopt);

}  // namespace traces

#endif  // TESTS_TRACES_SCENARIO_RUN_H
