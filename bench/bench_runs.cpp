#include "bench_runs.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

extern char** environ;

namespace tarn::bench {

Run run(const std::vector<std::string>& command) {
    std::vector<char*> arguments;
    for (const std::string& word : command) arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    pid_t child = 0;
    Run result;
    if (posix_spawnp(&child, arguments[0], &actions, nullptr, arguments.data(), environ) == 0) {
        int status = 0;
        rusage usage{};
        wait4(child, &status, 0, &usage);
        result.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
        result.peakKilobytes = usage.ru_maxrss;
        auto milliseconds = [](const timeval& time) {
            return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_usec) / 1e3;
        };
        result.cpuMilliseconds = milliseconds(usage.ru_utime) + milliseconds(usage.ru_stime);
    }
    posix_spawn_file_actions_destroy(&actions);
    return result;
}

const std::string& scratch() {
    static const struct Scratch {
        Scratch() {
            std::string base = std::filesystem::is_directory("/dev/shm") ? "/dev/shm" : "/tmp";
            path = base + "/tarn-bench-" + std::to_string(getpid());
            std::filesystem::create_directories(path);
        }
        ~Scratch() { std::filesystem::remove_all(path); }
        std::string path;
    } made;
    return made.path;
}

const std::string& classLibrary() {
    static const std::string path = [] {
        std::string made = scratch() + "/classes.zip";
        std::string command = "home=$(dirname $(dirname $(readlink -f $(command -v java)))) && " TARN_CLASSLIB
                              " $home " +
                              made + " >/dev/null";
        return std::system(command.c_str()) == 0 ? made : std::string();
    }();
    return path;
}

namespace {

/// The shortest run there is: no arguments, and so the usage text.
void startUp(benchmark::State& state) {
    for (auto _ : state) run({TARN_EXECUTABLE});
}
BENCHMARK(startUp)->Unit(benchmark::kMillisecond)->UseRealTime();

/// What a process costs that does nothing; the floor for the other rows.
void emptyProcess(benchmark::State& state) {
    for (auto _ : state) run({"/bin/true"});
}
BENCHMARK(emptyProcess)->Unit(benchmark::kMillisecond)->UseRealTime();

/// One tiny class against the whole class library.
void tinyClass(benchmark::State& state) {
    if (classLibrary().empty()) {
        state.SkipWithError("no Java runtime to make a class library of");
        return;
    }
    std::string directory = scratch() + "/tiny";
    std::filesystem::create_directories(directory);
    std::ofstream(directory + "/Tiny.java") << "class Tiny {\n    public static void main(String[] args) {\n"
                                               "        System.out.println(\"hello\");\n    }\n}\n";
    for (auto _ : state) {
        std::filesystem::remove(directory + "/Tiny.class");
        Run result = run({TARN_EXECUTABLE, "-quiet", "-nocheckstable", "-classpath", classLibrary(), "-sourcepath",
                          directory, "-d", directory, directory + "/Tiny.java"});
        if (result.status != 0) state.SkipWithError("the compile failed");
    }
}
BENCHMARK(tinyClass)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace

} // namespace tarn::bench
