#pragma once

#include "unit/shell/program.h"

#include <algorithm>
#include <ctime>
#include <vector>

namespace zb::test {

inline double processorSeconds() {
    std::timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

/// Runs what is to be called at once, as the event loop does. The processor time of the longest call, in
/// seconds.
inline double runSlices(SilentScreen& screen) {
    double longest = 0;
    for (;;) {
        std::vector<SilentScreen::Later> now;
        now.swap(screen.later);
        std::erase_if(now, [](const auto& later) { return later.delay.count() > 0; });
        if (now.empty())
            return longest;
        for (const auto& later : now) {
            const double start = processorSeconds();
            later.run();
            longest = std::max(longest, processorSeconds() - start);
        }
    }
}

} // namespace zb::test
