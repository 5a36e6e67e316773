#pragma once

#include "desktop/binders/binder.h"

class QAction;
class QDropEvent;
class QInputMethodEvent;
class QLineEdit;
class QMouseEvent;

namespace zb {

class TextField;

/// A field of one line. The store holds text, caret, selection and what can be undone. Every key takes the
/// store's own path, those that paste, cut or undo too, so that a locked field takes nothing but keeps caret,
/// selection and copy. The mouse places the caret in the widget, and the store follows.
class TextFieldBinder final : public Binder {
public:
    TextFieldBinder(TextField& field, QLineEdit& line, Binding& binding);

private:
    void show(Change change) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool keyPressed(QKeyEvent& event) override;
    UserHands::KeyAction effectOf(const QKeyEvent& event);
    UserHands::KeyAction moveByWord(const QKeyEvent& event);
    bool inputMethod(QInputMethodEvent& event);
    void enter(const std::string& text);
    bool mousePressed();
    bool mouseReleased(const QMouseEvent& event);
    bool drops(QEvent& event);

    void settleSoon();
    void takeText();
    void takeSelection();
    void showSelection();
    void showReadOnly();
    QAction& makeAction(const char* name, const QString& text, void (TextFieldBinder::*run)());
    void undo();
    void redo();
    void copy();
    void cut();
    void paste();
    std::string pasted(const QString& text);
    void selectAll();
    void deleteWord(bool toStart);
    void openContextMenu(const QPoint& place);
    void openOwnMenu(const QPoint& place);

    TextField& field_;
    QLineEdit& line_;
    QAction& undo_; // all of the context menu
    QAction& redo_;
    QAction& cut_;
    QAction& copy_;
    QAction& paste_;
    QAction& selectAll_;
    bool settling_ = false;   // the widget still handles the focus in its own way
    bool forwarding_ = false; // the widget shows what an input method composes
};

} // namespace zb
