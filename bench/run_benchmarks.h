#ifndef BENCH_RUN_BENCHMARKS_H
#define BENCH_RUN_BENCHMARKS_H

namespace bench {

/// Registers what the program measures; main(), which is shared, runs it.
void RegisterAll();

}  // namespace bench

#endif  // BENCH_RUN_BENCHMARKS_H
