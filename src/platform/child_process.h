#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace zb {

struct ProcessLimits {
    std::chrono::milliseconds time{0};     ///< after which the program and all its children are ended
    std::chrono::milliseconds farewell{0}; ///< that they get to end by themselves when they are asked to
    std::size_t outputBytes = 0;           ///< that are kept; what follows is read and dropped
};

/// How a program ended, and what it said.
struct ProcessOutcome {
    enum class End {
        NotStarted, ///< `number` is the system's error
        Exited,     ///< `number` is the exit status
        Signalled,  ///< `number` is the signal that ended it
        TimedOut    ///< it was ended for having run too long
    };

    End end = End::NotStarted;
    int number = 0;
    std::string output;           ///< standard output and standard error, as they came
    std::size_t droppedBytes = 0; ///< that came behind what was kept
};

/// Runs a program, given by a path or by a name to be looked for on the PATH, with its arguments: no shell
/// is between. It reads nothing: its standard input is empty. It stands in a process group of its own. The
/// call returns when the program itself has ended, whatever children of it go on; `keepAlive` is called many
/// times a second until then. A signal that asks this process to end, as Ctrl+C at a terminal, ends the
/// program first.
ProcessOutcome runProcess(const std::vector<std::string>& arguments, const ProcessLimits& limits,
                          const std::function<void()>& keepAlive);

/// A signal's number, and in parentheses the system's words for it.
std::string describeSignal(int signal);

} // namespace zb
