#pragma once

#include <functional>

namespace zb {

/// Runs a function when the process ends through `exit`, as a library does that has lost its display, while
/// an object of this class exists. A regular end destroys the object before. There is one object at a time.
class ExitHook {
public:
    explicit ExitHook(std::function<void()> atExit);
    ~ExitHook();
    ExitHook(const ExitHook&) = delete;
    ExitHook& operator=(const ExitHook&) = delete;

    /// Runs it for the last time.
    void run();

private:
    std::function<void()> atExit_;
};

} // namespace zb
