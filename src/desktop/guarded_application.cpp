#include "desktop/guarded_application.h"

#include <QScopeGuard>

#include <new>

namespace zb {

namespace {

// Enough for the text of a large project and a box.
constexpr std::size_t kReserve = std::size_t{16} << 20U;

} // namespace

GuardedApplication::GuardedApplication(int& argc, char** argv)
    : QApplication(argc, argv), reserve_(kReserve) {}

bool GuardedApplication::notify(QObject* receiver, QEvent* event) {
    try {
        return QApplication::notify(receiver, event);
    } catch (const std::bad_alloc&) {
        report();
        return true;
    }
}

void GuardedApplication::report() {
    if (isReporting_ || !onOutOfMemory)
        return;
    isReporting_ = true;
    const auto done = qScopeGuard([this] { isReporting_ = false; });
    reserve_ = {};
    try {
        onOutOfMemory();
        reserve_.resize(kReserve);
    } catch (const std::bad_alloc&) {
        // Not even that much is left; the next command may need less.
        reserve_ = {};
    }
}

} // namespace zb
