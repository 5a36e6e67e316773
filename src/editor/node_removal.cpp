#include "editor/node_removal.h"

#include "editor/frm_sec_editor.h"
#include "messages/message_nodes.h"
#include "platform/wildcard.h"

#include <string>

namespace zb {

namespace {

/// The separator before the node that was found; a tree without it keeps its nodes.
Node* separatorOf(Node& root) {
    if (hasColon(root.text()))
        return siblingAt(&root, -2);
    if (!root.text().empty() || (root.next() != nullptr && hasColon(root.next()->text())))
        return root.previous();
    return &root;
}

} // namespace

Node* NodeRemoval::remove(Node& node) {
    return remove(std::vector<Node*>{&node});
}

Node* NodeRemoval::remove(const std::vector<Node*>& nodes) {
    // The marks would go one by one, and so would the names.
    if (nodes.size() > 1)
        window_.tvwEdit.marks().clear();
    const NodeTree::ManyChanges many(window_.liveTree(), nodes.size());
    std::vector<std::string> names;
    for (Node* node : nodes) {
        const Node* message = node->parent() == nullptr ? siblingAt(separatorOf(*node), 2) : nullptr;
        if (message != nullptr)
            names.emplace_back(message->key());
    }
    window_.messagePane.removeNames(names);
    Node* neighbour = nullptr;
    for (Node* node : nodes)
        neighbour = node->parent() == nullptr ? removeMessage(*node) : removeItem(*node);
    return neighbour;
}

Node* NodeRemoval::removeItem(Node& item) {
    Node* parent = item.parent();
    Node* neighbour = item.next() != nullptr ? item.next() : item.previous();
    window_.liveTree().remove(item);
    if (isList(*parent) && !hasVariableCount(*parent))
        window_.treeCommands.updateListCount(*parent);
    return neighbour != nullptr ? neighbour : parent;
}

Node* NodeRemoval::removeMessage(Node& root) {
    NodeTree& tree = window_.liveTree();
    Node* separator = separatorOf(root);
    Node* message = siblingAt(separator, 2);
    if (message == nullptr)
        return nullptr;
    Node* neighbour = siblingAt(separator, 3) != nullptr ? siblingAt(separator, 5) : separator->previous();
    tree.remove(*message);
    tree.remove(*separator->next());
    tree.remove(*separator);
    return neighbour != nullptr ? neighbour : tree.at(1);
}

} // namespace zb
