#pragma once

#include "desktop/binders/binder.h"

class QMenu;
class QPlainTextEdit;
class QPoint;

namespace zb {

class TextField;

/// A text of several lines that cannot be changed, such as the output of a generator.
class TextViewBinder final : public Binder {
public:
    TextViewBinder(TextField& field, QPlainTextEdit& view, Binding& binding);

private:
    void show(Change change) override;
    bool keyPressed(QKeyEvent& event) override;
    void openContextMenu(const QPoint& place);
    void addViewCommands(QMenu& menu);

    TextField& field_;
    QPlainTextEdit& view_;
};

} // namespace zb
