#include "platform/process_signals.h"

#include <csignal>

namespace zb {

void letLargeWritesFail() {
    std::signal(SIGXFSZ, SIG_IGN);
}

} // namespace zb
