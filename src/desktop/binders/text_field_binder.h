#pragma once

#include "desktop/binders/binder.h"

class QInputMethodEvent;
class QLineEdit;
class QPlainTextEdit;

namespace zb {

class TextField;

/// A field of one line. The store holds text, caret and selection; keys run the store's own path, so that a
/// locked field takes no character but keeps caret, selection and copy. The mouse places the caret in the
/// widget, and the store follows.
class TextFieldBinder final : public Binder {
public:
    TextFieldBinder(TextField& field, QLineEdit& line, Binding& binding);

private:
    void show(Change change) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool keyPressed(QKeyEvent& event) override;
    bool editShortcut(QKeyEvent& event);
    bool inputMethod(QInputMethodEvent& event);
    bool drops(QEvent& event);

    void takeSelection();
    void showSelection();
    void showReadOnly();
    void copy() const;
    void cut();
    void paste();
    void openContextMenu(const QPoint& place);

    TextField& field_;
    QLineEdit& line_;
    bool settling_ = false; // the widget still does what it does by itself when it gets the focus
};

/// A field of many lines, for texts that are looked at and copied.
class TextViewBinder final : public Binder {
public:
    TextViewBinder(TextField& field, QPlainTextEdit& view, Binding& binding);

private:
    void show(Change change) override;
    bool keyPressed(QKeyEvent& event) override;

    TextField& field_;
    QPlainTextEdit& view_;
};

} // namespace zb
