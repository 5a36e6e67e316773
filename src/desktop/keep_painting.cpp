#include "desktop/keep_painting.h"

#include <QCoreApplication>
#include <QEvent>
#include <QEventLoop>

namespace zb {

namespace {

/// Blocks events that would make the stores act. The event loop itself delays keys and buttons.
class PaintOnly final : public QObject {
public:
    PaintOnly() { QCoreApplication::instance()->installEventFilter(this); }

    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        switch (event->type()) {
        case QEvent::Close:
            event->ignore();
            return true;
        case QEvent::FocusIn:
        case QEvent::FocusOut:
        case QEvent::WindowActivate:
        case QEvent::WindowDeactivate:
        case QEvent::DragEnter:
        case QEvent::Drop:
            return true;
        default:
            return false;
        }
    }
};

} // namespace

void keepPainting() {
    const PaintOnly filter;
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

} // namespace zb
