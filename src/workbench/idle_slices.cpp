#include "workbench/idle_slices.h"

#include "controls/desktop.h"

#include <utility>

namespace zb {

using Clock = std::chrono::steady_clock;

IdleSlices::IdleSlices(Desktop& desktop, std::chrono::milliseconds slice, std::function<bool()> work,
                       std::function<void()> afterSlice)
    : desktop_(desktop), slice_(slice), work_(std::move(work)), afterSlice_(std::move(afterSlice)) {}

void IdleSlices::schedule() {
    if (std::exchange(state_->isScheduled, true))
        return;
    const std::weak_ptr<State> alive = state_;
    desktop_.screen().callLater(std::chrono::milliseconds(0), [this, alive] {
        if (alive.expired())
            return;
        state_->isScheduled = false;
        run();
    });
}

void IdleSlices::scheduleAfter(std::chrono::milliseconds pause) {
    ++state_->pauses;
    const std::weak_ptr<State> alive = state_;
    desktop_.screen().callLater(pause, [this, alive] {
        if (!alive.expired() && --state_->pauses == 0)
            schedule();
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
    // What was to come later finds nothing to do.
    state_ = std::make_shared<State>();
    while (work_())
        continue;
    afterSlice_();
}

} // namespace zb
