#pragma once

#include "desktop/binders/binder.h"

#include <map>
#include <memory>
#include <vector>

class QAction;
class QMenu;
class QMenuBar;

namespace zb {

class MenuEntry;
class PopupMenu;
class Window;

/// All menu entries and pop-up menus of a window, made from the stores. Whoever shows the window hangs the
/// menus of its bar into a menu bar.
class MenuBinder final : public QObject {
public:
    MenuBinder(Window& window, QWidget& widget, Binding& binding);
    ~MenuBinder() override;

    /// The stores are gone.
    void abandon() { abandoned_ = true; }
    /// The menus of the bar, in their order.
    const std::vector<QAction*>& barActions() const { return bar_; }
    /// What shows an entry or a pop-up; null for other controls.
    QAction* actionOf(const Control& control) const;
    QMenu* menuOf(const Control& control) const;
    /// Opens a pop-up where the pointer is.
    void open(PopupMenu& popup);

private:
    void addPopup(PopupMenu& popup);
    void addEntry(MenuEntry& entry);
    void addMenu(MenuEntry& entry);
    void addCommand(MenuEntry& entry);
    void insert(MenuEntry& entry, QAction& action);
    void showEntry(const MenuEntry& entry);
    bool hasEntriesBelow(const MenuEntry& entry) const;

    Window& window_;
    QWidget& widget_;
    Binding& binding_;
    bool abandoned_ = false;
    std::vector<QAction*> bar_;
    std::map<const Control*, QAction*> actions_;
    std::map<const Control*, QMenu*> menus_;
};

} // namespace zb
