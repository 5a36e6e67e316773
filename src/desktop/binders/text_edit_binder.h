#pragma once

#include "desktop/binders/binder.h"

class QPlainTextEdit;
class QPoint;

namespace zb {

class TextField;

/// A field of several lines. The widget knows how lines, words and pages are edited; the store takes each
/// change over, has what can be undone, and shows its own text again where it takes none.
class TextEditBinder final : public Binder {
public:
    TextEditBinder(TextField& field, QPlainTextEdit& edit, Binding& binding);

private:
    void show(Change change) override;
    bool keyPressed(QKeyEvent& event) override;
    UserHands::KeyAction effectOf(const QKeyEvent& event);
    bool showsText() const;
    void takeText();
    void takeSelection();
    void showSelection();
    void openContextMenu(const QPoint& place);

    TextField& field_;
    QPlainTextEdit& edit_;
    bool taking_ = false; // the store takes what the widget shows
    bool inKey_ = false;  // the widget handles a key that the store knows of
};

} // namespace zb
