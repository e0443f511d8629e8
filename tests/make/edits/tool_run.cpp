#include "tool_run.h"

#include "runtime/failure.h"

#include <csignal>
#include <fcntl.h>
#include <sys/ptrace.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <sys/user.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tarn::edits {

namespace {

[[noreturn]] void becomeTool(const std::vector<std::string>& command, const std::string& directory, const Harm& harm,
                             int output) {
    std::vector<char*> arguments;
    for (const std::string& word : command) arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    ::dup2(output, STDOUT_FILENO);
    ::dup2(output, STDERR_FILENO);
    if (harm.largestFile) {
        rlimit limit{static_cast<rlim_t>(*harm.largestFile), static_cast<rlim_t>(*harm.largestFile)};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    if (::chdir(directory.c_str()) != 0) ::_exit(126);
    if (harm.killedAtWrite && ::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) == 0) ::raise(SIGSTOP);
    ::execv(arguments[0], arguments.data());
    ::_exit(127);
}

/// Whether the call changes a file; what goes to the standard streams does not count.
bool changesFile(const __ptrace_syscall_info& call) {
    switch (call.entry.nr) {
    case SYS_write:
    case SYS_pwrite64:
    case SYS_writev: return call.entry.args[0] > STDERR_FILENO;
    case SYS_openat: return (call.entry.args[2] & O_CREAT) != 0;
    case SYS_ftruncate:
    case SYS_unlinkat:
    case SYS_renameat2:
    case SYS_utimensat:
#ifdef SYS_unlink
    case SYS_unlink:
    case SYS_rename:
#endif
        return true;
    default: return false;
    }
}

/// Has the write that has just begun take only half of its bytes. False if it is none, or this is not known here.
bool halveWrite([[maybe_unused]] pid_t child, [[maybe_unused]] const __ptrace_syscall_info& call) {
#ifdef __x86_64__
    if (call.entry.nr != SYS_write && call.entry.nr != SYS_pwrite64) return false;
    user_regs_struct registers{};
    if (::ptrace(PTRACE_GETREGS, child, nullptr, &registers) != 0) return false;
    registers.rdx /= 2;
    return ::ptrace(PTRACE_SETREGS, child, nullptr, &registers) == 0;
#else
    return false;
#endif
}

/// Follows the child from one system call to the next until it ends, and kills it where it is to be killed.
int trace(pid_t child, const Harm& harm, int& writes) {
    int status = 0;
    bool isLast = false;
    ::waitpid(child, &status, 0);
    ::ptrace(PTRACE_SETOPTIONS, child, nullptr, PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL);
    for (int signal = 0; WIFSTOPPED(status); ::waitpid(child, &status, 0)) {
        __ptrace_syscall_info call{};
        bool isCall = WSTOPSIG(status) == (SIGTRAP | 0x80);
        if (isCall) ::ptrace(PTRACE_GET_SYSCALL_INFO, child, sizeof call, &call);
        if (isCall && call.op == PTRACE_SYSCALL_INFO_EXIT && isLast) ::kill(child, SIGKILL);
        if (isCall && call.op == PTRACE_SYSCALL_INFO_ENTRY && changesFile(call) && writes++ == *harm.killedAtWrite) {
            isLast = harm.halfWritten && halveWrite(child, call);
            if (!isLast) ::kill(child, SIGKILL);
        }
        signal = isCall || WSTOPSIG(status) == SIGTRAP || WSTOPSIG(status) == SIGSTOP ? 0 : WSTOPSIG(status);
        ::ptrace(PTRACE_SYSCALL, child, nullptr, static_cast<long>(signal));
    }
    return status;
}

} // namespace

Run runTool(const std::vector<std::string>& command, const std::string& directory, const Harm& harm) {
    int ends[2];
    require(::pipe2(ends, O_CLOEXEC) == 0, "no pipe");
    ::fcntl(ends[1], F_SETPIPE_SZ, 1 << 20); // a traced run must not wait for us to read
    pid_t child = ::fork();
    require(child >= 0, "no process");
    if (child == 0) becomeTool(command, directory, harm, ends[1]);
    ::close(ends[1]);
    Run run;
    int status = 0;
    if (harm.killedAtWrite) status = trace(child, harm, run.writes);
    char buffer[65536];
    for (ssize_t count; (count = ::read(ends[0], buffer, sizeof buffer)) > 0;)
        run.output.append(buffer, static_cast<std::size_t>(count));
    ::close(ends[0]);
    if (!harm.killedAtWrite) ::waitpid(child, &status, 0);
    run.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return run;
}

} // namespace tarn::edits
