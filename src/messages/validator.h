#pragma once

#include "messages/definition_rules.h"
#include "messages/item_normalizer.h"

#include <string_view>

namespace zb {

class CodePage;
class Desktop;
class NodeTree;

/// Checks items of the tree on the user's behalf: a fault selects and marks its node and is shown in a box.
/// All checks answer whether there is a fault.
class Validator {
public:
    Validator(Desktop& desktop, const CodePage& codePage) : desktop_(desktop), codePage_(codePage) {}

    /// Forgets the names of the message before.
    void beginMessage() { itemNames_.clear(); }
    /// Also normalizes the item when its name is good.
    bool checkItemName(int index, NodeTree& tree);
    bool checkItemValues(NodeTree& tree, int index);
    bool checkNameChars(std::string_view name);

private:
    bool tellFault(const OptionalFault& fault, NodeTree& tree, int index);

    Desktop& desktop_;
    const CodePage& codePage_;
    ItemNames itemNames_;
};

/// Selects and marks a node, then shows what is wrong with it.
void showDefinitionFault(const DefinitionFault& fault, NodeTree& tree, int index, Desktop& desktop);

} // namespace zb
