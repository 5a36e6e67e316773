#include "platform/stores/user_hands.h"

#include "platform/stores/bars.h"
#include "platform/stores/combo.h"
#include "platform/stores/desktop.h"
#include "platform/stores/key_effects.h"
#include "platform/stores/list.h"
#include "platform/stores/menu.h"
#include "platform/stores/simple_controls.h"
#include "platform/stores/text_field.h"
#include "platform/stores/tree.h"
#include "platform/stores/window.h"

#include <algorithm>
#include <charconv>
#include <filesystem>

namespace zb {

namespace {

using Kind = Control::Kind;

constexpr int kLeftButton = 1;
constexpr int kRightButton = 2;

template <typename Store>
Store& as(Control& control) {
    return static_cast<Store&>(control);
}

std::string describe(const Control& control) { return control.window().name() + "." + control.name(); }

bool isOpenPopupEntry(const Control& control, const PopupMenu* popup) {
    return popup != nullptr && control.kind() == Kind::MenuEntry &&
           static_cast<const MenuEntry&>(control).popup() == popup;
}

bool hasEntriesBelow(const MenuEntry& entry) {
    const auto& all = entry.window().controls();
    return std::any_of(all.begin(), all.end(), [&](const Control* other) {
        return other->kind() == Kind::MenuEntry && static_cast<const MenuEntry*>(other)->menu() == &entry;
    });
}

void clickNode(Tree& tree, Node* node) {
    const int index = node == nullptr ? 0 : node->index();
    if (node != nullptr)
        tree.nodes().select(node);
    fire(tree.onMouseDown, kLeftButton, node);
    // A handler may have removed the node.
    if (tree.nodes().at(index) != node)
        return;
    fire(tree.onMouseUp, kLeftButton, node);
    if (node != nullptr && tree.nodes().at(index) == node)
        fire(tree.onNodeClick, *node);
}

bool holds(const List& list, const ListRow* row) {
    return std::any_of(list.rows().begin(), list.rows().end(),
                       [&](const auto& candidate) { return candidate.get() == row; });
}

void clickRow(List& list, ListRow* row, KeyEvent modifiers) {
    if (row != nullptr && (modifiers.shift & kControlKey) != 0)
        list.toggle(*row);
    else
        list.select(row);
    fire(list.onMouseDown, kLeftButton, row);
    if (row != nullptr && !holds(list, row))
        return;
    fire(list.onMouseUp, kLeftButton, row);
    if (row != nullptr && holds(list, row))
        fire(list.onRowClick, *row);
}

} // namespace

UserHands::Refusal UserHands::whyNot(const Control& control) const {
    const Window& window = control.window();
    if (!window.visible())
        return window.name() + " is not shown";
    if (!desktop_.acceptsInput(window))
        return window.name() + " stands behind a modal window";
    for (const Control* part = &control; part != nullptr; part = part->pane()) {
        if (!part->visible())
            return describe(*part) + " is hidden";
        if (!part->enabled())
            return describe(*part) + " is disabled";
    }
    return {};
}

UserHands::Refusal UserHands::begin(const Target& target, bool takesFocus) {
    Control& control = *target.control;
    if (!isOpenPopupEntry(control, desktop_.openPopup()))
        desktop_.closePopup();
    if (Refusal refusal = whyNot(control); !refusal.empty())
        return refusal;
    if (target.button != nullptr && !target.button->enabled())
        return describe(control) + "[" + target.button->key() + "] is disabled";
    desktop_.activate(control.window());
    if (takesFocus && control.takesFocus() && !target.column)
        desktop_.focus(control);
    // Losing the focus may have changed what can be used.
    return whyNot(control);
}

UserHands::Refusal UserHands::press(const Target& target, KeyEvent modifiers) {
    if (Refusal refusal = begin(target, true); !refusal.empty())
        return refusal;
    return pressMember(target, modifiers);
}

UserHands::Refusal UserHands::pressMember(const Target& target, KeyEvent modifiers) {
    Control& control = *target.control;
    switch (control.kind()) {
    case Kind::CheckBox:
    case Kind::Option:
    case Kind::Button: pressByClick(control); break;
    case Kind::MenuEntry: return runMenuEntry(control);
    case Kind::Toolbar:
        if (target.button != nullptr)
            fire(as<Toolbar>(control).onButtonClick, *target.button);
        break;
    case Kind::Tree: clickNode(as<Tree>(control), target.node); break;
    case Kind::List:
        if (target.column)
            fire(as<List>(control).onColumnClick, *target.column);
        else
            clickRow(as<List>(control), target.row, modifiers);
        break;
    case Kind::Pane: fire(as<Pane>(control).onPress); break;
    case Kind::TextField: as<TextField>(control).caretToEnd(); break;
    default: break;
    }
    return {};
}

UserHands::Refusal UserHands::runMenuEntry(Control& control) {
    auto& entry = as<MenuEntry>(control);
    PopupMenu* popup = entry.popup();
    if (popup != nullptr && !popup->isOpen())
        return describe(*popup) + " is not open";
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
    if (Refusal refusal = begin(target, true); !refusal.empty())
        return refusal;
    Control& control = *target.control;
    if (control.kind() == Kind::Tree) {
        auto& tree = as<Tree>(control);
        fire(tree.onMouseDown, kRightButton, target.node);
        fire(tree.onMouseUp, kRightButton, target.node);
    } else if (control.kind() == Kind::List && !target.column) {
        auto& list = as<List>(control);
        fire(list.onMouseDown, kRightButton, target.row);
        fire(list.onMouseUp, kRightButton, target.row);
    }
    return {};
}

UserHands::Refusal UserHands::doubleClick(const Target& target) {
    const int index = target.node == nullptr ? 0 : target.node->index();
    if (Refusal refusal = click(target); !refusal.empty())
        return refusal;
    Control& control = *target.control;
    if (control.kind() == Kind::Tree && index != 0) {
        auto& tree = as<Tree>(control);
        if (tree.nodes().at(index) == target.node)
            fire(tree.onDoubleClick, *target.node);
    } else if (control.kind() == Kind::List && target.row != nullptr && holds(as<List>(control), target.row)) {
        fire(as<List>(control).onDoubleClick, *target.row);
    }
    return {};
}

void UserHands::dismiss() { desktop_.closePopup(); }

UserHands::Refusal UserHands::focus(Control& control) {
    if (!control.takesFocus())
        return describe(control) + " takes no focus";
    return begin(Target::whole(control), true);
}

UserHands::Refusal UserHands::activate(Window& window) {
    desktop_.closePopup();
    if (!window.visible())
        return window.name() + " is not shown";
    if (!desktop_.acceptsInput(window))
        return window.name() + " stands behind a modal window";
    desktop_.activate(window);
    return {};
}

UserHands::Refusal UserHands::close(Window& window) {
    if (Refusal refusal = activate(window); !refusal.empty())
        return refusal;
    window.closeByFrame();
    return {};
}

UserHands::Refusal UserHands::key(Control& control, KeyEvent key) {
    if (!control.takesFocus())
        return describe(control) + " takes no keys";
    if (Refusal refusal = begin(Target::whole(control), true); !refusal.empty())
        return refusal;
    fire(control.onKeyDown, key);
    if (!whyNot(control).empty())
        return {};
    applyKey(control, key);
    if (control.window().visible())
        fire(control.onKeyUp, key);
    return {};
}

UserHands::Refusal UserHands::paste(Control& control, std::string_view text) {
    if (control.kind() != Kind::TextField)
        return describe(control) + " is no text field";
    if (Refusal refusal = begin(Target::whole(control), true); !refusal.empty())
        return refusal;
    auto& field = as<TextField>(control);
    field.selectAll();
    field.paste(text);
    return {};
}

UserHands::Refusal UserHands::choose(Control& control, std::string_view text) {
    if (control.kind() != Kind::Combo && control.kind() != Kind::FolderField)
        return describe(control) + " has nothing to choose from";
    if (Refusal refusal = begin(Target::whole(control), true); !refusal.empty())
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
        std::from_chars(text.data() + 1, text.data() + text.size(), number);
        position = number == 0 ? entries.size() : number - 1;
    }
    if (position >= entries.size())
        return describe(control) + " has no row \"" + std::string(text) + "\"";
    combo.choose(position);
    return {};
}

