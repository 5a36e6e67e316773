#include "platform/exit_hook.h"

#include <cstdlib>
#include <exception>
#include <utility>

namespace zb {

namespace {

// What the system calls at the end reaches nothing else.
ExitHook* hookOfProcess = nullptr;

void runHook() {
    if (ExitHook* hook = std::exchange(hookOfProcess, nullptr); hook != nullptr)
        hook->run();
}

} // namespace

ExitHook::ExitHook(std::function<void()> atExit) : atExit_(std::move(atExit)) {
    hookOfProcess = this;
    std::atexit(&runHook);
}

ExitHook::~ExitHook() {
    if (hookOfProcess == this)
        hookOfProcess = nullptr;
}

void ExitHook::run() {
    try {
        std::exchange(atExit_, nullptr)();
    } catch (const std::exception&) {
        // The process ends in any case.
        return;
    }
}

} // namespace zb
