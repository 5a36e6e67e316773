#pragma once

#include "platform/progress.h"

#include <functional>
#include <future>
#include <string>

class QWidget;

namespace zb {

/// A long work on a thread of its own. Most end before a user would notice; for the others there is a dialog
/// that shows how far they are, with a button that cancels them. The windows are painted meanwhile, and take
/// no input.
class WatchedWork {
public:
    /// Starts the work. What it uses must outlive this object.
    explicit WatchedWork(const std::function<void(const Progress&)>& work);
    /// Cancels the work, and waits for its end.
    ~WatchedWork();
    WatchedWork(const WatchedWork&) = delete;
    WatchedWork& operator=(const WatchedWork&) = delete;

    /// Waits for a moment in which nothing is painted; says whether the work has ended.
    bool endsSoon() const;
    /// Shows the dialog until the work ends. `what` is plain text.
    void show(const std::string& what, QWidget* parent);
    /// Whether the work was done; false when it was cancelled. Throws what the work has thrown. Waits for the
    /// end, and may be called once.
    bool take();

private:
    LongWork work_;
    std::future<void> end_;
};

} // namespace zb
