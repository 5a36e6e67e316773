#pragma once

#include "controls/key.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace zb {

class Combo;
class Control;
class Desktop;
class List;
class ListRow;
class Node;
class TextField;
class ToolbarButton;
class Tree;
class Window;
struct DragData;

/// What an action is aimed at: a control, or one of its members.
struct Target {
    Control* control = nullptr;
    Node* node = nullptr;
    ListRow* row = nullptr;
    std::optional<std::size_t> column; ///< from 0: the header of a list's column
    ToolbarButton* button = nullptr;

    static Target whole(Control& control) {
        Target target;
        target.control = &control;
        return target;
    }
};

/// What a person can do to the windows. Each action obeys enabled, visible and modality, closes an open
/// pop-up, moves the focus and runs the handlers in the order in which a desktop would. Actions that take
/// place answer the empty text; others change nothing and answer why not.
class UserHands {
public:
    explicit UserHands(Desktop& desktop) : desktop_(desktop) {}

    using Refusal = std::string;
    enum class MouseButton { Left = 1, Right = 2 };

    Refusal click(const Target& target) { return press(target, {}); }
    /// The same with Ctrl: adds a row to the selection or takes it out.
    Refusal controlClick(const Target& target) { return press(target, {0, kControlKey}); }
    Refusal rightClick(const Target& target);
    Refusal doubleClick(const Target& target);
    /// Closes an open pop-up without a choice.
    void dismiss();

    /// Why the user cannot act on the target now; empty when nothing is in the way.
    Refusal whyNot(const Target& target) const;
    /// Makes the target's window active, which an action does first, since what its handling enables can be
    /// used by the action. Returns why the user cannot act on the target then.
    Refusal approach(const Target& target);
    /// How many actions were begun so far, and what became of the last.
    int begun() const { return begun_; }
    const Refusal& lastRefusal() const { return lastRefusal_; }

    Refusal focus(Control& control);
    Refusal activate(Window& window);
    /// The user closes the window by its frame.
    Refusal close(Window& window);

    /// Key down, its effect, key up.
    Refusal key(Control& control, KeyEvent key);
    /// Types the text key by key. The control has the focus at the start; all keys go to it, wherever the
    /// focus goes meanwhile. Text that a US keyboard lacks is refused as a whole.
    Refusal type(Control& control, std::string_view text);
    /// Selects the whole text and pastes by the mouse: no key event.
    Refusal paste(Control& control, std::string_view text);
    /// A row of a combo by its text or as "#2"; an existing folder of a folder field.
    Refusal choose(Control& control, std::string_view text);

    Refusal drag(const Target& from, const Target& to);
    Refusal drop(const DragData& data, const Target& to);

    /// The same actions in the parts in which a person's hands do them, with time between the parts. A part
    /// is left out after one that was refused.
    /// @{
    /// Presses a button of the mouse on a tree or list. The left one selects what is below it, except that a
    /// selected row keeps the selection, for a drag of several.
    Refusal mouseDown(const Target& target, MouseButton button, KeyEvent modifiers = {});
    /// Lets go of it there; a target that is gone is let alone.
    void mouseUp(const Target& target, MouseButton button, KeyEvent modifiers = {});
    /// The second press of a double click, behind a whole click.
    void doublePress(const Target& target);
    /// A drag starts on a target that has been pressed; nothing back refuses it.
    std::optional<DragData> beginDrag(const Target& from);
    void dragOver(const DragData& data, const Target& to);

    /// What a key does by itself; empty for what the stores know of it. Keys that paste, cut or undo have an
    /// effect that only a screen can give them.
    using KeyAction = std::function<void()>;
    Refusal keyDown(Control& control, KeyEvent key, const KeyAction& effect = {});
    /// The same wherever the focus is.
    Refusal keyDownHere(Control& control, KeyEvent key, const KeyAction& effect = {});
    void keyUp(Control& control, KeyEvent key);
    /// A text that no key enters, from a dead key or an input method: down and up of the key that stands for
    /// all such texts, with an insertion between them unless the field is locked by then.
    Refusal enterText(TextField& field, std::string_view text);
    /// A paste by the mouse: no key event; it replaces the selection.
    Refusal insert(Control& control, std::string_view text);
    /// A paste or drop by the mouse at a place in the text, a byte offset into it.
    Refusal insertAt(TextField& field, std::size_t place, std::string_view text);
    /// A row of a combo by its position, from 0.
    Refusal choose(Combo& combo, std::size_t position);
    /// Shift and a click in a list: all rows from the selected one to this one.
    Refusal extendTo(List& list, ListRow& row);
    /// A key of the screen's own, such as Page Down, moves the selection here: as the arrow keys do it.
    Refusal reach(Tree& tree, Node& node);
    Refusal reach(List& list, ListRow& row);
    /// @}

private:
    Refusal whyNot(const Control& control) const;
    Refusal begin(const Target& target);
    Refusal beginUncounted(const Target& target);
    Refusal strike(Control& control, KeyEvent key);
    Refusal whyOutOfReach(const Window& window) const;
    Refusal dropOnField(TextField& field, const DragData& data);
    Refusal press(const Target& target, KeyEvent modifiers);
    Refusal pressMember(const Target& target, KeyEvent modifiers);
    void pressPart(const Target& target, MouseButton button, KeyEvent modifiers);
    void pressRow(List& list, ListRow* row, MouseButton button, KeyEvent modifiers);
    bool stillThere(const Target& target) const;
    Refusal runMenuEntry(Control& control);

    Desktop& desktop_;
    int begun_ = 0;
    Refusal lastRefusal_;
    int pressedIndex_ = 0; // of the node under the button that was pressed last
};

} // namespace zb
