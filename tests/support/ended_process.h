#pragma once

#include <string>

#include <sys/wait.h>
#include <unistd.h>

namespace zb::test {

/// The number of a process that has ended.
inline std::string endedProcess() {
    const pid_t child = ::fork();
    if (child == 0)
        ::_exit(0);
    ::waitpid(child, nullptr, 0);
    return std::to_string(child);
}

} // namespace zb::test
