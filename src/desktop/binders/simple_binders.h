#pragma once

#include "desktop/binders/binder.h"

class QAbstractButton;
class QLabel;
class QMouseEvent;

namespace zb {

/// A push button, a check box or an option.
class ButtonBinder final : public Binder {
public:
    ButtonBinder(Control& control, QAbstractButton& button, Binding& binding);

private:
    void show(Change change) override;
    bool keyPressed(QKeyEvent& event) override;
    void clicked();

    QAbstractButton& button_;
};

class LabelBinder final : public Binder {
public:
    LabelBinder(Control& control, QLabel& label, Binding& binding);

private:
    void show(Change change) override;

    QLabel& label_;
};

/// A pane, a frame or a picture: any widget with or without children. A frame shows the caption.
class PaneBinder final : public Binder {
public:
    PaneBinder(Control& control, QWidget& widget, Binding& binding);

private:
    void show(Change change) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool keyPressed(QKeyEvent& event) override;
    bool mousePressed(const QMouseEvent& event);
    bool mouseMoved(const QMouseEvent& event);
    bool mouseReleased();
    bool drops(QEvent& event);

    QPoint pressedAt_;
    bool pressed_ = false; // the release is still that of a click
};

} // namespace zb
