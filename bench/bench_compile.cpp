#include "bench_runs.h"
#include "generated_program.h"

#include <benchmark/benchmark.h>

#include <string>
#include <vector>

// Whole compiles of a generated program, each in a process of its own, with sources and output on a memory file system.

namespace tarn::bench {

namespace {

void compileGenerated(benchmark::State& state) {
    if (classLibrary().empty()) {
        state.SkipWithError("no Java runtime to make a class library of");
        return;
    }
    std::vector<GeneratedSource> sources = generateProgram(static_cast<int>(state.range(0)));
    std::string directory = scratch() + "/generated" + std::to_string(state.range(0));
    std::vector<std::string> command = {
        TARN_EXECUTABLE,    "-quiet", "-nocheckstable",  "-nomakestable", "-classpath", classLibrary(), "-sourcepath",
        directory + "/src", "-d",     directory + "/out"};
    for (std::string& path : writeProgram(sources, directory + "/src")) command.push_back(std::move(path));
    long peak = 0;
    for (auto _ : state) {
        state.PauseTiming();
        run({"rm", "-rf", directory + "/out"});
        state.ResumeTiming();
        Run result = run(command);
        if (result.status != 0) state.SkipWithError("the compile failed");
        peak = result.peakKilobytes;
    }
    auto lines = static_cast<double>(countLines(sources));
    state.counters["lines/s"] = benchmark::Counter(lines, benchmark::Counter::kIsIterationInvariantRate);
    state.counters["bytes/line"] = static_cast<double>(peak) * 1024 / lines;
}
BENCHMARK(compileGenerated)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace

} // namespace tarn::bench
