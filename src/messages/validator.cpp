#include "messages/validator.h"

#include "controls/desktop.h"
#include "platform/tree/node_tree.h"

namespace zb {

void showDefinitionFault(const DefinitionFault& fault, NodeTree& tree, int index, Desktop& desktop) {
    if (Node* node = tree.at(index)) {
        tree.select(node);
        node->setBackColor(kErrorBackColor);
    }
    desktop.showBox(std::string(fault.text), fault.icon);
}

bool Validator::tellFault(const OptionalFault& fault, NodeTree& tree, int index) {
    if (fault)
        showDefinitionFault(*fault, tree, index, desktop_);
    return fault.has_value();
}

bool Validator::checkItemName(int index, NodeTree& tree) {
    Node* node = tree.at(index);
    if (node == nullptr)
        return false;
    SECSItemRecord item;
    item.parseText(node->text());
    if (tellFault(nameFault(item, itemNames_), tree, index))
        return true;
    if (!item.getName().empty())
        itemNames_.add(item.getName());
    normalizeItem(*node, item, codePage_);
    return false;
}

bool Validator::checkItemValues(NodeTree& tree, int index) {
    const Node* node = tree.at(index);
    return node != nullptr && tellFault(valueFault(node->text(), node->children()), tree, index);
}

bool Validator::checkNameChars(std::string_view name) {
    const OptionalFault fault = nameCharsFault(name);
    if (fault)
        desktop_.showBox(std::string(fault->text), fault->icon);
    return fault.has_value();
}

} // namespace zb
