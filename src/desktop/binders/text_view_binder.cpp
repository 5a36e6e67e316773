#include "desktop/binders/text_view_binder.h"

#include "controls/text_field.h"
#include "desktop/qt_text.h"

#include <QKeyEvent>
#include <QPlainTextEdit>

namespace zb {

namespace {

/// The widget has one character for the end of a line.
QString shownText(const TextField& field) {
    return toQt(field.text()).replace(QLatin1String("\r\n"), QLatin1String("\n"));
}

} // namespace

TextViewBinder::TextViewBinder(TextField& field, QPlainTextEdit& view, Binding& binding)
    : Binder(field, view, binding), field_(field), view_(view) {
    view_.setTabChangesFocus(true);
    connect(&view_, &QPlainTextEdit::textChanged, this, &TextViewBinder::takeText);
    start();
}

void TextViewBinder::show(Change change) {
    if (change == Change::State)
        view_.setReadOnly(field_.readOnly());
    else if (change != Change::Selection && view_.toPlainText() != shownText(field_))
        view_.setPlainText(shownText(field_));
}

void TextViewBinder::takeText() {
    if (isShowing() || view_.toPlainText() == shownText(field_))
        return;
    hands().paste(field_, fromQt(view_.toPlainText()));
    const Showing showing(binding());
    show(Change::Value);
}

bool TextViewBinder::keyPressed(QKeyEvent& event) {
    return event.key() == Qt::Key_Escape && Binder::keyPressed(event);
}

} // namespace zb
