#include "bench_runs.h"

#include <benchmark/benchmark.h>

#include <ctime>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <string>
#include <sys/stat.h>
#include <vector>

// Makes of a tree of 2,000 classes in 40 packages, on a memory file system: what it costs to find out that there is
// nothing to do, against what the system asks for a look at each file, and what changes cost.

namespace tarn::bench {

namespace {

namespace fs = std::filesystem;

constexpr int PACKAGES = 40;
constexpr int CLASSES = 50; ///< in a package

std::string className(int number) {
    return "p" + std::to_string(number / CLASSES) + ".C" + std::to_string(number);
}

std::string pathOf(int number) {
    return "p" + std::to_string(number / CLASSES) + "/C" + std::to_string(number) + ".java";
}

/// Class 0 has the constant that all use; each of the others uses four more, and one in three extends another. Nobody
/// uses the last.
std::string sourceOf(int number, int constant) {
    int count = PACKAGES * CLASSES - 1;
    std::string text = "package p" + std::to_string(number / CLASSES) + ";\nimport java.util.*;\n\npublic class C" +
                       std::to_string(number);
    if (number % 3 == 2) text += " extends " + className(number / 3);
    text += " {\n    public static final int K = " + std::to_string(number == 0 ? constant : number) +
            ";\n"
            "    protected Vector all = new Vector();\n    private int sum;\n\n    public int add(int x) {\n";
    if (number != 0) text += "        sum += x + p0.C0.K;\n";
    for (int i = 1; i <= 4 && number != 0; i++)
        text += "        sum += new " + className((number * 7 + i * 401) % count) + "().size();\n";
    return text + "        all.addElement(new Integer(sum));\n        return sum;\n    }\n\n"
                  "    public int size() {\n        return all.size();\n    }\n}\n";
}

class Tree {
public:
    Tree() : directory_(scratch() + "/tree") {
        for (int i = 0; i < PACKAGES * CLASSES; i++) write(i, 1);
        fs::create_directories(directory_ + "/out");
        make();
    }

    void write(int number, int constant) {
        fs::path file = directory_ + "/src/" + pathOf(number);
        fs::create_directories(file.parent_path());
        std::ofstream(file) << sourceOf(number, constant);
        timespec date = {.tv_sec = clock_ += 2};
        timespec times[] = {date, date};
        ::utimensat(AT_FDCWD, file.c_str(), times, 0);
    }
    void clear() const { fs::remove_all(directory_ + "/out"); }

    /// Makes the packages, or the last class if something else is asked for.
    Run make(const std::string& option = "") const {
        std::vector<std::string> command = {
            TARN_EXECUTABLE,     "-quiet", "-classpath",       directory_ + "/out:" + classLibrary(), "-sourcepath",
            directory_ + "/src", "-d",     directory_ + "/out"};
        if (option.empty()) {
            command.emplace_back("-p");
            for (int i = 0; i < PACKAGES; i++) command.push_back("p" + std::to_string(i));
        } else {
            command.insert(command.end(), {option, directory_ + "/src/" + pathOf(PACKAGES * CLASSES - 1)});
        }
        return run(command);
    }

    /// The dates of all files, and the contents of the dependency files.
    [[nodiscard]] std::size_t look() const {
        std::size_t seen = 0;
        for (const auto& entry : fs::recursive_directory_iterator(directory_)) {
            struct stat status;
            if (::stat(entry.path().c_str(), &status) == 0) seen += static_cast<std::size_t>(status.st_mtime);
            if (entry.path().extension() != ".dependency") continue;
            std::string text(static_cast<std::size_t>(status.st_size), 0);
            std::ifstream(entry.path(), std::ios::binary).read(text.data(), status.st_size);
            seen += text.size();
        }
        return seen;
    }

private:
    std::string directory_;
    std::time_t clock_ = 900000000;
};

Tree& tree() {
    static Tree tree;
    return tree;
}

/// `prepare` is not measured.
template <class Preparation>
void measure(benchmark::State& state, const std::string& option, Preparation prepare) {
    if (classLibrary().empty()) {
        state.SkipWithError("no Java runtime to make a class library of");
        return;
    }
    long peak = 0;
    double cpu = 0;
    tree();
    for (auto _ : state) {
        state.PauseTiming();
        prepare();
        state.ResumeTiming();
        Run result = tree().make(option);
        if (result.status != 0) state.SkipWithError("the make failed");
        peak = result.peakKilobytes;
        cpu += result.cpuMilliseconds;
    }
    state.counters["CPU ms"] = cpu / static_cast<double>(state.iterations());
    state.counters["peak kB"] = static_cast<double>(peak);
}

void lookAtTree(benchmark::State& state) {
    tree();
    for (auto _ : state) benchmark::DoNotOptimize(tree().look());
}
void makeNothing(benchmark::State& state) {
    measure(state, "", [] {});
}
void makeNothingUnchecked(benchmark::State& state) {
    measure(state, "-nocheckstable", [] {});
}
void makeTouchedLeaf(benchmark::State& state) {
    measure(state, "", [] { tree().write(PACKAGES * CLASSES - 1, 1); });
}
void makeChangedConstant(benchmark::State& state) {
    static int constant = 1; // goes on from call to call
    measure(state, "", [] { tree().write(0, ++constant); });
}
void makeFromNothing(benchmark::State& state) {
    measure(state, "", [] { tree().clear(); });
}
BENCHMARK(lookAtTree)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(makeNothing)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(makeNothingUnchecked)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(makeTouchedLeaf)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(makeChangedConstant)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(makeFromNothing)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace

} // namespace tarn::bench
