#include "desktop/binders/simple_binders.h"

#include "controls/simple_controls.h"
#include "controls/window.h"
#include "desktop/binders/dragging.h"
#include "desktop/forms/picture_box.h"
#include "desktop/pictures/pictures.h"
#include "desktop/qt_text.h"
#include "desktop/shown_text.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDropEvent>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

namespace zb {

ButtonBinder::ButtonBinder(Control& control, QAbstractButton& button, Binding& binding)
    : Binder(control, button, binding), button_(button) {
    // The group of stores decides which options turn off; the buttons only show it.
    button_.setAutoExclusive(false);
    if (auto* push = qobject_cast<QPushButton*>(&button_))
        push->setDefault(control.window().defaultButton() == &control);
    connect(&button_, &QAbstractButton::clicked, this, [this] { clicked(); });
    start();
}

void ButtonBinder::clicked() {
    const QPointer<Binder> alive(this);
    hands().click(Target::whole(control()));
    if (!alive)
        return;
    // The widget has toggled itself; the store may not have followed.
    const Showing showing(binding());
    show(Change::Value);
}

// Arrow keys move through the options of a group, as on every desktop.
bool ButtonBinder::keyPressed(QKeyEvent& event) {
    const bool back = event.key() == Qt::Key_Up || event.key() == Qt::Key_Left;
    const bool on = event.key() == Qt::Key_Down || event.key() == Qt::Key_Right;
    if (control().kind() != Control::Kind::Option || !event.spontaneous() || (!back && !on))
        return Binder::keyPressed(event);
    std::vector<Option*> usable;
    for (Option* option : static_cast<Option&>(control()).group().options()) {
        if (option->usable() || option == &control())
            usable.push_back(option);
    }
    const auto here = std::find(usable.begin(), usable.end(), &control()) - usable.begin();
    const auto count = static_cast<std::ptrdiff_t>(usable.size());
    hands().click(Target::whole(*usable[static_cast<std::size_t>((here + (on ? 1 : count - 1)) % count)]));
    return true;
}

void ButtonBinder::show(Change /*change*/) {
    button_.setText(toQt(control().caption()));
    if (control().kind() == Control::Kind::CheckBox)
        button_.setChecked(static_cast<CheckBox&>(control()).checked());
    else if (control().kind() == Control::Kind::Option)
        button_.setChecked(static_cast<Option&>(control()).on());
}

LabelBinder::LabelBinder(Control& control, QLabel& label, Binding& binding)
    : Binder(control, label, binding), label_(label) {
    label_.setTextFormat(Qt::PlainText);
    start();
}

void LabelBinder::show(Change /*change*/) {
    label_.setText(shownLines(static_cast<Label&>(control()).text()));
}

PaneBinder::PaneBinder(Control& control, QWidget& widget, Binding& binding)
    : Binder(control, widget, binding) {
    widget.setAcceptDrops(static_cast<bool>(control.onDropData));
    start();
}

void PaneBinder::show(Change /*change*/) {
    if (auto* frame = qobject_cast<QGroupBox*>(&widget()))
        frame->setTitle(toQt(control().caption()));
    else if (auto* picture = dynamic_cast<PictureBox*>(&widget()))
        picture->setPicture(binding().pictures.icon(fromQt(picture->property("picture").toString())),
                            toQt(control().caption()));
    else
        widget().setAccessibleName(toQt(control().caption()));
}

bool PaneBinder::eventFilter(QObject* watched, QEvent* event) {
    if (watched != &widget())
        return false;
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        return mousePressed(static_cast<QMouseEvent&>(*event));
    case QEvent::MouseMove:
        return mouseMoved(static_cast<QMouseEvent&>(*event));
    case QEvent::MouseButtonRelease:
        return mouseReleased();
    case QEvent::KeyPress:
        return keyPressed(static_cast<QKeyEvent&>(*event));
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::DragLeave:
    case QEvent::Drop:
        return drops(*event);
    default:
        return false;
    }
}

bool PaneBinder::mousePressed(const QMouseEvent& event) {
    pressedAt_ = event.position().toPoint();
    const auto& pane = static_cast<Pane&>(control());
    const bool takesPress = pane.onPress || pane.onClick || control().onDragData;
    const QPointer<Binder> alive(this);
    const bool pressed =
        takesPress && hands().mouseDown(Target::whole(control()), UserHands::MouseButton::Left).empty();
    if (alive)
        pressed_ = pressed && event.button() == Qt::LeftButton;
    return takesPress;
}

bool PaneBinder::mouseReleased() {
    if (!std::exchange(pressed_, false))
        return false;
    hands().mouseUp(Target::whole(control()), UserHands::MouseButton::Left);
    return true;
}

bool PaneBinder::mouseMoved(const QMouseEvent& event) {
    const bool far =
        (event.position().toPoint() - pressedAt_).manhattanLength() >= QApplication::startDragDistance();
    if (!event.buttons().testFlag(Qt::LeftButton) || !control().onDragData || !far)
        return false;
    const auto data = hands().beginDrag(Target::whole(control()));
    pressed_ = pressed_ && !data;
    if (data)
        runDrag(binding(), widget(), *data, widget().grab());
    return true;
}

// A picture is taken by the copy keys; the keys that press a button click on it.
bool PaneBinder::keyPressed(QKeyEvent& event) {
    const Target whole = Target::whole(control());
    const bool presses =
        event.key() == Qt::Key_Space || event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
    if (presses && static_cast<Pane&>(control()).onClick)
        return hands().click(whole).empty();
    if (!event.matches(QKeySequence::Copy) || !control().onDragData ||
        !hands().mouseDown(whole, UserHands::MouseButton::Left).empty())
        return false;
    takeUp(binding(), hands().beginDrag(whole));
    return true;
}

bool PaneBinder::drops(QEvent& event) {
    if (!control().onDropData)
        return false;
    if (followDrag(binding(), widget(), event) && event.type() == QEvent::Drop)
        hands().drop(dragDataOf(binding(), static_cast<QDropEvent&>(event)), Target::whole(control()));
    return true;
}

} // namespace zb
