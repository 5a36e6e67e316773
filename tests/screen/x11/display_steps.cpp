#include "screen/x11/display_steps.h"

#include <QCoreApplication>
#include <QDeadlineTimer>

#include <cstdio>
#include <cstdlib>
#include <stdexcept>
#include <utility>

namespace zb::test {

namespace {

constexpr int kQuietRounds = 2;
constexpr int kMostRounds = 5000;
constexpr int kLongestStep = 20000; // ms
constexpr int kLongestStuck = 45000;

} // namespace

DisplaySteps::DisplaySteps(XServer& server) : server_(server) {
    antenna_.winId();
    stuck_.setSingleShot(true);
    stuck_.setInterval(kLongestStuck);
    // The loop of a drag or a menu that does not end cannot be left by a fault.
    connect(&stuck_, &QTimer::timeout, this, [] {
        std::fputs("the display is stuck in a drag or a menu\n", stderr);
        std::_Exit(EXIT_FAILURE);
    });
    QCoreApplication::instance()->installNativeEventFilter(this);
}

DisplaySteps::~DisplaySteps() {
    if (auto* application = QCoreApplication::instance())
        application->removeNativeEventFilter(this);
}

DisplaySteps::Held::~Held() {
    --steps_.held_;
    if (!steps_.runs_.empty())
        steps_.probe();
}

void DisplaySteps::run(std::vector<Step> steps) {
    Run run{std::move(steps), 0, held_, false};
    runs_.push_back(&run);
    stuck_.start();
    restless_ = 0;
    quiet_ = 0;
    probe();
    QDeadlineTimer deadline(kLongestStep);
    QTimer alarm; // ends the wait for events when none comes any more
    alarm.start(kLongestStep);
    for (std::size_t seen = 0; !run.done;) {
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
        if (std::exchange(seen, run.next) != run.next)
            deadline.setRemainingTime(kLongestStep);
        if (restless_ > kMostRounds || deadline.hasExpired()) {
            runs_.pop_back();
            throw std::runtime_error("the display does not come to rest");
        }
    }
    if (runs_.empty())
        stuck_.stop();
    else
        probe();
}

// The marker comes after all events that the server has for the program by now.
void DisplaySteps::probe() {
    server_.awaitWindowManager();
    server_.sendMarker(static_cast<xcb_window_t>(antenna_.winId()), ++marker_);
}

bool DisplaySteps::nativeEventFilter(const QByteArray& /*type*/, void* message, qintptr* /*result*/) {
    const auto* event = static_cast<const xcb_generic_event_t*>(message);
    const auto& told = *reinterpret_cast<const xcb_client_message_event_t*>(event);
    if ((event->response_type & 0x7f) != XCB_CLIENT_MESSAGE || told.type != server_.markerType()) {
        ++eventsSince_;
        return false;
    }
    if (told.data.data32[0] == marker_)
        QMetaObject::invokeMethod(this, &DisplaySteps::proceed, Qt::QueuedConnection);
    return true;
}

void DisplaySteps::proceed() {
    if (runs_.empty() || runs_.back()->held != held_)
        return;
    quiet_ = std::exchange(eventsSince_, 0) == 0 ? quiet_ + 1 : 0;
    ++restless_;
    Run& run = *runs_.back();
    if (quiet_ < kQuietRounds) {
        probe();
        return;
    }
    quiet_ = 0;
    restless_ = 0;
    stuck_.start();
    if (run.next == run.steps.size()) {
        run.done = true;
        runs_.pop_back();
        return;
    }
    const Step step = run.steps[run.next++];
    step();
    probe();
}

} // namespace zb::test
