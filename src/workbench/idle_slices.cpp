#include "workbench/idle_slices.h"

#include "controls/desktop.h"

#include <utility>

namespace zb {

using Clock = std::chrono::steady_clock;

IdleSlices::IdleSlices(Desktop& desktop, std::chrono::milliseconds slice, std::function<bool()> work,
                       std::function<void()> afterSlice)
    : desktop_(desktop), slice_(slice), work_(std::move(work)), afterSlice_(std::move(afterSlice)) {}

void IdleSlices::schedule() {
    if (std::exchange(*isScheduled_, true))
        return;
    const std::weak_ptr<bool> alive = isScheduled_;
    desktop_.screen().callLater(std::chrono::milliseconds(0), [this, alive] {
        if (alive.expired())
            return;
        *isScheduled_ = false;
        run();
    });
}

void IdleSlices::run() {
    const Clock::time_point end = Clock::now() + slice_;
    while (work_()) {
        if (Clock::now() >= end) {
            schedule();
            break;
        }
    }
    afterSlice_();
}

void IdleSlices::finish() {
    while (work_())
        continue;
    afterSlice_();
}

} // namespace zb
