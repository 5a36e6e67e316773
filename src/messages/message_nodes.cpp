#include "messages/message_nodes.h"

#include "platform/text.h"
#include "platform/tree/node_tree.h"
#include "platform/wildcard.h"

#include <utility>

namespace zb {

Node* siblingAt(Node* node, int steps) {
    for (; node != nullptr && steps > 0; --steps)
        node = node->next();
    for (; node != nullptr && steps < 0; ++steps)
        node = node->previous();
    return node;
}

MessageParts messageOf(Node& root) {
    if (hasColon(root.text()))
        return {root.previous(), &root};
    if (!root.text().empty() || (root.next() != nullptr && hasColon(root.next()->text())))
        return {&root, root.next()};
    return {root.next(), siblingAt(&root, 2)};
}

std::string_view nameInText(std::string_view nodeText) {
    return before(nodeText, ":");
}

Node& addMessageNodes(NodeTree& tree, Node* previous, std::string_view name, std::string text,
                      std::string description) {
    Node& separator = tree.add(previous, previous == nullptr ? Relation::Last : Relation::Next, {});
    Node& descriptionNode = tree.add(&separator, Relation::Next, std::move(description));
    descriptionNode.setBold(true);
    Node& message = tree.add(&descriptionNode, Relation::Next, std::move(text));
    tree.setKey(message, name);
    message.setExpanded(true);
    return message;
}

std::string_view wordAt(std::string_view text, int position) {
    for (; position > 0; --position) {
        const std::size_t blank = text.find(' ');
        if (blank == std::string_view::npos)
            return {};
        text.remove_prefix(blank + 1);
    }
    return before(text, " ");
}

bool isList(const Node& item) {
    return wordAt(item.text(), 0) == "L";
}

bool hasVariableCount(const Node& item) {
    return wordAt(item.text(), 1).ends_with('V');
}

} // namespace zb
