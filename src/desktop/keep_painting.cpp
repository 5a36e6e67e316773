#include "desktop/keep_painting.h"

#include <QCoreApplication>
#include <QEvent>
#include <QEventLoop>
#include <QWidget>
#include <QWindow>

namespace zb {

namespace {

/// Blocks events that would make the stores act. The event loop itself delays keys and buttons, unless a
/// window is to be used.
class PaintOnly final : public QObject {
public:
    explicit PaintOnly(const QWidget* usable) : usable_(usable) {
        QCoreApplication::instance()->installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (isUsable(*watched))
            return false;
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
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::ShortcutOverride:
        case QEvent::Shortcut:
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::Wheel:
        case QEvent::ContextMenu:
            return usable_ != nullptr && !watched->isWindowType();
        default:
            return false;
        }
    }

private:
    bool isUsable(const QObject& watched) const {
        if (usable_ == nullptr)
            return false;
        const auto* widget = qobject_cast<const QWidget*>(&watched);
        return widget != nullptr ? widget == usable_ || usable_->isAncestorOf(widget)
                                 : &watched == usable_->windowHandle();
    }

    const QWidget* usable_;
};

} // namespace

void keepPainting(const QWidget* usable) {
    const PaintOnly filter(usable);
    QCoreApplication::processEvents(usable == nullptr ? QEventLoop::ExcludeUserInputEvents
                                                      : QEventLoop::AllEvents);
}

} // namespace zb
