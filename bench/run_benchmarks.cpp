#include "bench/run_benchmarks.h"

#include <benchmark/benchmark.h>

int main(int argc, char** argv) {
  bench::RegisterAll();
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
    return 1;
  }
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
