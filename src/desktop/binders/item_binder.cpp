#include "desktop/binders/item_binder.h"

#include "controls/desktop.h"
#include "desktop/binders/dragging.h"
#include "desktop/key_codes.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScopeGuard>
#include <QScrollBar>

#include <utility>

namespace zb {

namespace {

KeyEvent modifiersOf(const QMouseEvent& event) {
    int shift = event.modifiers().testFlag(Qt::ShiftModifier) ? kShiftKey : 0;
    if (event.modifiers().testFlag(Qt::ControlModifier))
        shift |= kControlKey;
    return {0, shift};
}

UserHands::MouseButton buttonOf(const QMouseEvent& event) {
    return event.button() == Qt::RightButton ? UserHands::MouseButton::Right : UserHands::MouseButton::Left;
}

bool isMember(const Target& target) {
    return target.node != nullptr || target.row != nullptr;
}

} // namespace

FocusMark::FocusMark(QWidget& view) : QWidget(&view) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setGeometry(view.rect());
    setVisible(view.hasFocus());
}

void FocusMark::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Highlight));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

ItemBinder::ItemBinder(Control& control, QAbstractItemView& view, Binding& binding)
    : Binder(control, view, binding), view_(view), focusMark_(*new FocusMark(view)) {
    view_.viewport()->installEventFilter(this);
}

bool ItemBinder::keptByView(const QMouseEvent& /*event*/) {
    return false;
}

UserHands::Refusal ItemBinder::press(const Target& target, const QMouseEvent& event) {
    return hands().mouseDown(target, buttonOf(event), modifiersOf(event));
}

bool ItemBinder::eventFilter(QObject* watched, QEvent* event) {
    if (watched == view_.viewport())
        return viewportEvent(*event);
    if (event->type() == QEvent::FocusIn)
        focusMark_.show();
    else if (event->type() == QEvent::FocusOut)
        focusMark_.hide();
    else if (event->type() == QEvent::Resize)
        focusMark_.setGeometry(view_.rect());
    if (event->type() == QEvent::ContextMenu &&
        static_cast<QContextMenuEvent*>(event)->reason() == QContextMenuEvent::Keyboard) {
        openPopupByKey();
        return true;
    }
    if (event->type() == QEvent::ShortcutOverride) {
        const auto& key = static_cast<QKeyEvent&>(*event);
        if (wantsKey(key) || comesBeforeMenu(key)) {
            event->accept();
            return true;
        }
    }
    return Binder::eventFilter(watched, event);
}

bool ItemBinder::comesBeforeMenu(const QKeyEvent& event) const {
    const auto key = meaningOf(event).key;
    const KeyCommand* command =
        key ? binding().desktop.keys().find(control().window(), &control(), *key) : nullptr;
    return command != nullptr && command->beforeMenu && command->beforeMenu();
}

// The drag keys belong to the list while it can use them; otherwise they are those of the menus.
bool ItemBinder::wantsKey(const QKeyEvent& event) const {
    if (event.matches(QKeySequence::Copy))
        return startsDrags() && isMember(selectedTarget());
    return event.matches(QKeySequence::Paste) && takesDrops() && holdsTaken(binding());
}

bool ItemBinder::viewportEvent(QEvent& event) {
    switch (event.type()) {
    case QEvent::MouseButtonPress:
        mousePressed(static_cast<QMouseEvent&>(event));
        return true;
    case QEvent::MouseButtonDblClick:
        pressedTwice(static_cast<QMouseEvent&>(event));
        return true;
    case QEvent::MouseMove:
        mouseMoved(static_cast<QMouseEvent&>(event));
        return true;
    case QEvent::MouseButtonRelease:
        mouseReleased(static_cast<QMouseEvent&>(event));
        return true;
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::DragLeave:
    case QEvent::Drop:
        return drops(event);
    default:
        return false;
    }
}

void ItemBinder::mousePressed(const QMouseEvent& event) {
    flush();
    pressedAt_ = event.position().toPoint();
    pressed_ = {};
    draggable_ = {};
    if (keptByView(event))
        return;
    const Target target = targetAt(pressedAt_);
    const QPointer<Binder> alive(this);
    pressed_ = target;
    draggable_ = target;
    if (press(target, event).empty() || !alive)
        return;
    pressed_ = {};
    draggable_ = {};
}

void ItemBinder::pressedTwice(const QMouseEvent& event) {
    draggable_ = {};
    if (event.button() != Qt::LeftButton || keptByView(event))
        return;
    // A press shortly after another one may still start a drag.
    pressedAt_ = event.position().toPoint();
    draggable_ = targetAt(pressedAt_);
    hands().doublePress(Target(draggable_));
}

