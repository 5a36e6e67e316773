#include "editor/message_entry.h"

#include "controls/key_effects.h"
#include "editor/frm_sec_editor.h"
#include "messages/message_nodes.h"

namespace zb {

void MessageEntry::begin() {
    window_.InitMsg();
    window_.shownMessage.isNew();
    window_.txtStream.setFocus();
}

void MessageEntry::add() {
    if (!window_.messagePane.add())
        return;
    if (Node* added = window_.liveTree().find(window_.txtMsgName.text()); added != nullptr)
        reachNode(window_.tvwEdit, *added);
    window_.itemEntry.backToTree();
}

void MessageEntry::finish() {
    const Node* selected = window_.liveTree().selected();
    if (selected == nullptr || window_.shownMessage.showsNew())
        add();
    else if (selected->parent() != nullptr || window_.messagePane.change())
        window_.itemEntry.backToTree();
}

void MessageEntry::goToPrevious() {
    Node* selected = window_.liveTree().selected();
    if (selected == nullptr)
        return;
    Node* target = selected->parent() == nullptr ? messageBefore(*selected) : &rootOf(*selected);
    if (target != nullptr)
        reachNode(window_.tvwEdit, *target);
}

void MessageEntry::goToNext() {
    Node* selected = window_.liveTree().selected();
    Node* target = selected == nullptr ? window_.liveTree().firstRoot() : messageAfter(*selected);
    if (selected == nullptr && target != nullptr)
        target = unitOf(*target);
    if (target != nullptr)
        reachNode(window_.tvwEdit, *target);
}

} // namespace zb
