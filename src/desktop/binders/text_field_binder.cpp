#include "desktop/binders/text_field_binder.h"

#include "controls/text_field.h"
#include "desktop/binders/dragging.h"
#include "desktop/key_codes.h"
#include "desktop/pasted_text.h"
#include "desktop/qt_text.h"

#include <QAction>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QDropEvent>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QMouseEvent>
#include <QScopedValueRollback>

#include <limits>
#include <vector>

namespace zb {

namespace {

/// The keys of a US keyboard that enter the text one by one; empty when it holds another character.
std::vector<KeyEvent> keysOf(const std::string& text) {
    std::vector<KeyEvent> keys;
    for (const char character : text) {
        const auto key = keyOfCharacter(character);
        if (!key)
            return {};
        keys.push_back(*key);
    }
    return keys;
}

} // namespace

TextFieldBinder::TextFieldBinder(TextField& field, QLineEdit& line, Binding& binding)
    : Binder(field, line, binding), field_(field), line_(line),
      undo_(makeAction("editUndo", tr("&Undo"), &TextFieldBinder::undo)),
      redo_(makeAction("editRedo", tr("&Redo"), &TextFieldBinder::redo)),
      cut_(makeAction("editCut", tr("Cu&t"), &TextFieldBinder::cut)),
      copy_(makeAction("editCopy", tr("&Copy"), &TextFieldBinder::copy)),
      paste_(makeAction("editPaste", tr("&Paste"), &TextFieldBinder::paste)),
      selectAll_(makeAction("editSelectAll", tr("Select &All"), &TextFieldBinder::selectAll)) {
    line_.setMaxLength(std::numeric_limits<int>::max());
    connect(&line_, &QLineEdit::textChanged, this, [this] { takeText(); });
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

// A field that cannot be edited does not look editable.
void TextFieldBinder::showReadOnly() {
    line_.setReadOnly(field_.readOnly());
    QPalette palette;
    if (field_.readOnly())
        palette.setColor(QPalette::Base, QGuiApplication::palette().color(QPalette::Window));
    line_.setPalette(palette);
}

void TextFieldBinder::showSelection() {
    // A field without focus shows the start of its text.
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

// A change by the widget itself, for example by its clear button, is a paste.
void TextFieldBinder::takeText() {
    if (isShowing() || line_.text() == toQt(field_.text()))
        return;
    hands().paste(field_, fromQt(line_.text()));
    const Showing showing(binding());
    show(Change::Value);
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
        // The widget would select its text when Tab reaches it. The store decides instead.
        settling_ = true;
        settleSoon();
        return Binder::eventFilter(watched, event);
    case QEvent::FocusOut: {
        const bool handled = Binder::eventFilter(watched, event);
        settleSoon();
        return handled;
    }
    case QEvent::ShortcutOverride: {
        // The search key is a key of the field before it searches.
        const bool searches = static_cast<QKeyEvent*>(event)->key() == Qt::Key_F3;
        if (searches)
            event->accept();
        return searches;
    }
    case QEvent::MouseButtonPress:
        return mousePressed();
    case QEvent::MouseButtonRelease:
        return mouseReleased(static_cast<QMouseEvent&>(*event));
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

void TextFieldBinder::settleSoon() {
    QMetaObject::invokeMethod(
        this,
        [this] {
            settling_ = false;
            const Showing showing(binding());
            showSelection();
        },
        Qt::QueuedConnection);
}

bool TextFieldBinder::mousePressed() {
    if (!settling_)
        return false;
    settling_ = false;
    const Showing showing(binding());
    showSelection();
    // The press that moves the focus keeps the selection of the program.
    return field_.anchor() != field_.caret();
}

// The middle button pastes what is selected elsewhere, where the platform has such a selection.
bool TextFieldBinder::mouseReleased(const QMouseEvent& event) {
    const QClipboard* clipboard = QGuiApplication::clipboard();
    if (event.button() != Qt::MiddleButton)
        return false;
    if (clipboard->supportsSelection()) {
        const int place = line_.cursorPositionAt(event.position().toPoint());
        hands().insertAt(field_, storePosition(field_.text(), place),
                         pasted(clipboard->text(QClipboard::Selection)));
    }
    return true;
}

bool TextFieldBinder::keyPressed(QKeyEvent& event) {
    const KeyMeaning meaning = meaningOf(event);
    if (!meaning.text.empty()) {
        hands().enterText(field_, meaning.text);
        return true;
    }
    if (const auto effect = effectOf(event)) {
        pressKey(event, meaning.key.value_or(KeyEvent{kKeyForeignText, 0}), effect);
        return true;
    }
    if (Binder::keyPressed(event))
        return true;
    // The rest must not reach the widget, which would enter the character without the store.
    event.ignore();
    return true;
}

UserHands::KeyAction TextFieldBinder::effectOf(const QKeyEvent& event) {
    if (event.matches(QKeySequence::Copy))
        return [this] { copy(); };
    // Without a selection the Delete key deletes the next character, Shift or not.
    if (event.matches(QKeySequence::Cut) &&
        (event.key() != Qt::Key_Delete || field_.anchor() != field_.caret()))
        return [this] { cut(); };
    if (event.matches(QKeySequence::Paste))
        return [this] { paste(); };
    if (event.matches(QKeySequence::SelectAll))
        return [this] { selectAll(); };
    if (event.matches(QKeySequence::Undo))
        return [this] { undo(); };
    if (event.matches(QKeySequence::Redo))
        return [this] { redo(); };
    // What scripts press goes to the store alone.
    if (event.key() == Qt::Key_F3 && event.spontaneous() && binding().searchAgain)
        return binding().searchAgain;
    return moveByWord(event);
}

// Where words end, the widget knows; the store follows its caret.
UserHands::KeyAction TextFieldBinder::moveByWord(const QKeyEvent& event) {
    const bool selects =
        event.matches(QKeySequence::SelectNextWord) || event.matches(QKeySequence::SelectPreviousWord);
    if (selects || event.matches(QKeySequence::MoveToNextWord) ||
        event.matches(QKeySequence::MoveToPreviousWord)) {
        const bool back = event.key() == Qt::Key_Left;
        return [this, back, selects] {
            back ? line_.cursorWordBackward(selects) : line_.cursorWordForward(selects);
        };
    }
    const bool toStart = event.matches(QKeySequence::DeleteStartOfWord);
    if (!toStart && !event.matches(QKeySequence::DeleteEndOfWord))
        return {};
    return [this, toStart] { deleteWord(toStart); };
}

void TextFieldBinder::deleteWord(bool toStart) {
    if (field_.locked() || field_.readOnly())
        return;
    if (field_.anchor() == field_.caret())
        toStart ? line_.cursorWordBackward(true) : line_.cursorWordForward(true);
    hands().insert(field_, "");
}

// An input method enters its text by keys that no keyboard has. What it still composes shows in the widget
// alone, unless the field takes no text now.
bool TextFieldBinder::inputMethod(QInputMethodEvent& event) {
    const bool composes = !event.preeditString().isEmpty();
    if (forwarding_ || (!composes && event.commitString().isEmpty()))
        return false;
    const QPointer<Binder> alive(this);
    enter(fromQt(event.commitString()));
    if (!alive)
        return true;
    const bool shows = !field_.locked() && !field_.readOnly();
    QInputMethodEvent composing(shows ? event.preeditString() : QString(),
                                shows ? event.attributes() : QList<QInputMethodEvent::Attribute>());
    const QScopedValueRollback forwarding(forwarding_, true);
    QCoreApplication::sendEvent(&line_, &composing);
    return true;
}

void TextFieldBinder::enter(const std::string& text) {
    const std::vector<KeyEvent> keys = keysOf(text);
    if (keys.empty()) {
        hands().enterText(field_, text);
        return;
    }
    for (const KeyEvent key : keys) {
        if (!hands().keyDown(field_, key).empty())
            return;
        hands().keyUp(field_, key);
    }
}

bool TextFieldBinder::drops(QEvent& event) {
    if (!field_.onDropData && field_.readOnly()) {
        event.ignore();
        return true;
    }
    if (!followDrag(binding(), line_, event) || event.type() != QEvent::Drop)
        return true;
    auto& drop = static_cast<QDropEvent&>(event);
    const DragData data = dragDataOf(binding(), drop);
    if (field_.onDropData) {
        hands().drop(data, Target::whole(field_));
    } else if (data.form == DragData::Form::Text) {
        const int place = line_.cursorPositionAt(drop.position().toPoint());
        hands().insertAt(field_, storePosition(field_.text(), place), pasted(toQt(data.text)));
    }
    return true;
}

void TextFieldBinder::undo() {
    hands().undo(field_);
}

void TextFieldBinder::redo() {
    hands().redo(field_);
}

void TextFieldBinder::selectAll() {
    field_.selectAll();
}

void TextFieldBinder::copy() {
    const std::string text = field_.selectedText();
    if (!text.empty())
        QGuiApplication::clipboard()->setText(toQt(text));
}

void TextFieldBinder::cut() {
    if (field_.locked() || field_.readOnly() || field_.anchor() == field_.caret())
        return;
    copy();
    hands().insert(field_, "");
}

std::string TextFieldBinder::pasted(const QString& text) {
    return pastedLine(text, binding().desktop).value_or(std::string());
}

void TextFieldBinder::paste() {
    // A field that is only filled by drops accepts the keyboard's drag.
    if (field_.onDropData && field_.readOnly()) {
        if (const auto taken = takenUp(binding()))
            hands().drop(*taken, Target::whole(field_));
        return;
    }
    // An empty text deletes the selection. A clipboard whose owner does not answer offers no text at all.
    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    if (data == nullptr || !data->hasText())
        return;
    if (const auto text = pastedLine(data->text(), binding().desktop))
        hands().insert(field_, *text);
}

QAction& TextFieldBinder::makeAction(const char* name, const QString& text, void (TextFieldBinder::*run)()) {
    auto* action = new QAction(text, &line_); // the line owns it
    action->setObjectName(QLatin1String(name));
    connect(action, &QAction::triggered, this, run);
    return *action;
}

// What the menu does is done by the mouse: no key event.
void TextFieldBinder::openContextMenu(const QPoint& place) {
    hands().focus(field_);
    const bool selected = field_.anchor() != field_.caret();
    const bool changes = !field_.locked() && !field_.readOnly();
    undo_.setEnabled(changes && hands().canUndo(field_));
    redo_.setEnabled(changes && hands().canRedo(field_));
    cut_.setEnabled(selected && changes);
    copy_.setEnabled(selected);
    paste_.setEnabled(changes || (field_.readOnly() && field_.onDropData));
    selectAll_.setEnabled(!field_.text().empty());
    if (field_.contextMenu() != nullptr) {
        openOwnMenu(place);
        return;
    }
    QMenu menu(&line_);
    menu.addActions({&undo_, &redo_});
    menu.addSeparator();
    menu.addActions({&cut_, &copy_, &paste_});
    menu.addSeparator();
    menu.addAction(&selectAll_);
    menu.exec(place);
}

// The commands of the program come first, and those of every field below them.
void TextFieldBinder::openOwnMenu(const QPoint& place) {
    QMenu* menu = binding().popups[field_.contextMenu()];
    if (menu != nullptr && !menu->actions().contains(&copy_)) {
        menu->addSeparator();
        menu->addActions({&copy_, &paste_, &selectAll_});
    }
    binding().popupPlace = place;
    hands().rightClick(Target::whole(field_));
    binding().popupPlace.reset();
}

} // namespace zb
