#include "platform/end_requests.h"

#include <array>
#include <csignal>

#include <fcntl.h>
#include <unistd.h>

namespace zb {

namespace {

constexpr std::array kSignals{SIGTERM, SIGHUP, SIGINT};

// A handler of signals reaches nothing else.
int pipeOfHandler = -1;

void note(int number) {
    const auto byte = static_cast<unsigned char>(number);
    static_cast<void>(!::write(pipeOfHandler, &byte, 1));
}

} // namespace

EndRequests::EndRequests() {
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    descriptor_ = ends[0];
    pipeOfHandler = ends[1];
    for (const int number : kSignals) {
        struct sigaction action {};
        // What started the program may have chosen that it outlives its terminal.
        if (::sigaction(number, nullptr, &action) == 0 && action.sa_handler == SIG_IGN)
            continue;
        action = {};
        action.sa_handler = note;
        action.sa_flags = SA_RESTART;
        ::sigaction(number, &action, nullptr);
    }
}

EndRequests::~EndRequests() {
    if (descriptor_ < 0)
        return;
    for (const int number : kSignals) {
        struct sigaction action {};
        if (::sigaction(number, nullptr, &action) == 0 && action.sa_handler == note)
            std::signal(number, SIG_DFL);
    }
    ::close(descriptor_);
    ::close(pipeOfHandler);
    pipeOfHandler = -1;
}

void EndRequests::obey() {
    unsigned char byte = 0;
    if (::read(descriptor_, &byte, 1) != 1)
        return;
    std::signal(byte, SIG_DFL);
    static_cast<void>(std::raise(byte));
}

} // namespace zb
