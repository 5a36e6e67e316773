#include "desktop/binders/binder.h"

#include "controls/desktop.h"
#include "controls/key_effects.h"
#include "controls/simple_controls.h"
#include "controls/text_field.h"
#include "controls/window.h"
#include "desktop/key_codes.h"
#include "desktop/plain_labels.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QWidget>

#include <algorithm>

namespace zb {

namespace {

// Focus that returns with an active window, or moves because a widget vanished, is not an action of the user.
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
        widget_->setToolTip(toolTipOf(control_.toolTip()));
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
    if (!meaning.key)
        return false;
    // Keys with Alt belong to the menus and buttons, unless a command is on them.
    if ((meaning.key->shift & kAltKey) != 0 &&
        binding_.desktop.keys().find(control_.window(), &control_, *meaning.key) == nullptr)
        return false;
    const QPointer<Binder> alive(this);
    pressKey(event, *meaning.key);
    // What scripts press goes to the store alone.
    const bool enters = meaning.key->code == kKeyEnter && event.spontaneous() && !event.isAutoRepeat();
    if (alive && enters && leavesEnterToWindow())
        pressDefaultButton();
    return true;
}

// The others have a use of their own for the key.
bool Binder::leavesEnterToWindow() const {
    switch (control_.kind()) {
    case Control::Kind::TextField:
        return !static_cast<TextField&>(control_).answersEnter();
    case Control::Kind::CheckBox:
    case Control::Kind::Option:
    case Control::Kind::Combo:
    case Control::Kind::FolderField:
        return true;
    default:
        return false;
    }
}

// The focus stays in the field, where a refusal wants it.
void Binder::pressDefaultButton() {
    Button* button = control_.window().defaultButton();
    if (button != nullptr && hands().whyNot(Target::whole(*button)).empty())
        pressByClick(*button);
}

void Binder::pressKey(const QKeyEvent& event, KeyEvent key, const UserHands::KeyAction& effect) {
    // The handlers of the key may destroy this binder's window.
    const QPointer<Binder> alive(this);
    hands().setAtKeyboard(event.spontaneous());
    const auto refusal = binding_.keysStay ? hands().keyDownHere(control_, key, effect)
                                           : hands().keyDown(control_, key, effect);
    if (!refusal.empty() || !alive)
        return;
    // A repeated key counts as one key, and one that was released elsewhere as pressed again.
    std::erase_if(keysDown_, [&](const KeyDown& held) { return isSameKey(held, event, key.code); });
    keysDown_.push_back({event.nativeScanCode(), key.code});
}

bool Binder::isSameKey(const KeyDown& held, const QKeyEvent& event, int code) {
    return event.nativeScanCode() != 0 ? held.scanCode == event.nativeScanCode() : held.code == code;
}

bool Binder::keyReleased(const QKeyEvent& event) {
    const KeyMeaning meaning = meaningOf(event);
    if (event.isAutoRepeat())
        return meaning.key.has_value();
    const KeyEvent up = meaning.key.value_or(KeyEvent());
    const auto down = std::find_if(keysDown_.begin(), keysDown_.end(),
                                   [&](const KeyDown& held) { return isSameKey(held, event, up.code); });
    if (down == keysDown_.end())
        return false;
    const KeyEvent key{down->code, up.shift};
    keysDown_.erase(down);
    hands().keyUp(control_, key);
    return true;
}

} // namespace zb
