#include "controls/key_effects.h"

#include "controls/combo.h"
#include "controls/desktop.h"
#include "controls/list.h"
#include "controls/menu.h"
#include "controls/simple_controls.h"
#include "controls/text_field.h"
#include "controls/tree.h"
#include "controls/window.h"

#include <algorithm>
#include <optional>

namespace zb {

namespace {

using Kind = Control::Kind;

/// The steps of the arrow keys: what is collapsed or hidden by a filter is passed over.
class ShownNodes {
public:
    explicit ShownNodes(const Tree& tree) : tree_(tree) {}

    Node* first() const { return orNext(tree_.nodes().firstRoot()); }
    Node* last() const { return deepest(orPrevious(tree_.nodes().lastRoot())); }

    Node* below(Node& node) const {
        if (Node* child = node.expanded() ? orNext(node.child()) : nullptr; child != nullptr)
            return child;
        for (const Node* above = &node; above != nullptr; above = above->parent()) {
            if (Node* next = orNext(above->next()); next != nullptr)
                return next;
        }
        return nullptr;
    }

    Node* above(const Node& node) const {
        Node* previous = orPrevious(node.previous());
        return previous != nullptr ? deepest(previous) : node.parent();
    }

    Node* childOf(const Node& node) const { return orNext(node.child()); }

private:
    Node* orNext(Node* node) const {
        while (node != nullptr && !tree_.shows(*node))
            node = node->next();
        return node;
    }
    Node* orPrevious(Node* node) const {
        while (node != nullptr && !tree_.shows(*node))
            node = node->previous();
        return node;
    }
    Node* deepest(Node* node) const {
        while (node != nullptr && node->expanded()) {
            Node* last = orPrevious(node->lastChild());
            if (last == nullptr)
                break;
            node = last;
        }
        return node;
    }

    const Tree& tree_;
};

Node* arrowLeft(Node& node) {
    if (node.expanded() && node.child() != nullptr) {
        node.setExpanded(false);
        return nullptr;
    }
    return node.parent();
}

Node* arrowRight(Node& node, const ShownNodes& shown) {
    if (node.child() == nullptr)
        return nullptr;
    if (!node.expanded()) {
        node.setExpanded(true);
        return nullptr;
    }
    return shown.childOf(node);
}

Node* arrowTarget(const Tree& tree, int code) {
    const ShownNodes shown(tree);
    Node* from = tree.nodes().selected();
    if (code == kKeyHome || from == nullptr)
        return shown.first();
    switch (code) {
    case kKeyEnd:
        return shown.last();
    case kKeyUp:
        return shown.above(*from);
    case kKeyDown:
        return shown.below(*from);
    case kKeyLeft:
        return arrowLeft(*from);
    case kKeyRight:
        return arrowRight(*from, shown);
    default:
        return nullptr;
    }
}

void moveInTree(Tree& tree, KeyEvent key) {
    if (key.code < kKeyEnd || key.code > kKeyDown)
        return;
    Node* target = arrowTarget(tree, key.code);
    if (target != nullptr && target != tree.nodes().selected())
        reachNode(tree, *target, key.shift);
}

/// The position, from 1, to which a key leads; nothing for other keys.
std::optional<int> listTarget(int code, int here, int last) {
    switch (code) {
    case kKeyHome:
        return 1;
    case kKeyEnd:
        return last;
    case kKeyUp:
        return std::clamp(here - 1, 1, last);
    case kKeyDown:
        return std::clamp(here + 1, 1, last);
    default:
        return std::nullopt;
    }
}

void moveInList(List& list, KeyEvent key) {
    const auto& rows = list.shown();
    if (rows.empty())
        return;
    const int here = list.positionOf(list.rangeEnd());
    const auto target = listTarget(key.code, here, static_cast<int>(rows.size()));
    if (!target || *target == here)
        return;
    ListRow& row = *rows[static_cast<std::size_t>(*target) - 1];
    const bool extends = (key.shift & kShiftKey) != 0 && list.selection() == List::Selection::Many;
    if (extends && list.selected() != nullptr)
        list.selectRange(*list.selected(), row);
    else
        reachRow(list, row);
}

void moveInCombo(Combo& combo, int code) {
    if (combo.keys() == Combo::Keys::Ignored || (code != kKeyUp && code != kKeyDown))
        return;
    const auto& entries = combo.entries();
    const auto here = std::find(entries.begin(), entries.end(), combo.text());
    auto position = static_cast<std::size_t>(here - entries.begin());
    if (here == entries.end())
        position = 0;
    else if (code == kKeyDown)
        ++position;
    else if (position == 0)
        return;
    else
        --position;
    combo.choose(position);
}

} // namespace

MenuEntry* entryOfKey(const Control& control, KeyEvent key) {
    if (control.kind() == Kind::TextField)
        return nullptr;
    for (Control* other : control.window().controls()) {
        if (other->kind() != Kind::MenuEntry)
            continue;
        auto& entry = static_cast<MenuEntry&>(*other);
        if (!entry.shortcut().empty() && entry.popup() == nullptr && keyOfShortcut(entry.shortcut()) == key)
            return &entry;
    }
    return nullptr;
}

void reachNode(Tree& tree, Node& node, int shift) {
    fire(tree.onMarking, node, shift);
    tree.nodes().select(&node);
    const Desktop::FocusStays stays(tree.window().desktop());
    fire(tree.onReached ? tree.onReached : tree.onNodeClick, node);
}

void reachRow(List& list, ListRow& row) {
    list.select(&row);
    const Desktop::FocusStays stays(list.window().desktop());
    fire(list.onReached ? list.onReached : list.onRowClick, row);
}

void pressByClick(Control& control) {
    if (control.kind() == Kind::CheckBox) {
        auto& box = static_cast<CheckBox&>(control);
        box.setChecked(!box.checked());
        fire(box.onRelease);
    } else if (control.kind() == Kind::Option) {
        auto& option = static_cast<Option&>(control);
        if (!option.on()) {
            option.setOn(true);
            fire(option.onClick);
        }
    } else if (control.kind() == Kind::Button) {
        fire(static_cast<Button&>(control).onClick);
    }
}

void applyKey(Control& control, KeyEvent key) {
    if (key.code == kKeyEscape) {
        Button* cancel = control.window().cancelButton();
        if (cancel != nullptr && cancel->usable())
            fire(cancel->onClick);
        return;
    }
    switch (control.kind()) {
    case Kind::TextField:
        static_cast<TextField&>(control).enterKey(key);
        break;
    case Kind::CheckBox:
    case Kind::Option:
        if (key.code == kKeySpace)
            pressByClick(control);
        break;
    case Kind::Button:
        if (key.code == kKeySpace || key.code == kKeyEnter)
            pressByClick(control);
        break;
    case Kind::Combo:
        moveInCombo(static_cast<Combo&>(control), key.code);
        break;
    case Kind::List:
        moveInList(static_cast<List&>(control), key);
        break;
    case Kind::Tree:
        moveInTree(static_cast<Tree&>(control), key);
        break;
    default:
        break;
    }
}

} // namespace zb
