#include "desktop/binders/simple_binders.h"

#include "desktop/binders/dragging.h"
#include "desktop/forms/picture_box.h"
#include "desktop/pictures/pictures.h"
#include "desktop/qt_text.h"
#include "platform/stores/simple_controls.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDropEvent>
#include <QGroupBox>
#include <QLabel>
#include <QMouseEvent>

namespace zb {

ButtonBinder::ButtonBinder(Control& control, QAbstractButton& button, Binding& binding)
    : Binder(control, button, binding), button_(button) {
    // The group of stores says which options turn off; the buttons only show it.
    button_.setAutoExclusive(false);
    connect(&button_, &QAbstractButton::clicked, this, [this] { clicked(); });
    start();
}

void ButtonBinder::clicked() {
    const QPointer<Binder> alive(this);
    hands().click(Target::whole(control()));
    if (!alive)
        return;
    // The widget has turned itself over; the store may not have followed.
    const Showing showing(binding());
    show(Change::Value);
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
    label_.setText(toQt(static_cast<Label&>(control()).text()));
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
    if (event->type() == QEvent::MouseButtonPress && static_cast<Pane&>(control()).onPress) {
        hands().click(Target::whole(control()));
        return true;
    }
    if (event->type() == QEvent::MouseMove &&
        (static_cast<QMouseEvent*>(event)->buttons() & Qt::LeftButton) && control().onDragData) {
        startDrag();
        return true;
    }
    return drops(*event);
}

void PaneBinder::startDrag() {
    if (const auto data = hands().beginDrag(Target::whole(control())))
        runDrag(binding(), widget(), *data, {});
}

bool PaneBinder::drops(QEvent& event) {
    if (!control().onDropData)
        return false;
    if (event.type() == QEvent::DragEnter || event.type() == QEvent::DragMove) {
        acceptDrag(binding(), static_cast<QDropEvent&>(event));
        return true;
    }
    if (event.type() != QEvent::Drop)
        return false;
    auto& drop = static_cast<QDropEvent&>(event);
    drop.acceptProposedAction();
    hands().drop(dragDataOf(binding(), drop), Target::whole(control()));
    return true;
}

} // namespace zb
