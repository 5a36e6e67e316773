#pragma once

#include <chrono>
#include <functional>
#include <memory>

namespace zb {

class Desktop;

/// A work that is done between the actions of the user, in slices of some milliseconds, so that the windows
/// stay usable.
class IdleSlices {
public:
    /// `work` does a small piece, and is false when there is nothing to do. `afterSlice` shows what has come
    /// of a slice. Both are called only while this object lives.
    IdleSlices(Desktop& desktop, std::chrono::milliseconds slice, std::function<bool()> work,
               std::function<void()> afterSlice);

    /// There is something to do.
    void schedule();
    /// There is something to do that takes long at its start: it waits until this has not been called again
    /// for that time, so that it does not run after each key.
    void scheduleAfter(std::chrono::milliseconds pause);
    /// Whether `scheduleAfter` waits.
    bool isPausing() const { return state_->pauses > 0; }
    /// Does all that is left to do. For users who wait until it is done.
    void finish();

private:
    void run();

    struct State {
        bool isScheduled = false;
        int pauses = 0; ///< that have not ended
    };

    Desktop& desktop_;
    std::chrono::milliseconds slice_;
    std::function<bool()> work_;
    std::function<void()> afterSlice_;
    /// Goes with this object: a slice that comes later finds it gone.
    std::shared_ptr<State> state_ = std::make_shared<State>();
};

} // namespace zb
