#pragma once

#include <atomic>
#include <cstddef>

namespace zb {

/// What a cancelled work throws.
class Cancelled final {};

/// A long work that can be watched and cancelled, also from another thread.
class LongWork {
public:
    void cancel() { cancelled_.store(true, std::memory_order_relaxed); }
    /// How much of it is done, from 0 to 1.
    double done() const { return done_.load(std::memory_order_relaxed); }

private:
    friend class Progress;
    std::atomic<double> done_ = 0;
    std::atomic<bool> cancelled_ = false;
};

/// By this the code of a long work, or of a part of one, reports how far it is. It is cheap enough to be
/// called for each line of a text.
class Progress {
public:
    /// Nobody watches.
    Progress() = default;
    /// The whole of a work, which must outlive it.
    explicit Progress(LongWork& work) : work_(&work) {}

    /// A part of this one; both bounds are from 0 to 1.
    Progress part(double from, double to) const {
        Progress part(*this);
        part.from_ = from_ + from * (to_ - from_);
        part.to_ = from_ + to * (to_ - from_);
        return part;
    }

    /// So many of so many steps are done. Throws Cancelled when the work has been cancelled.
    void at(std::size_t done, std::size_t all) const {
        if (work_ == nullptr)
            return;
        if (work_->cancelled_.load(std::memory_order_relaxed))
            throw Cancelled();
        const double share = all == 0 ? 1 : static_cast<double>(done) / static_cast<double>(all);
        work_->done_.store(from_ + share * (to_ - from_), std::memory_order_relaxed);
    }

private:
    LongWork* work_ = nullptr;
    double from_ = 0;
    double to_ = 1;
};

} // namespace zb