void ItemBinder::mouseMoved(const QMouseEvent& event) {
    if (!(event.buttons() & Qt::LeftButton) || !isMember(draggable_) || !isDrag(event.position().toPoint()))
        return;
    const Target from = std::exchange(draggable_, {});
    const auto data = hands().beginDrag(from);
    // Without a drag the release is still that of a click.
    if (!data)
        return;
    pressed_ = {};
    runDrag(binding(), view_, *data, selectedTexts());
}

// A hand that shakes within the pressed row clicks; a drag leaves the row or goes far.
bool ItemBinder::isDrag(const QPoint& place) const {
    const int moved = (place - pressedAt_).manhattanLength();
    const int least = QApplication::startDragDistance();
    const QRect row = placeOf(draggable_);
    const bool within = place.y() >= row.top() && place.y() <= row.bottom();
    return moved >= (within ? 3 * least : least);
}

void ItemBinder::mouseReleased(const QMouseEvent& event) {
    draggable_ = {};
    const Target target = std::exchange(pressed_, {});
    if (target.control != nullptr)
        hands().mouseUp(target, buttonOf(event), modifiersOf(event));
}

bool ItemBinder::drops(QEvent& event) {
    if (!takesDrops())
        return event.type() != QEvent::DragLeave;
    if (!followDrag(binding(), view_, event))
        return true;
    auto& drop = static_cast<QDropEvent&>(event);
    const QPoint place = drop.position().toPoint();
    const DragData data = dragDataOf(binding(), drop, &view_);
    if (event.type() == QEvent::Drop) {
        hands().drop(data, targetAt(place));
    } else if (event.type() == QEvent::DragMove) {
        scrollAtEdge(place);
        hands().dragOver(data, targetAt(place));
    }
    return true;
}

// A drag near an edge scrolls, to reach what is out of view.
void ItemBinder::scrollAtEdge(const QPoint& place) {
    constexpr int kEdge = 12;
    if (place.y() < kEdge)
        view_.verticalScrollBar()->triggerAction(QScrollBar::SliderSingleStepSub);
    else if (place.y() > view_.viewport()->height() - kEdge)
        view_.verticalScrollBar()->triggerAction(QScrollBar::SliderSingleStepAdd);
}

bool ItemBinder::keyPressed(QKeyEvent& event) {
    flush();
    const auto key = meaningOf(event).key;
    // Shift+Ins matches a paste as well; it is a command of the message tree.
    const bool isDrop = event.key() == Qt::Key_V && wantsKey(event);
    const bool isCommand =
        !isDrop && key && binding().desktop.keys().find(control().window(), &control(), *key) != nullptr;
    if (isCommand && Binder::keyPressed(event))
        return true;
    if (dragByKey(event) || mouseByKey(event) || Binder::keyPressed(event))
        return true;
    // What is left must not reach the view: it would move the highlight without the store.
    event.ignore();
    return true;
}

// Copy takes up what a drag would, paste lets it fall on the selection. A text that was copied since is not
// meant for a tree, which may take any drop for a repetition of the drag before.
bool ItemBinder::dragByKey(const QKeyEvent& event) {
    const Target target = selectedTarget();
    if (event.matches(QKeySequence::Copy) && startsDrags()) {
        if (isMember(target) && hands().mouseDown(target, UserHands::MouseButton::Left).empty())
            takeUp(binding(), hands().beginDrag(target));
        return true;
    }
    if (!event.matches(QKeySequence::Paste) || !takesDrops() || !holdsTaken(binding()))
        return false;
    hands().drop(DragData(*binding().taken), target);
    return true;
}

// Keys that only a keyboard has: keys of scripts go to the store only.
bool ItemBinder::mouseByKey(const QKeyEvent& event) {
    if (!event.spontaneous())
        return false;
    const Target target = selectedTarget();
    if (event.key() == Qt::Key_F10 && event.modifiers() == Qt::ShiftModifier) {
        openPopupByKey();
        return true;
    }
    if (event.key() == Qt::Key_F2) {
        hands().click(isMember(target) ? target : targetAt({1, 1}));
        return true;
    }
    const bool enters = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
    const bool alone = (event.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    if (!enters || !alone || !isMember(target))
        return false;
    if (takesDoubleClicks())
        hands().doubleClick(target);
    else
        hands().click(target);
    return true;
}

void ItemBinder::openPopupByKey() {
    const Target target = selectedTarget();
    const QPoint place = isMember(target) ? placeOf(target).center() : QPoint(8, 8);
    const QPoint seen(qBound(0, place.x(), 80), qBound(0, place.y(), view_.viewport()->height()));
    binding().popupPlace = view_.viewport()->mapToGlobal(seen);
    const auto over = qScopeGuard([&binding = binding()] { binding.popupPlace.reset(); });
    hands().rightClick(target);
}

} // namespace zb
