#pragma once

#include <QApplication>

#include <functional>
#include <vector>

namespace zb {

/// The application of the event loop. When a handler runs out of memory, its command ends, and the program
/// continues, so that the user can still save.
class GuardedApplication final : public QApplication {
public:
    GuardedApplication(int& argc, char** argv);

    /// Called after a handler ran out of memory, with some memory set free for it. While it runs, further
    /// failures only end their handlers.
    std::function<void()> onOutOfMemory;

    bool notify(QObject* receiver, QEvent* event) override;

private:
    void report();

    std::vector<char> reserve_;
    bool isReporting_ = false;
};

} // namespace zb
