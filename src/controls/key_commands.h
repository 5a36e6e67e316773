#pragma once

#include "controls/key.h"

#include <functional>
#include <string>
#include <vector>

namespace zb {

class Control;
class Window;

/// Where a key runs its command.
struct KeyPlace {
    const Window* window = nullptr;            ///< null: in every window, while no dialog is modal
    std::vector<const Control*> controls = {}; ///< one of them has the focus; empty: whatever has it
};

/// A command that a key runs beside the menus.
struct KeyCommand {
    KeyEvent key;
    KeyPlace place;
    std::string where;   ///< for the user: "the tree", "the item pane"
    std::string purpose; ///< for the user: what the key does, without a full stop
    /// False when there is nothing to do now; the key then does what it does without the command.
    std::function<bool()> run;
    /// The key has a meaning of its own for scripts, such as Enter in a field, which only locks or unlocks
    /// it: the command is for a keyboard alone.
    bool forKeyboard = false;
    /// Whether the command comes before an entry of the menu bar that has the same key; empty for never. Only
    /// lists and trees ask.
    std::function<bool()> beforeMenu = {};
};

/// The keys of commands that are in no menu bar, such as Ins in the message tree. A control hears of the key
/// first (its key filter locks and unlocks), then the command runs in place of the effect that the key has
/// on the control, and the key up goes nowhere. Enabled entries of the menu bar with the same shortcut
/// come first, unless the command says otherwise, and so do the keys of undo.
class KeyCommands {
public:
    void add(KeyCommand command) { commands_.push_back(std::move(command)); }

    /// The command of a key while `focused` has the focus in the window; null `focused` for no control of the
    /// program. Commands for a control come before those for a window, and these before those for all. Null
    /// for none.
    const KeyCommand* find(const Window& window, const Control* focused, KeyEvent key) const;
    /// In the order in which they were added.
    const std::vector<KeyCommand>& all() const { return commands_; }

private:
    std::vector<KeyCommand> commands_;
};

/// As it is written on keyboards and in menus: "Ctrl+Shift+1", "Ins", "F7".
std::string nameOfKey(KeyEvent key);

} // namespace zb
