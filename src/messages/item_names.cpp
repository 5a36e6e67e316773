#include "messages/item_names.h"

#include "messages/item_record.h"
#include "messages/message_nodes.h"
#include "platform/text.h"
#include "platform/tree/node.h"
#include "platform/tree/node_walk.h"

namespace zb {

std::string_view itemNameInText(std::string_view itemText) {
    const std::string_view word = wordAt(itemText, 2);
    if (word.empty() || !isItemName(wordAt(itemText, 0), word))
        return {};
    return word;
}

MessageItemNames::MessageItemNames(const Node& nodeOfMessage) {
    collectItemNames(rootOf(nodeOfMessage));
}

void MessageItemNames::add(std::string_view name) {
    if (!name.empty())
        names_.emplace(name);
}

std::string MessageItemNames::uniqueItemName(std::string_view name) {
    std::string& unique = lastMade_.try_emplace(std::string(name), name).first->second;
    while (holds(unique))
        unique += '1';
    return unique;
}

std::string MessageItemNames::uniqueItemText(std::string_view itemText) {
    const std::string name(itemNameInText(itemText));
    if (name.empty())
        return std::string(itemText);
    return replaceAll(itemText, " " + name + " ", " " + uniqueItemName(name) + " ");
}

/// Without recursion, for messages of any depth.
void MessageItemNames::collectItemNames(const Node& root) {
    for (const Node* node = root.child(); node != nullptr; node = nextBelow(*node, root))
        add(itemNameInText(node->text()));
}

} // namespace zb
