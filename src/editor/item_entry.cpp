#include "editor/item_entry.h"

#include "controls/desktop.h"
#include "editor/frm_sec_editor.h"
#include "messages/message_nodes.h"

namespace zb {

void ItemEntry::selectMessage() {
    Node* selected = window_.liveTree().selected();
    if (selected == nullptr || selected->parent() != nullptr)
        return;
    if (Node* message = messageOf(*selected).message; message != nullptr)
        window_.liveTree().select(message);
}

void ItemEntry::insertAfter() {
    if (!finishTyping())
        return;
    selectMessage();
    NodeTree& tree = window_.liveTree();
    const std::size_t before = tree.count();
    window_.treeCommands.insertItem();
    Node* selected = tree.selected();
    if (tree.count() > before)
        editNode(selected->parent() == nullptr ? *selected->lastChild() : *selected->next());
}

void ItemEntry::addChild() {
    if (!finishTyping())
        return;
    selectMessage();
    NodeTree& tree = window_.liveTree();
    const std::size_t before = tree.count();
    window_.treeCommands.addSubItem();
    if (tree.count() > before)
        editNode(*tree.selected()->lastChild());
}

void ItemEntry::edit() {
    if (Node* selected = window_.liveTree().selected(); selected != nullptr)
        editNode(*selected);
}

void ItemEntry::editNode(Node& node) {
    window_.liveTree().select(&node);
    window_.treeInteraction.nodeClick();
    TextField& field = node.parent() == nullptr ? window_.txtMsgName : window_.txtItemName;
    field.setFocus();
    field.selectAll();
}

void ItemEntry::editNext() {
    if (!finishTyping())
        return;
    const Node* selected = window_.liveTree().selected();
    if (selected == nullptr)
        return;
    if (selected->parent() != nullptr && selected->next() != nullptr)
        editNode(*selected->next());
    else
        backToTree();
}

void ItemEntry::goOn() {
    if (!finishTyping())
        return;
    const Node* selected = window_.liveTree().selected();
    if (window_.txtInit.usable())
        window_.txtInit.setFocus();
    else if (selected != nullptr && selected->parent() != nullptr && selected->child() != nullptr)
        editNode(*selected->child());
    else
        backToTree();
}

void ItemEntry::backToTree() {
    window_.tvwEdit.setFocus();
}

bool ItemEntry::chooseType(int button) {
    const Node* selected = window_.liveTree().selected();
    if (selected == nullptr || selected->parent() == nullptr || !finishTyping())
        return false;
    // The button writes what the pane shows, which a search or a save has left with another item.
    if (window_.tvwEdit.focused()) {
        const Desktop::FocusStays stays(window_.desktop());
        window_.treeInteraction.nodeClick();
    }
    fire(window_.tbritemType.onButtonClick,
         window_.tbritemType.buttons()[static_cast<std::size_t>(button) - 1]);
    // The value of what was a list can be entered only after the item was shown again.
    if (!window_.txtInit.enabled() && window_.itemPane.getSelectedItemType() != "L") {
        const Desktop::FocusStays stays(window_.desktop());
        window_.treeInteraction.nodeClick();
    }
    return true;
}

bool ItemEntry::finishTyping() {
    for (TextField* field : {&window_.txtItemName, &window_.txtItemCount}) {
        if (!field->focused())
            continue;
        const std::string typed = field->text();
        fire(field->onKeyUp, KeyEvent{kKeyEnter, 0});
        return field->text() == typed;
    }
    return true;
}

} // namespace zb
