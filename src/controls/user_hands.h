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

/// The target of an action: a control, or one of its members.
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

/// The actions of a person at the windows. Each respects enabled, visible and modality, closes an open
/// pop-up, moves the focus and runs the handlers in the order of a desktop. An action returns the empty text,
/// or changes nothing and returns the reason.
class UserHands {
public:
    explicit UserHands(Desktop& desktop) : desktop_(desktop) {}

    using Refusal = std::string;
    enum class MouseButton { Left = 1, Right = 2 };

    Refusal click(const Target& target);
    /// The same with Ctrl: adds a row to the selection or removes it.
    Refusal controlClick(const Target& target);
    Refusal rightClick(const Target& target);
    Refusal doubleClick(const Target& target);
    /// Closes an open pop-up without a choice.
    void dismiss();

    /// Why the user cannot act on the target now; empty when nothing is in the way.
    Refusal whyNot(const Target& target) const;
    /// Makes the target's window active, which an action does first, since what its handling enables can be
    /// used by the action. Returns why the user cannot act on the target then.
    Refusal approach(const Target& target);
    /// The number of actions started so far, and the result of the last one.
    int begun() const { return begun_; }
    const Refusal& lastRefusal() const { return lastRefusal_; }

    Refusal focus(Control& control);
    Refusal activate(Window& window);
    /// The user closes the window by its frame.
    Refusal close(Window& window);

    /// Key down, its effect, key up.
    Refusal key(Control& control, KeyEvent key);
    /// Types the text key by key. The control has the focus at the start; all keys go to it, even when the
    /// focus moves meanwhile. Text with characters that a US keyboard lacks is refused as a whole.
    Refusal type(Control& control, std::string_view text);
    /// Selects the whole text and pastes with the mouse: no key event.
    Refusal paste(Control& control, std::string_view text);
    /// Chooses a row of a combo by its text or as "#2", or an existing folder of a folder field.
    Refusal choose(Control& control, std::string_view text);

    Refusal drag(const Target& from, const Target& to);
    Refusal drop(const DragData& data, const Target& to);

    /// The same actions in separate steps, with time between them. A step after a refused one is left out.
    /// @{
    /// Presses a mouse button on a tree, list or pane. In a tree or list the left button selects what is
    /// below the pointer, except that a selected row keeps a selection of several for a drag.
    Refusal mouseDown(const Target& target, MouseButton button, KeyEvent modifiers = {});
    /// Releases the button there; a target that no longer exists is ignored.
    void mouseUp(const Target& target, MouseButton button, KeyEvent modifiers = {});
    /// The second press of a double click, after a complete click.
    void doublePress(const Target& target);
    /// Starts a drag of a pressed target; without a result it is refused.
    std::optional<DragData> beginDrag(const Target& from);
    void dragOver(const DragData& data, const Target& to);

    /// The default effect of a key; empty for the effect that the stores know. Keys that paste or cut have an
    /// effect that only a screen can provide.
    using KeyAction = std::function<void()>;
    Refusal keyDown(Control& control, KeyEvent key, const KeyAction& effect = {});
    /// The same, wherever the focus is.
    Refusal keyDownHere(Control& control, KeyEvent key, const KeyAction& effect = {});
    void keyUp(Control& control, KeyEvent key);
    /// A key that no control has a use for, in that window: runs its command. False when it has none there.
    bool runCommandKey(Window& window, KeyEvent key);
    /// Whether the next keys are struck on a keyboard; a script's are not. Some commands of keys are only for
    /// a keyboard.
    void setAtKeyboard(bool atKeyboard) { atKeyboard_ = atKeyboard; }
    /// A text that no key enters, from a dead key or an input method: key down and key up of the code for all
    /// such texts, with an insertion between them unless the field is locked by then.
    Refusal enterText(TextField& field, std::string_view text);
    /// A paste by the mouse: no key event; it replaces the selection.
    Refusal insert(Control& control, std::string_view text);
    /// A paste or drop by the mouse at a place in the text, a byte offset into it.
    Refusal insertAt(TextField& field, std::size_t place, std::string_view text);
    /// Chooses a row of a combo by its position, from 0.
    Refusal choose(Combo& combo, std::size_t position);
    /// Shift and a click in a list: selects all rows from the selected one to this one.
    Refusal extendTo(List& list, ListRow& row);
    /// A key that only the screen can interpret, such as Page Down, moves the selection here, as the arrow
    /// keys do.
    Refusal reach(Tree& tree, Node& node, KeyEvent modifiers = {});
    Refusal reach(List& list, ListRow& row);
    /// @}

    /// Undo and redo where the control is, as its keys do: the user's changes of a text field, or the steps
    /// of the document for a field whose text is written through, and for any other control.
    /// @{
    void undo(Control& control);
    void redo(Control& control);
    bool canUndo(const Control& control) const;
    bool canRedo(const Control& control) const;
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
    bool takesUndoKey(Control& control, KeyEvent key);
    bool takesCommandKey(Control& control, KeyEvent key);
    Refusal runMenuEntry(Control& control);

    Desktop& desktop_;
    int begun_ = 0;
    Refusal lastRefusal_;
    int pressedIndex_ = 0; // of the node under the button that was pressed last
    bool atKeyboard_ = false;
    int heldCommandKey_ = 0; // the code of a key that ran a command; its key up goes nowhere
};

} // namespace zb
