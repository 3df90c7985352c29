// The module on the scripted host, and the floor that makes the same calls. Recording is off. What is counted is the
// processor's time of the command alone, without the preparation of the host; an entry's name is its goal, who ran, and
// the size: "typical/module/12".

#include <benchmark/benchmark.h>

#include <chrono>
#include <ctime>
#include <memory>

#include "backend/mrset/mrset.h"
#include "bench/module/commands.h"
#include "bench/module/floor.h"
#include "bench/run_benchmarks.h"
#include "tests/host/scripted_host.h"

namespace bench {
namespace {

using scripted::HostSetup;
using scripted::ScriptedHost;

double ProcessorSeconds() {
  timespec now{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
  return std::chrono::duration<double>(std::chrono::seconds(now.tv_sec) + std::chrono::nanoseconds(now.tv_nsec))
      .count();
}

std::unique_ptr<ScriptedHost> HostOf(const Workload& workload) {
  HostSetup setup;
  setup.dictionary = DictionaryOf(workload);
  auto host = std::make_unique<ScriptedHost>(setup, CommandOf(workload));
  host->SetTracing(false);
  return host;
}

template <class RunCommand>
void Measure(benchmark::State& state, const Workload& workload, RunCommand runCommand) {
  const std::unique_ptr<ScriptedHost> host = HostOf(workload);
  for ([[maybe_unused]] auto iteration : state) {
    host->StartOver();
    host->SetStoredSets({});
    const double begin = ProcessorSeconds();
    runCommand();
    state.SetIterationTime(ProcessorSeconds() - begin);
  }
  state.counters["calls"] = static_cast<double>(host->CallCount());
}

void MeasureModule(benchmark::State& state, const Workload& workload) {
  Measure(state, workload, mrset_);
}

void MeasureFloor(benchmark::State& state, const Workload& workload) {
  const Floor floor(workload);
  Measure(state, workload, [&floor] { floor.Run(); });
}

using Measurement = void (*)(benchmark::State& state, const Workload& workload);

void Register(const std::string& goal, const std::string& who, std::size_t size, Measurement measurement,
              const Workload& workload) {
  benchmark::RegisterBenchmark((goal + "/" + who + "/" + std::to_string(size)).c_str(), measurement, workload)
      ->UseManualTime()
      ->Unit(benchmark::kMicrosecond);
}

void RegisterBoth(const std::string& goal, std::size_t size, const Workload& workload) {
  Register(goal, "module", size, MeasureModule, workload);
  Register(goal, "floor", size, MeasureFloor, workload);
}

}  // namespace

void RegisterAll() {
  RegisterBoth("typical", 12, {1, 12, Labels::kEach, false, true});
  for (const std::size_t sets : {10U, 100U, 1000U, 3000U}) {
    RegisterBoth("sets", sets, {sets, 12, Labels::kEach, false, false});
  }
  for (const std::size_t variables : {100U, 1000U, 10000U, 100000U}) {
    RegisterBoth("variables", variables, {1, variables, Labels::kNone, true, false});
    RegisterBoth("labelled", variables, {1, variables, Labels::kEach, true, false});
  }
}

}  // namespace bench
