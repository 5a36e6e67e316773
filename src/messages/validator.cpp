#include "messages/validator.h"

#include "platform/tree/node_tree.h"

namespace zb {

OptionalFault Validator::checkItemName(int index, NodeTree& tree) {
    Node* node = tree.at(index);
    if (node == nullptr)
        return std::nullopt;
    item_.parseText(node->text());
    if (OptionalFault fault = nameFault(item_, itemNames_))
        return fault;
    normalizeItem(*node, item_, codePage_);
    return std::nullopt;
}

OptionalFault Validator::checkItemValues(const NodeTree& tree, int index) {
    const Node* node = tree.at(index);
    return node == nullptr ? std::nullopt : valueFault(node->text(), node->children());
}

} // namespace zb
