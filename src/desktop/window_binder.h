#pragma once

#include "desktop/binders/binder.h"
#include "desktop/binders/menu_binder.h"

#include <functional>
#include <map>
#include <memory>
#include <vector>

class QKeyEvent;

namespace zb {

class Window;

/// Connects a window's stores to the widgets of a form with their names.
class WindowBinder final : public QObject {
public:
    WindowBinder(Window& window, QWidget& form, Binding& binding);
    ~WindowBinder() override;

    Window& window() const { return window_; }
    QWidget& form() const { return form_; }
    MenuBinder& menus() { return menus_; }
    /// Null for a control without a widget of its own, such as a menu entry.
    Binder* binderOf(const Control& control) const;
    /// The names of the stores without a widget in the form.
    const std::vector<std::string>& unbound() const { return unbound_; }
    /// The window and its stores no longer exist.
    void abandon();
    /// Shows at once what was deferred to the event loop.
    void flush();
    /// Gives the keyboard to the control that has the window's focus; false when there is none.
    bool followFocus() const;

    /// Visibility, caption and pointer: the desktop's part of the window. Called after the form's own
    /// changes.
    std::function<void()> onChange;

private:
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool runCommandOf(const QKeyEvent& event);
    void bindControls();
    std::unique_ptr<Binder> bind(Control& control, QWidget& widget);
    void showState();

    Window& window_;
    QWidget& form_;
    Binding& binding_;
    MenuBinder menus_;
    std::map<const Control*, std::unique_ptr<Binder>> binders_;
    std::vector<std::string> unbound_;
    bool abandoned_ = false;
};

} // namespace zb
