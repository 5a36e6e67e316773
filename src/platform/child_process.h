#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace zb {

struct ProcessLimits {
    std::chrono::milliseconds time{0};     ///< after which the program and all its children are ended
    std::chrono::milliseconds farewell{0}; ///< time to end by themselves after a request
    std::size_t outputBytes = 0;           ///< bytes that are kept; the rest is read and dropped
};

/// How a program ended, and its output.
struct ProcessOutcome {
    enum class End {
        NotStarted, ///< `number` is the error number of the system
        Exited,     ///< `number` is the exit status
        Signalled,  ///< `number` is the signal that ended it
        TimedOut,   ///< it was ended at the time limit
        Stopped     ///< it was ended since the watch did not want it to go on
    };

    End end = End::NotStarted;
    int number = 0;
    std::string output;           ///< standard output and standard error, in order of arrival
    std::size_t droppedBytes = 0; ///< bytes that were dropped
};

/// Called many times a second while a program runs, with all output that is kept so far. When it returns
/// false, the program and all its children are ended, as at the time limit.
using ProcessWatch = std::function<bool(std::string_view output)>;

/// Runs a program, given by a path or by a name to be searched on the PATH, with its arguments, without a
/// shell. Its standard input is empty. It runs in its own process group. The call returns when the program
/// itself has ended, even if children of it continue. A signal that asks this process to end, such as Ctrl+C
/// at a terminal, ends the program first.
ProcessOutcome runProcess(const std::vector<std::string>& arguments, const ProcessLimits& limits,
                          const ProcessWatch& watch);

/// A signal's number, and in parentheses the system's words for it.
std::string describeSignal(int signal);

} // namespace zb
