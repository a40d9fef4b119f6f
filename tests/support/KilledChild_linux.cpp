#include "tests/support/KilledChild_linux.h"

#include <algorithm>
#include <csignal>
#include <cstdint>
#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

KilledChild killAtSyscall(const std::function<void()> &work, int syscalls, bool recordCalls)
{
    const pid_t child = ::fork();
    if (child == 0) {
        ::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
        ::raise(SIGSTOP);
        work();
        ::_exit(0);
    }
    KilledChild outcome;
    int status = 0;
    if (child < 0 || ::waitpid(child, &status, 0) != child || !WIFSTOPPED(status)) {
        if (child > 0) {
            ::kill(child, SIGKILL);
            ::waitpid(child, nullptr, 0);
        }
        return outcome;
    }
    // The child dies with the test, whatever happens to the test.
    ::ptrace(PTRACE_SETOPTIONS, child, nullptr, PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL);
    int pending = 0;
    bool entering = true;
    for (;;) {
        ::ptrace(PTRACE_SYSCALL, child, nullptr, reinterpret_cast<void *>(intptr_t(pending)));
        pending = 0;
        if (::waitpid(child, &status, 0) != child || !WIFSTOPPED(status))
            return outcome; // the work ended on its own
        if (WSTOPSIG(status) != (SIGTRAP | 0x80)) {
            pending = WSTOPSIG(status);
            continue;
        }
        // Stops alternate between entering and leaving a call.
        if (entering && recordCalls) {
            __ptrace_syscall_info info{};
            ::ptrace(PTRACE_GET_SYSCALL_INFO, child, reinterpret_cast<void *>(sizeof info), &info);
            outcome.calls.push_back(info.entry.nr);
        }
        if (entering && ++outcome.syscalls == syscalls)
            break;
        entering = !entering;
    }
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    outcome.killed = true;
    return outcome;
}

std::vector<int> momentsOfWriting(const std::vector<unsigned long long> &calls, int before)
{
    std::vector<int> moments;
    for (int at = 0; at < static_cast<int>(calls.size()); ++at) {
        const unsigned long long call = calls[static_cast<size_t>(at)];
        if (call != SYS_rename && call != SYS_renameat && call != SYS_renameat2)
            continue;
        for (int moment = std::max(1, at + 1 - before); moment <= at + 1; ++moment)
            moments.push_back(moment);
    }
    return moments;
}
