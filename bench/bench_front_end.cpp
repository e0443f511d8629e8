#include "driver/reporter.h"
#include "generated_program.h"
#include "runtime/arena.h"
#include "semantic/context.h"
#include "store/memory_store.h"
#include "syntax/dependency_scanner.h"
#include "syntax/parser.h"
#include "syntax/scanner.h"
#include "syntax/tree_builder.h"

#include <benchmark/benchmark.h>

#include <memory>
#include <vector>

// Scanning, and parsing with either factory, of a generated program of 100,000 lines that lies in memory.

namespace tarn::bench {

namespace {

struct Program {
    Program() {
        std::vector<GeneratedSource> sources = generateProgram(100'000);
        lines = countLines(sources);
        for (const GeneratedSource& source : sources) {
            auto store = ByteArrayStore::root(source.path);
            store->write({reinterpret_cast<const std::uint8_t*>(source.text.data()), source.text.size()});
            stores.push_back(std::move(store));
        }
    }
    std::vector<StoreRef> stores;
    int lines = 0;
};

const Program& program() {
    static const Program made;
    return made;
}

template <class Visit>
void measure(benchmark::State& state, Visit visit) {
    SilentReporter reporter;
    setReporter(&reporter);
    for (auto _ : state)
        for (const StoreRef& store : program().stores) visit(*store);
    state.counters["lines/s"] =
        benchmark::Counter(static_cast<double>(program().lines), benchmark::Counter::kIsIterationInvariantRate);
}

void scanning(benchmark::State& state) {
    measure(state, [](Store& source) {
        Scanner scanner(source, std::nullopt);
        while (scanner.token != Token::END_OF_INPUT) scanner.nextToken();
        benchmark::DoNotOptimize(scanner.pos);
    });
}
BENCHMARK(scanning)->Unit(benchmark::kMillisecond);

void parsing(benchmark::State& state) {
    Context made;
    measure(state, [](Store& source) {
        Arena arena;
        TreeBuilder builder(arena);
        Scanner scanner(source, std::nullopt);
        benchmark::DoNotOptimize(Parser(scanner, builder).compilationUnit());
    });
}
BENCHMARK(parsing)->Unit(benchmark::kMillisecond);

void dependencyScan(benchmark::State& state) {
    measure(state, [](Store& source) {
        DependencyScanner collector;
        collector.wantsCode = false; // as the make engine scans
        Scanner scanner(source, std::nullopt);
        Parser(scanner, collector).compilationUnit();
        benchmark::DoNotOptimize(collector.classes.size());
    });
}
BENCHMARK(dependencyScan)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace tarn::bench
