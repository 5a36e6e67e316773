#include "controls/user_hands.h"

#include "controls/bars.h"
#include "controls/combo.h"
#include "controls/desktop.h"
#include "controls/key_effects.h"
#include "controls/menu.h"
#include "controls/simple_controls.h"
#include "controls/text_field.h"
#include "controls/user_hands_parts.h"

#include <charconv>
#include <filesystem>

namespace zb {

using namespace hands;

namespace {

using Kind = Control::Kind;

PopupMenu* popupOf(const Control& control) {
    return control.kind() == Kind::MenuEntry ? static_cast<const MenuEntry&>(control).popup() : nullptr;
}

/// The window that must be in reach for the control to be: entries of a companion are part of the menu that
/// they are shown in.
const Window& shownIn(const Control& control) {
    const PopupMenu* popup = popupOf(control);
    return popup != nullptr && popup->host() != nullptr ? popup->host()->window() : control.window();
}

bool leavesFocus(const Control& control) {
    const PopupMenu* popup = popupOf(control);
    return control.leavesFocus() || (popup != nullptr && popup->leavesFocus());
}

/// What must be usable for the control to be usable: its pane, or the menu of an entry. For the entries of a
/// pop-up it is enough that the pop-up is open.
const Control* above(const Control& control) {
    if (control.kind() != Kind::MenuEntry)
        return control.pane();
    const Control* menu = static_cast<const MenuEntry&>(control).menu();
    return menu != nullptr && menu->kind() == Kind::MenuEntry ? menu : nullptr;
}

bool hasEntriesBelow(const MenuEntry& entry) {
    const auto& all = entry.window().controls();
    return std::any_of(all.begin(), all.end(), [&](const Control* other) {
        return other->kind() == Kind::MenuEntry && static_cast<const MenuEntry*>(other)->menu() == &entry;
    });
}

} // namespace

UserHands::Refusal UserHands::whyOutOfReach(const Window& window) const {
    if (!window.visible())
        return window.name() + " is not shown";
    return desktop_.acceptsInput(window) ? Refusal() : window.name() + " is blocked by a modal window";
}

UserHands::Refusal UserHands::whyNot(const Control& control) const {
    if (Refusal refusal = whyOutOfReach(shownIn(control)); !refusal.empty())
        return refusal;
    for (const Control* part = &control; part != nullptr; part = above(*part)) {
        if (!part->visible())
            return describe(*part) + " is hidden";
        if (!part->enabled())
            return describe(*part) + " is disabled";
    }
    return {};
}

UserHands::Refusal UserHands::whyNot(const Target& target) const {
    if (Refusal refusal = whyNot(*target.control); !refusal.empty())
        return refusal;
    if (target.button != nullptr && !target.button->enabled())
        return describe(*target.control) + "[" + target.button->key() + "] is disabled";
    return {};
}

UserHands::Refusal UserHands::approach(const Target& target) {
    Window& window = target.control->window();
    if (Refusal refusal = whyOutOfReach(shownIn(*target.control)); !refusal.empty())
        return refusal;
    if (leavesFocus(*target.control))
        return whyNot(target);
    const int index = indexOf(target);
    // The tool bar of a frame is there for the document in front, and leaves the focus in it.
    Window* document = target.control->kind() == Kind::Toolbar && desktop_.activeWindow() != &window
                           ? desktop_.frontDocument(window)
                           : nullptr;
    desktop_.activate(document != nullptr ? *document : window);
    if (!isThere(target, index))
        return describe(*target.control) + " has lost the target meanwhile";
    return whyNot(target);
}

UserHands::Refusal UserHands::begin(const Target& target) {
    ++begun_;
    desktop_.countAction();
    Refusal refusal = beginUncounted(target);
    lastRefusal_ = refusal;
    return refusal;
}

UserHands::Refusal UserHands::beginUncounted(const Target& target) {
    Control& control = *target.control;
    if (const PopupMenu* popup = popupOf(control); popup == nullptr || !popup->isOpen())
        desktop_.closePopup();
    const int index = indexOf(target);
    if (Refusal refusal = approach(target); !refusal.empty())
        return refusal;
    if (control.takesFocus() && !target.column)
        desktop_.focus(control);
    // The handlers of the lost focus may have changed what can be used, or removed the target.
    if (Refusal refusal = whyNot(control); !refusal.empty())
        return refusal;
    return isThere(target, index) ? Refusal() : describe(control) + " has lost the target meanwhile";
}

UserHands::Refusal UserHands::click(const Target& target) {
    return press(target, {});
}

UserHands::Refusal UserHands::controlClick(const Target& target) {
    return press(target, {0, kControlKey});
}

UserHands::Refusal UserHands::press(const Target& target, KeyEvent modifiers) {
    const UserSteps::Action action(desktop_.steps(), target.control);
    const bool hadFocus = target.control->focused();
    if (Refusal refusal = begin(target); !refusal.empty())
        return refusal;
    // A click that moves the focus keeps the selection that the program makes in the field.
    if (target.control->kind() == Kind::TextField && hadFocus)
        as<TextField>(*target.control).caretToEnd();
    return pressMember(target, modifiers);
}

UserHands::Refusal UserHands::pressMember(const Target& target, KeyEvent modifiers) {
    Control& control = *target.control;
    switch (control.kind()) {
    case Kind::CheckBox:
    case Kind::Option:
    case Kind::Button:
        pressByClick(control);
        break;
    case Kind::MenuEntry:
        return runMenuEntry(control);
    case Kind::Toolbar:
        if (target.button != nullptr)
            fire(as<Toolbar>(control).onButtonClick, *target.button);
        break;
    case Kind::Tree:
        pressPart(target, MouseButton::Left, modifiers);
        mouseUp(target, MouseButton::Left, modifiers);
        break;
    case Kind::List:
        if (target.column) {
            fire(as<List>(control).onColumnClick, *target.column);
        } else {
            pressPart(target, MouseButton::Left, modifiers);
            mouseUp(target, MouseButton::Left, modifiers);
        }
        break;
    case Kind::Pane:
        pressPart(target, MouseButton::Left, modifiers);
        mouseUp(target, MouseButton::Left, modifiers);
        break;
    default:
        break;
    }
    return {};
}

UserHands::Refusal UserHands::runMenuEntry(Control& control) {
    auto& entry = as<MenuEntry>(control);
    PopupMenu* popup = entry.popup();
    if (popup != nullptr && !popup->isOpen())
        return lastRefusal_ = describe(*popup) + " is not open";
    if (hasEntriesBelow(entry)) {
        fire(entry.onOpen);
        return {};
    }
    fire(entry.onClick);
    if (popup != nullptr && popup->isOpen())
        desktop_.closePopup();
    return {};
}

UserHands::Refusal UserHands::rightClick(const Target& target) {
    const UserSteps::Action action(desktop_.steps(), target.control);
    if (Refusal refusal = mouseDown(target, MouseButton::Right); !refusal.empty())
        return refusal;
    mouseUp(target, MouseButton::Right);
    return {};
}

UserHands::Refusal UserHands::mouseDown(const Target& target, MouseButton button, KeyEvent modifiers) {
    const UserSteps::Action action(desktop_.steps(), target.control);
    if (Refusal refusal = begin(target); !refusal.empty())
        return refusal;
    pressPart(target, button, modifiers);
    return {};
}

void UserHands::pressPart(const Target& target, MouseButton button, KeyEvent modifiers) {
    Control& control = *target.control;
    if (control.kind() == Kind::Tree) {
        auto& tree = as<Tree>(control);
        pressedIndex_ = indexOf(target);
        if (button == MouseButton::Left && target.node != nullptr) {
            fire(tree.onMarking, *target.node, modifiers.shift);
            tree.nodes().select(target.node);
        }
        fire(tree.onMouseDown, static_cast<int>(button), target.node);
    } else if (control.kind() == Kind::List && !target.column) {
        pressRow(as<List>(control), target.row, button, modifiers);
    } else if (control.kind() == Kind::Pane) {
        fire(as<Pane>(control).onPress);
    }
}

void UserHands::pressRow(List& list, ListRow* row, MouseButton button, KeyEvent modifiers) {
    if (button == MouseButton::Left) {
        if (row != nullptr && (modifiers.shift & kControlKey) != 0)
            list.toggle(*row);
        else if (row == nullptr || !row->selected())
            list.select(row);
    }
    fire(list.onMouseDown, static_cast<int>(button), row);
}

// A handler may have removed what was pressed.
bool UserHands::stillThere(const Target& target) const {
    return isThere(target, pressedIndex_);
}

void UserHands::mouseUp(const Target& target, MouseButton button, KeyEvent modifiers) {
    const UserSteps::Action action(desktop_.steps(), target.control);
    if (!stillThere(target))
        return;
    Control& control = *target.control;
    const int number = static_cast<int>(button);
    const bool left = button == MouseButton::Left;
    if (control.kind() == Kind::Tree) {
        auto& tree = as<Tree>(control);
        fire(tree.onMouseUp, number, target.node);
        if (left && target.node != nullptr && stillThere(target))
            fire(tree.onNodeClick, *target.node);
    } else if (control.kind() == Kind::List && !target.column) {
        auto& list = as<List>(control);
        // The press kept a selection of several, in case that it is dragged.
        if (left && target.row != nullptr && (modifiers.shift & (kControlKey | kShiftKey)) == 0)
            list.select(target.row);
        fire(list.onMouseUp, number, target.row);
        if (left && target.row != nullptr && stillThere(target))
            fire(list.onRowClick, *target.row);
    } else if (control.kind() == Kind::Pane && whyNot(control).empty()) {
        fire(as<Pane>(control).onClick);
    }
    if (!left && control.contextMenu() != nullptr && desktop_.openPopup() == nullptr)
        control.contextMenu()->open();
}

UserHands::Refusal UserHands::doubleClick(const Target& target) {
    const UserSteps::Action action(desktop_.steps(), target.control);
    if (Refusal refusal = click(target); !refusal.empty())
        return refusal;
    doublePress(target);
    return {};
}

void UserHands::doublePress(const Target& target) {
    const UserSteps::Action action(desktop_.steps(), target.control);
    if (!stillThere(target) || !whyNot(*target.control).empty())
        return;
    if (target.node != nullptr)
        fire(as<Tree>(*target.control).onDoubleClick, *target.node);
    else if (target.row != nullptr)
        fire(as<List>(*target.control).onDoubleClick, *target.row);
}

void UserHands::dismiss() {
    desktop_.closePopup();
}

UserHands::Refusal UserHands::focus(Control& control) {
    if (!control.takesFocus())
        return describe(control) + " takes no focus";
    const UserSteps::Action action(desktop_.steps(), &control);
    return begin(Target::whole(control));
}

UserHands::Refusal UserHands::activate(Window& window) {
    const UserSteps::Action action(desktop_.steps(), nullptr);
    ++begun_;
    lastRefusal_.clear();
    desktop_.closePopup();
    if (!window.visible())
        return lastRefusal_ = window.name() + " is not shown";
    if (!desktop_.acceptsInput(window))
        return lastRefusal_ = window.name() + " is blocked by a modal window";
    desktop_.activate(window);
    return {};
}

UserHands::Refusal UserHands::close(Window& window) {
    const UserSteps::Action action(desktop_.steps(), nullptr);
    if (Refusal refusal = activate(window); !refusal.empty())
        return refusal;
    window.closeByFrame();
    return {};
}

UserHands::Refusal UserHands::choose(Combo& combo, std::size_t position) {
    const UserSteps::Action action(desktop_.steps(), &combo);
    if (Refusal refusal = begin(Target::whole(combo)); !refusal.empty())
        return refusal;
    combo.choose(position);
    return {};
}

UserHands::Refusal UserHands::extendTo(List& list, ListRow& row) {
    const UserSteps::Action action(desktop_.steps(), &list);
    if (list.selection() == List::Selection::One || list.selected() == nullptr) {
        Target target = Target::whole(list);
        target.row = &row;
        return mouseDown(target, MouseButton::Left);
    }
    if (Refusal refusal = begin(Target::whole(list)); !refusal.empty())
        return refusal;
    list.selectRange(*list.selected(), row);
    fire(list.onMouseDown, static_cast<int>(MouseButton::Left), &row);
    return {};
}

UserHands::Refusal UserHands::choose(Control& control, std::string_view text) {
    const UserSteps::Action action(desktop_.steps(), &control);
    if (control.kind() != Kind::Combo && control.kind() != Kind::FolderField)
        return describe(control) + " has nothing to choose from";
    if (Refusal refusal = begin(Target::whole(control)); !refusal.empty())
        return refusal;
    if (control.kind() == Kind::FolderField) {
        std::error_code error;
        if (!std::filesystem::is_directory(std::string(text), error))
            return "there is no folder " + std::string(text);
        as<FolderField>(control).setText(text);
        return {};
    }
    auto& combo = as<Combo>(control);
    const auto& entries = combo.entries();
    const auto found = std::find(entries.begin(), entries.end(), text);
    auto position = static_cast<std::size_t>(found - entries.begin());
    if (found == entries.end() && text.starts_with('#')) {
        std::size_t number = 0;
        const auto read = std::from_chars(text.data() + 1, text.data() + text.size(), number);
        const bool whole = read.ec == std::errc() && read.ptr == text.data() + text.size();
        position = !whole || number == 0 ? entries.size() : number - 1;
    }
    if (position >= entries.size())
        return describe(control) + " has no row \"" + std::string(text) + "\"";
    combo.choose(position);
    return {};
}

UserHands::Refusal UserHands::reach(Tree& tree, Node& node, KeyEvent modifiers) {
    const UserSteps::Action action(desktop_.steps(), &tree);
    if (Refusal refusal = begin(Target::whole(tree)); !refusal.empty())
        return refusal;
    if (tree.nodes().selected() != &node)
        reachNode(tree, node, modifiers.shift);
    return {};
}

UserHands::Refusal UserHands::reach(List& list, ListRow& row) {
    const UserSteps::Action action(desktop_.steps(), &list);
    if (Refusal refusal = begin(Target::whole(list)); !refusal.empty())
        return refusal;
    reachRow(list, row);
    return {};
}

} // namespace zb
