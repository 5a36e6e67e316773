#pragma once

#include "desktop/binders/binder.h"
#include "desktop/binders/menu_binder.h"

#include <functional>
#include <map>
#include <memory>
#include <vector>

namespace zb {

class Window;

/// Ties a window's stores to the widgets of a form that bear their names.
class WindowBinder final : public QObject {
public:
    WindowBinder(Window& window, QWidget& form, Binding& binding);
    ~WindowBinder() override;

    Window& window() const { return window_; }
    QWidget& form() const { return form_; }
    MenuBinder& menus() { return menus_; }
    /// Null for a control that has no widget of its own, as menu entries have none.
    Binder* binderOf(const Control& control) const;
    /// The names of the stores that found no widget in the form.
    const std::vector<std::string>& unbound() const { return unbound_; }
    /// The window and its stores are gone.
    void abandon();
    /// Shows at once what has been put off until the event loop runs.
    void flush();

    /// Shown, hidden, caption or pointer: the desktop's part in it. Called behind the form's own changes.
    std::function<void()> onChange;

private:
    bool eventFilter(QObject* watched, QEvent* event) override;
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
