#pragma once

#include "controls/control.h"

#include <string>

namespace zb {

/// A pop-up menu; its entries refer to it as their menu.
class PopupMenu : public Control {
public:
    PopupMenu(Window& window, std::string name) : Control(Kind::PopupMenu, window, std::move(name)) {}
    ~PopupMenu() override;

    /// Opens at the pointer. It closes after the command of an entry, or before the next action elsewhere.
    void open();
    /// A companion is open while its host is.
    bool isOpen() const;

    /// Another pop-up, usually of another window, whose entries the screen shows below those of this menu,
    /// after a separator. It opens and closes with this menu, and a click on its entries leaves the active
    /// window and its focus as they are. A menu has one companion, and a companion one host.
    /// @{
    void setCompanion(PopupMenu& companion);
    PopupMenu* companion() const { return companion_; }
    PopupMenu* host() const { return host_; }
    /// @}

    /// It is about to open: the time to decide which entries can be used.
    std::function<void()> onOpen;

    /// It closed, with or without a choice.
    std::function<void()> onClosed;

private:
    PopupMenu* companion_ = nullptr;
    PopupMenu* host_ = nullptr;
};

/// An entry of the menu bar, of a sub menu or of a pop-up. An entry that others refer to as their menu opens
/// them.
class MenuEntry : public Control {
public:
    /// `menu` is the entry or pop-up above; null for the menu bar itself.
    MenuEntry(Window& window, std::string name, std::string caption, Control* menu = nullptr)
        : Control(Kind::MenuEntry, window, std::move(name)), menu_(menu) {
        setCaption(std::move(caption));
    }

    Control* menu() const { return menu_; }
    /// The pop-up that contains the entry, at any depth; null for entries of the menu bar.
    PopupMenu* popup() const;
    bool checked() const { return checked_; }
    void setChecked(bool checked);
    /// A separator above the entry, and its shortcut ("Ctrl+S"); both are only for the screen. A pop-up only
    /// shows the shortcut.
    bool separatorAbove() const { return separatorAbove_; }
    MenuEntry& withSeparatorAbove() {
        separatorAbove_ = true;
        return *this;
    }
    const std::string& shortcut() const { return shortcut_; }
    void setShortcut(std::string shortcut) { shortcut_ = std::move(shortcut); }

    std::function<void()> onClick;
    /// The menu below this entry opens.
    std::function<void()> onOpen;

private:
    Control* menu_;
    bool checked_ = false;
    bool separatorAbove_ = false;
    std::string shortcut_;
};

} // namespace zb
