#include "desktop/binders/text_edit_binder.h"

#include "controls/desktop.h"
#include "controls/text_field.h"
#include "desktop/forms/lines_edit.h"
#include "desktop/key_codes.h"
#include "desktop/pasted_text.h"
#include "desktop/qt_text.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPointer>
#include <QScopedValueRollback>

#include <algorithm>
#include <memory>

namespace zb {

namespace {

struct Part {
    qsizetype start = 0;
    qsizetype removed = 0;
    QString added;
};

bool isInCharacter(const QString& text, qsizetype at) {
    return at > 0 && at < text.size() && text[at].isLowSurrogate();
}

/// The part in which two texts differ.
Part changedPart(const QString& before, const QString& after) {
    const qsizetype shorter = std::min(before.size(), after.size());
    qsizetype start = 0;
    while (start < shorter && before[start] == after[start])
        ++start;
    if (isInCharacter(before, start) || isInCharacter(after, start))
        --start;
    qsizetype equal = 0; // at the end
    while (equal < shorter - start && before[before.size() - 1 - equal] == after[after.size() - 1 - equal])
        ++equal;
    if (isInCharacter(before, before.size() - equal) || isInCharacter(after, after.size() - equal))
        --equal;
    return {start, before.size() - equal - start, after.mid(start, after.size() - equal - start)};
}

} // namespace

TextEditBinder::TextEditBinder(TextField& field, QPlainTextEdit& edit, Binding& binding)
    : Binder(field, edit, binding), field_(field), edit_(edit) {
    edit_.setUndoRedoEnabled(false); // the store has its own
    edit_.setTabChangesFocus(true);
    edit_.setContextMenuPolicy(Qt::CustomContextMenu);
    if (auto* lines = dynamic_cast<LinesEdit*>(&edit_); lines != nullptr)
        lines->takes = [&desktop = this->binding().desktop](qsizetype characters) {
            return takesPasted(characters, desktop);
        };
    connect(&edit_, &QPlainTextEdit::customContextMenuRequested, this, &TextEditBinder::openContextMenu);
    connect(&edit_, &QPlainTextEdit::textChanged, this, &TextEditBinder::takeText);
    connect(&edit_, &QPlainTextEdit::cursorPositionChanged, this, &TextEditBinder::takeSelection);
    connect(&edit_, &QPlainTextEdit::selectionChanged, this, &TextEditBinder::takeSelection);
    start();
}

bool TextEditBinder::showsText() const {
    return edit_.toPlainText() == toQt(field_.text());
}

void TextEditBinder::show(Change change) {
    if (change == Change::State)
        edit_.setReadOnly(field_.readOnly() || field_.locked());
    if (taking_)
        return;
    if (change == Change::Value && !showsText())
        edit_.setPlainText(toQt(field_.text()));
    if (change == Change::Value || change == Change::Selection)
        showSelection();
}

void TextEditBinder::showSelection() {
    QTextCursor cursor = edit_.textCursor();
    const int anchor = widgetPosition(field_.text(), field_.anchor());
    const int caret = widgetPosition(field_.text(), field_.caret());
    if (cursor.anchor() == anchor && cursor.position() == caret)
        return;
    cursor.setPosition(anchor);
    cursor.setPosition(caret, QTextCursor::KeepAnchor);
    edit_.setTextCursor(cursor);
}

// Where the user has changed the text: one change of the store.
void TextEditBinder::takeText() {
    if (isShowing() || showsText())
        return;
    const Part part = changedPart(toQt(field_.text()), edit_.toPlainText());
    taking_ = true;
    field_.select(storePosition(field_.text(), static_cast<int>(part.start)),
                  storePosition(field_.text(), static_cast<int>(part.start + part.removed)));
    const std::string added = fromQt(part.added);
    if (inKey_)
        field_.insert(added);
    else
        hands().insert(field_, added);
    // The caret of the widget counts: an added character may be the same as the one next to it.
    takeSelection();
    taking_ = false;
    const Showing showing(binding());
    show(Change::Value);
}

void TextEditBinder::takeSelection() {
    // The change of a text comes with its selection.
    if (isShowing() || !showsText())
        return;
    const QTextCursor cursor = edit_.textCursor();
    field_.select(storePosition(field_.text(), cursor.anchor()),
                  storePosition(field_.text(), cursor.position()));
}

bool TextEditBinder::keyPressed(QKeyEvent& event) {
    const KeyMeaning meaning = meaningOf(event);
    const bool isForButton = meaning.key && (meaning.key->shift & kAltKey) != 0;
    // What scripts press goes to the store alone.
    if (inKey_ || !event.spontaneous() || isForButton || event.key() == Qt::Key_Escape)
        return !inKey_ && Binder::keyPressed(event);
    if (!meaning.text.empty())
        hands().enterText(field_, meaning.text);
    else
        pressKey(event, meaning.key.value_or(KeyEvent{kKeyForeignText, 0}), effectOf(event));
    return true;
}

UserHands::KeyAction TextEditBinder::effectOf(const QKeyEvent& event) {
    if (event.matches(QKeySequence::Undo))
        return [this] { hands().undo(field_); };
    if (event.matches(QKeySequence::Redo))
        return [this] { hands().redo(field_); };
    const std::shared_ptr<QKeyEvent> key(event.clone());
    return [this, key] {
        const QScopedValueRollback inKey(inKey_, true);
        QCoreApplication::sendEvent(&edit_, key.get());
    };
}

void TextEditBinder::openContextMenu(const QPoint& place) {
    hands().focus(field_);
    const bool changes = !field_.locked() && !field_.readOnly();
    const bool selected = field_.anchor() != field_.caret();
    QMenu menu(&edit_);
    menu.addAction(tr("&Undo"), this, [this] { hands().undo(field_); })
        ->setEnabled(changes && hands().canUndo(field_));
    menu.addAction(tr("&Redo"), this, [this] { hands().redo(field_); })
        ->setEnabled(changes && hands().canRedo(field_));
    menu.addSeparator();
    menu.addAction(tr("Cu&t"), &edit_, &QPlainTextEdit::cut)->setEnabled(changes && selected);
    menu.addAction(tr("&Copy"), &edit_, &QPlainTextEdit::copy)->setEnabled(selected);
    menu.addAction(tr("&Paste"), &edit_, &QPlainTextEdit::paste)->setEnabled(changes);
    menu.addSeparator();
    menu.addAction(tr("Select &All"), &edit_, &QPlainTextEdit::selectAll)->setEnabled(!field_.text().empty());
    menu.exec(edit_.viewport()->mapToGlobal(place));
}

} // namespace zb
