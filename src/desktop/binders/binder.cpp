#include "desktop/binders/binder.h"

#include "desktop/key_codes.h"
#include "desktop/qt_text.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QWidget>

namespace zb {

namespace {

// Focus that comes back with an active window, or goes where a widget vanished, is not the user's doing.
bool isMovedByUser(Qt::FocusReason reason) {
    return reason == Qt::MouseFocusReason || reason == Qt::TabFocusReason ||
           reason == Qt::BacktabFocusReason || reason == Qt::ShortcutFocusReason;
}

bool movesFocus(const QKeyEvent& event) {
    return event.key() == Qt::Key_Tab || event.key() == Qt::Key_Backtab;
}

} // namespace

Binder::Binder(Control& control, QWidget& widget, Binding& binding)
    : control_(control), widget_(&widget), binding_(binding) {}

Binder::~Binder() {
    if (!abandoned_)
        control_.bell = nullptr;
}

void Binder::start() {
    control_.bell = [this](Change change) { ring(change); };
    keyWidget().installEventFilter(this);
    const Showing showing(binding_);
    showState();
    show(Change::State);
    show(Change::Rows);
    show(Change::Value);
    show(Change::Selection);
}

void Binder::ring(Change change) {
    const Showing showing(binding_);
    if (change == Change::State)
        showState();
    show(change);
    if (change == Change::State)
        followFocus();
}

void Binder::showState() {
    widget_->setEnabled(control_.enabled());
    widget_->setVisible(control_.visible());
    if (!control_.toolTip().empty())
        widget_->setToolTip(toQt(control_.toolTip()));
}

void Binder::followFocus() {
    if (!control_.focused() || keyWidget().hasFocus())
        return;
    const Showing showing(binding_);
    keyWidget().setFocus(Qt::OtherFocusReason);
}

bool Binder::eventFilter(QObject* watched, QEvent* event) {
    if (watched != &keyWidget())
        return false;
    if (event->type() == QEvent::FocusIn) {
        if (!isShowing() && isMovedByUser(static_cast<QFocusEvent*>(event)->reason()))
            hands().focus(control_);
        return false;
    }
    return filterKeys(*event);
}

bool Binder::filterKeys(QEvent& event) {
    if (event.type() == QEvent::KeyPress) {
        auto& key = static_cast<QKeyEvent&>(event);
        return !movesFocus(key) && keyPressed(key);
    }
    return event.type() == QEvent::KeyRelease && keyReleased(static_cast<QKeyEvent&>(event));
}

bool Binder::keyPressed(QKeyEvent& event) {
    const KeyMeaning meaning = meaningOf(event);
    if (!meaning.key || (meaning.key->shift & kAltKey) != 0)
        return false;
    pressKey(*meaning.key);
    return true;
}

void Binder::pressKey(KeyEvent key) {
    // The handlers of the key may take this binder's window away.
    const QPointer<Binder> alive(this);
    const auto refusal =
        binding_.keysStay ? hands().keyDownHere(control_, key) : hands().keyDown(control_, key);
    if (refusal.empty() && alive)
        keysDown_.insert(key.code);
}

bool Binder::keyReleased(const QKeyEvent& event) {
    const KeyMeaning meaning = meaningOf(event);
    if (!meaning.key || event.isAutoRepeat())
        return meaning.key.has_value();
    if (keysDown_.erase(meaning.key->code) == 0)
        return false;
    hands().keyUp(control_, *meaning.key);
    return true;
}

} // namespace zb
