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

/// All menu entries and pop-up menus of a window, created from the stores. The owner of the window adds the
/// menus of the bar to a menu bar.
class MenuBinder final : public QObject {
public:
    MenuBinder(Window& window, QWidget& widget, Binding& binding);
    ~MenuBinder() override;

    /// The stores no longer exist.
    void abandon() { abandoned_ = true; }
    /// The menus of the bar, in order.
    const std::vector<QAction*>& barActions() const { return bar_; }
    /// The action or menu of an entry or a pop-up; null for other controls.
    QAction* actionOf(const Control& control) const;
    QMenu* menuOf(const Control& control) const;
    /// Opens a pop-up at the pointer, with the entries of its companion below its own.
    void open(PopupMenu& popup);

private:
    void addPopup(PopupMenu& popup);
    void appendEntriesOf(const PopupMenu& companion, QMenu& menu);
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
