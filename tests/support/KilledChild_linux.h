#pragma once

#include <functional>
#include <vector>

/// Runs work in a child process under ptrace and kills it with SIGKILL as it enters its
/// `syscalls`-th system call: a crash at a moment chosen by counting, never by a clock. The
/// child ends its work with `_exit`, so nothing of the test's own teardown runs in it.
struct KilledChild
{
    /// The child entered the chosen system call and was killed there; false when its work
    /// ended first, or the child could not be traced.
    bool killed = false;
    /// The system calls it entered.
    int syscalls = 0;
    /// The number of each call it entered, in order, when asked for.
    std::vector<unsigned long long> calls;
};

/// With `recordCalls`, the outcome lists every call: a run that nobody kills shows where the
/// interesting moments are (the renames of an atomic write, say).
[[nodiscard]] KilledChild killAtSyscall(const std::function<void()> &work, int syscalls,
                                        bool recordCalls = false);

/// The positions (1 for the first call) of the `before` calls before each rename and of the
/// rename itself: the moments inside an atomic write.
[[nodiscard]] std::vector<int> momentsOfWriting(const std::vector<unsigned long long> &calls,
                                                int before);