std::optional<DragData> UserHands::startDrag(const Target& from) {
    Control& control = *from.control;
    if (control.kind() == Kind::Tree) {
        if (from.node == nullptr)
            return std::nullopt;
        auto& tree = as<Tree>(control);
        const int index = from.node->index();
        tree.nodes().select(from.node);
        fire(tree.onMouseDown, kLeftButton, from.node);
        if (!tree.onDragStart || tree.nodes().at(index) != from.node)
            return std::nullopt;
        return tree.onDragStart(*from.node);
    }
    if (control.kind() == Kind::List) {
        auto& list = as<List>(control);
        if (from.row != nullptr && !from.row->selected())
            list.select(from.row);
        fire(list.onMouseDown, kLeftButton, from.row);
        return list.onDragStart ? list.onDragStart() : std::nullopt;
    }
    if (control.kind() == Kind::Pane)
        fire(as<Pane>(control).onPress);
    return control.onDragData ? control.onDragData() : std::nullopt;
}

UserHands::Refusal UserHands::drag(const Target& from, const Target& to) {
    if (Refusal refusal = begin(from, true); !refusal.empty())
        return refusal;
    const std::optional<DragData> data = startDrag(from);
    if (!data)
        return {};
    return drop(*data, to);
}

UserHands::Refusal UserHands::drop(const DragData& data, const Target& to) {
    desktop_.closePopup();
    Control& control = *to.control;
    if (Refusal refusal = whyNot(control); !refusal.empty())
        return refusal;
    if (control.kind() == Kind::Tree) {
        auto& tree = as<Tree>(control);
        fire(tree.onDragOver, data, to.node);
        fire(tree.onDrop, data, to.node);
    } else if (control.kind() == Kind::List) {
        auto& list = as<List>(control);
        fire(list.onDragOver, data, to.row);
        fire(list.onDrop, data, to.row);
    } else {
        fire(control.onDropData, data);
    }
    return {};
}

} // namespace zb
