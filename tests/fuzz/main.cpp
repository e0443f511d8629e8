// Feeds mutated input to the compiler, in this process, and looks for anything but a result or an error message.
//
//   fuzz [-save FOLDER] TESTS ARCHIVE TARGET [RUNS [FIRST]]
//
// TESTS is the folder of the tests, ARCHIVE the class library to compile against. With one library, run number n is the
// same input each time, so a fault that is told as "run n" comes again with RUNS 1 and FIRST n, and `-save` shows what
// it was. Exit status: 0 passed, 1 faults, 2 cannot run, 77 there is no class library.
//
// The runs are made by children of this process, which goes on behind a run that killed one. A run that takes too much
// time or memory is a fault as well.

#include "corpus.h"
#include "random.h"
#include "runtime/big_stack.h"
#include "runtime/console.h"
#include "targets.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <fcntl.h>
#include <string>
#include <string_view>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace tarn::fuzz {

namespace {

constexpr int MOST_SECONDS = 20;               ///< of processor time, for one run
constexpr long MOST_KILOBYTES = 700 * 1024;    ///< by which one run may raise the memory's high mark
constexpr std::uint64_t RUNS_PER_CHILD = 1000; ///< names and the sanitizers' records pile up in a process
constexpr int MOST_FAULTS = 25;

struct Arguments {
    std::string archive;
    std::string tests;
    const Target* target = nullptr;
    std::uint64_t runs = 100;
    std::uint64_t first = 1;
};

long highMark() {
    rusage usage{};
    ::getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

/// Kills this process if it is still at the same run by then.
void allowTime() {
    itimerval time{.it_interval = {}, .it_value = {.tv_sec = MOST_SECONDS, .tv_usec = 0}};
    ::setitimer(ITIMER_PROF, &time, nullptr);
}

/// False for a fault, which has been told.
bool runOnce(const Corpus& corpus, const Target& target, std::uint64_t run) {
    allowTime();
    long before = highMark();
    Random random(run * 0x100000001B3);
    random.next();
    try {
        target.run(corpus, random);
    } catch (const std::exception& fault) {
        flushConsole();
        std::fprintf(stderr, "run %llu: %s\n", static_cast<unsigned long long>(run), fault.what());
        return false;
    } catch (...) {
        std::fprintf(stderr, "run %llu: unknown exception\n", static_cast<unsigned long long>(run));
        return false;
    }
    flushConsole();
    if (highMark() - before <= MOST_KILOBYTES) return true;
    std::fprintf(stderr, "run %llu: took %ld kB\n", static_cast<unsigned long long>(run), highMark() - before);
    return false;
}

/// Makes the runs in a child, and tells the number of the first one that was not completed; `end` if all were.
std::uint64_t runInChild(const Corpus& corpus, const Target& target, std::uint64_t first, std::uint64_t end,
                         volatile std::uint64_t* at) {
    *at = first;
    std::fflush(stderr);
    pid_t child = ::fork();
    if (child < 0) {
        std::perror("fork");
        std::exit(2);
    }
    if (child == 0) {
        bool good = true;
        for (std::uint64_t run = first; good && run < end; ++run) {
            *at = run;
            good = runOnce(corpus, target, run);
        }
        if (good) *at = end;
        std::_Exit(good ? 0 : 1);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    if (WIFSIGNALED(status)) {
        std::fprintf(stderr, "run %llu: killed by signal %d (%s)\n", static_cast<unsigned long long>(*at),
                     WTERMSIG(status), ::strsignal(WTERMSIG(status)));
    } else if (status != 0) {
        std::fprintf(stderr, "run %llu: status %d\n", static_cast<unsigned long long>(*at), WEXITSTATUS(status));
    }
    return *at;
}

int runAll(const Arguments& arguments) {
    std::vector<std::string> folders = {arguments.tests + "/programs", arguments.tests + "/../examples"};
    int console = ::dup(STDOUT_FILENO);
    int nowhere = ::open("/dev/null", O_WRONLY);
    ::dup2(nowhere, STDOUT_FILENO);
    Corpus corpus = readCorpus(folders, arguments.archive);
    flushConsole();
    if (arguments.runs == 1) ::dup2(console, STDOUT_FILENO); // messages are of use for a single run only
    void* shared = ::mmap(nullptr, sizeof(std::uint64_t), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (shared == MAP_FAILED) return 2;
    auto* at = static_cast<volatile std::uint64_t*>(shared);
    int faults = 0;
    std::uint64_t end = arguments.first + arguments.runs;
    for (std::uint64_t run = arguments.first; run < end && faults < MOST_FAULTS;) {
        std::uint64_t stop = std::min(end, run + RUNS_PER_CHILD);
        run = runInChild(corpus, *arguments.target, run, stop, at);
        if (run == stop) continue;
        ++faults;
        ++run;
    }
    std::fprintf(stderr, "%.*s: runs %llu to %llu, %d faults\n", static_cast<int>(arguments.target->name.size()),
                 arguments.target->name.data(), static_cast<unsigned long long>(arguments.first),
                 static_cast<unsigned long long>(end - 1), faults);
    return faults == 0 ? 0 : 1;
}

bool parse(int count, char** values, Arguments& arguments) {
    std::vector<std::string> rest(values + 1, values + count);
    if (rest.size() >= 2 && rest[0] == "-save") {
        saveFolder = rest[1];
        rest.erase(rest.begin(), rest.begin() + 2);
    }
    if (rest.size() < 3 || rest.size() > 5) return false;
    arguments.tests = rest[0];
    arguments.archive = rest[1];
    for (const Target& target : targets())
        if (target.name == rest[2]) arguments.target = &target;
    if (rest.size() > 3) arguments.runs = std::strtoull(rest[3].c_str(), nullptr, 10);
    if (rest.size() > 4) arguments.first = std::strtoull(rest[4].c_str(), nullptr, 10);
    return arguments.target != nullptr;
}

} // namespace

} // namespace tarn::fuzz

int main(int count, char** values) {
    using namespace tarn::fuzz;
    Arguments arguments;
    if (!parse(count, values, arguments)) {
        std::fputs("usage: fuzz [-save FOLDER] TESTS ARCHIVE TARGET [RUNS [FIRST]]\n", stderr);
        return 2;
    }
    if (::access(arguments.archive.c_str(), R_OK) != 0) {
        std::fprintf(stderr, "skipped: there is no class library\n");
        return 77;
    }
    int status = 2;
    try {
        tarn::runOnBigStack([&] { status = runAll(arguments); });
    } catch (const std::exception& fault) {
        std::fprintf(stderr, "%s\n", fault.what());
    }
    return status;
}
