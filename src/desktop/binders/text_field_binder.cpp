#include "desktop/binders/text_field_binder.h"

#include "controls/text_field.h"
#include "desktop/binders/dragging.h"
#include "desktop/key_codes.h"
#include "desktop/qt_text.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QDropEvent>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>

#include <limits>

namespace zb {

namespace {

std::string firstLine(const std::string& text) {
    return text.substr(0, text.find_first_of("\r\n"));
}

bool movesByWord(const QKeyEvent& event) {
    return event.matches(QKeySequence::MoveToNextWord) || event.matches(QKeySequence::MoveToPreviousWord) ||
           event.matches(QKeySequence::SelectNextWord) || event.matches(QKeySequence::SelectPreviousWord);
}

} // namespace

TextFieldBinder::TextFieldBinder(TextField& field, QLineEdit& line, Binding& binding)
    : Binder(field, line, binding), field_(field), line_(line) {
    line_.setMaxLength(std::numeric_limits<int>::max());
    connect(&line_, &QLineEdit::selectionChanged, this, [this] { takeSelection(); });
    connect(&line_, &QLineEdit::cursorPositionChanged, this, [this] { takeSelection(); });
    start();
}

void TextFieldBinder::show(Change change) {
    if (change == Change::State) {
        showReadOnly();
        return;
    }
    const QString text = toQt(field_.text());
    if (line_.text() != text)
        line_.setText(text);
    showSelection();
}

// What cannot be typed in does not look as if it could.
void TextFieldBinder::showReadOnly() {
    line_.setReadOnly(field_.readOnly());
    QPalette palette;
    if (field_.readOnly())
        palette.setColor(QPalette::Base, QGuiApplication::palette().color(QPalette::Window));
    line_.setPalette(palette);
}

void TextFieldBinder::showSelection() {
    // A field that nobody works in shows how its text begins.
    if (!line_.hasFocus()) {
        line_.setCursorPosition(0);
        return;
    }
    const int anchor = widgetPosition(field_.text(), field_.anchor());
    const int caret = widgetPosition(field_.text(), field_.caret());
    if (anchor == caret) {
        line_.deselect();
        line_.setCursorPosition(caret);
    } else {
        line_.setSelection(anchor, caret - anchor);
    }
}

void TextFieldBinder::takeSelection() {
    if (isShowing() || settling_)
        return;
    if (!line_.hasFocus())
        return;
    const int caret = line_.cursorPosition();
    int anchor = caret;
    if (line_.hasSelectedText())
        anchor = line_.selectionStart() == caret ? line_.selectionEnd() : line_.selectionStart();
    const Showing showing(binding());
    const std::size_t to = storePosition(field_.text(), caret);
    const std::size_t from = storePosition(field_.text(), anchor);
    if (to != field_.caret() || from != field_.anchor())
        field_.select(from, to);
}

bool TextFieldBinder::eventFilter(QObject* watched, QEvent* event) {
    if (watched != &line_)
        return false;
    switch (event->type()) {
    case QEvent::FocusIn:
        // By itself the widget selects its text when Tab reaches it. The store knows better.
        settling_ = true;
        QMetaObject::invokeMethod(
            this,
            [this] {
                settling_ = false;
                const Showing showing(binding());
                showSelection();
            },
            Qt::QueuedConnection);
        return Binder::eventFilter(watched, event);
    case QEvent::FocusOut: {
        const bool handled = Binder::eventFilter(watched, event);
        QMetaObject::invokeMethod(
            this,
            [this] {
                const Showing showing(binding());
                showSelection();
            },
            Qt::QueuedConnection);
        return handled;
    }
    case QEvent::MouseButtonPress:
        if (settling_) {
            settling_ = false;
            const Showing showing(binding());
            showSelection();
            // The press that brings the focus keeps what the program has selected then.
            return field_.anchor() != field_.caret();
        }
        return false;
    case QEvent::InputMethod:
        return inputMethod(static_cast<QInputMethodEvent&>(*event));
    case QEvent::ContextMenu:
        openContextMenu(static_cast<QContextMenuEvent*>(event)->globalPos());
        return true;
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::DragLeave:
    case QEvent::Drop:
        return drops(*event);
    default:
        return Binder::eventFilter(watched, event);
    }
}

bool TextFieldBinder::keyPressed(QKeyEvent& event) {
    if (editShortcut(event))
        return true;
    if (movesByWord(event))
        return false;
    if (const std::string text = meaningOf(event).text; !text.empty()) {
        hands().insert(field_, text);
        return true;
    }
    if (Binder::keyPressed(event))
        return true;
    // What is left must not reach the widget: it would enter the character past the store.
    event.ignore();
    return true;
}

bool TextFieldBinder::editShortcut(QKeyEvent& event) {
    if (event.matches(QKeySequence::Copy))
        copy();
    else if (event.matches(QKeySequence::Cut))
        cut();
    else if (event.matches(QKeySequence::Paste))
        paste();
    else if (event.matches(QKeySequence::SelectAll))
        field_.selectAll();
    else
        return false;
    return true;
}

bool TextFieldBinder::inputMethod(QInputMethodEvent& event) {
    if (event.commitString().isEmpty())
        return false;
    hands().insert(field_, firstLine(fromQt(event.commitString())));
    // The text has been taken; the widget still shows what is being composed.
    QInputMethodEvent composing(event.preeditString(), event.attributes());
    QCoreApplication::sendEvent(&line_, &composing);
    return true;
}

bool TextFieldBinder::drops(QEvent& event) {
    if (!field_.onDropData) {
        event.ignore();
        return true;
    }
    if (!followDrag(binding(), line_, event) || event.type() != QEvent::Drop)
        return true;
    hands().drop(dragDataOf(binding(), static_cast<QDropEvent&>(event)), Target::whole(field_));
    return true;
}

void TextFieldBinder::copy() const {
    const std::string text = field_.selectedText();
    if (!text.empty())
        QGuiApplication::clipboard()->setText(toQt(text));
}

void TextFieldBinder::cut() {
    copy();
    if (field_.anchor() != field_.caret())
        hands().insert(field_, "");
}

void TextFieldBinder::paste() {
    // A field that is only filled by drops takes from the keyboard what a drag would bring.
    if (field_.onDropData && field_.readOnly()) {
        if (const auto taken = takenUp(binding()))
            hands().drop(*taken, Target::whole(field_));
        return;
    }
    hands().insert(field_, firstLine(fromQt(QGuiApplication::clipboard()->text())));
}

void TextFieldBinder::openContextMenu(const QPoint& place) {
    hands().focus(field_);
    QMenu menu(&line_);
    const bool selected = field_.anchor() != field_.caret();
    const bool changes = !field_.locked() && !field_.readOnly();
    const bool fills = changes || (field_.readOnly() && field_.onDropData);
    menu.addAction(tr("Cu&t"), this, [this] { cut(); })->setEnabled(selected && changes);
    menu.addAction(tr("&Copy"), this, [this] { copy(); })->setEnabled(selected);
    menu.addAction(tr("&Paste"), this, [this] { paste(); })->setEnabled(fills);
    menu.addSeparator();
    menu.addAction(tr("Select &All"), this, [this] { field_.selectAll(); })
        ->setEnabled(!field_.text().empty());
    menu.exec(place);
}

TextViewBinder::TextViewBinder(TextField& field, QPlainTextEdit& view, Binding& binding)
    : Binder(field, view, binding), field_(field), view_(view) {
    view_.setReadOnly(true);
    start();
}

void TextViewBinder::show(Change change) {
    if (change != Change::State && change != Change::Selection)
        view_.setPlainText(toQt(field_.text()));
}

bool TextViewBinder::keyPressed(QKeyEvent& event) {
    return event.key() == Qt::Key_Escape && Binder::keyPressed(event);
}

} // namespace zb
