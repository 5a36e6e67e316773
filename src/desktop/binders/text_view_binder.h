#pragma once

#include "desktop/binders/binder.h"

class QPlainTextEdit;

namespace zb {

class TextField;

/// A field of several lines. Its widget edits the text by itself, and each change of it is a paste of the
/// whole text into the store.
class TextViewBinder final : public Binder {
public:
    TextViewBinder(TextField& field, QPlainTextEdit& view, Binding& binding);

private:
    void show(Change change) override;
    bool keyPressed(QKeyEvent& event) override;
    void takeText();

    TextField& field_;
    QPlainTextEdit& view_;
};

} // namespace zb
