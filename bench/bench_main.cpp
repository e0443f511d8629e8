#include <benchmark/benchmark.h>

// Parts and whole runs of the tool. Times on a busy machine say little by themselves; compare rows of one run.
BENCHMARK_MAIN();
