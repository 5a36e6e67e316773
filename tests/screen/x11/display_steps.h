#pragma once

#include "screen/x11/x_server.h"

#include <QAbstractNativeEventFilter>
#include <QObject>
#include <QTimer>
#include <QWidget>

#include <functional>
#include <vector>

namespace zb::test {

/// What the hands do, step by step: each step comes when the server, the window manager and the program have
/// dealt with all that the steps before have set off. Nobody waits for a time to pass. Steps go on within
/// the event loops of drags and menus. A box or a modal window holds them until it is gone; meanwhile
/// others may run within.
class DisplaySteps final : public QObject, public QAbstractNativeEventFilter {
public:
    using Step = std::function<void()>;

    explicit DisplaySteps(XServer& server);
    ~DisplaySteps() override;

    /// Returns after the last step and all that it has set off.
    void run(std::vector<Step> steps);
    void rest() { run({}); }

    /// Around the event loop of a box or a modal window: the steps outside wait.
    class Held {
    public:
        explicit Held(DisplaySteps& steps) : steps_(steps) { ++steps_.held_; }
        ~Held();
        Held(const Held&) = delete;
        Held& operator=(const Held&) = delete;

    private:
        DisplaySteps& steps_;
    };

private:
    struct Run {
        std::vector<Step> steps;
        std::size_t next = 0;
        int held = 0;
        bool done = false;
    };

    bool nativeEventFilter(const QByteArray& type, void* message, qintptr* result) override;
    void probe();
    void proceed();

    XServer& server_;
    QWidget antenna_; // has a window of the program's connection, and is never shown
    std::vector<Run*> runs_;
    int held_ = 0;
    std::uint32_t marker_ = 0;
    int eventsSince_ = 0;
    int quiet_ = 0;
    int restless_ = 0;
    QTimer stuck_;
};

} // namespace zb::test
