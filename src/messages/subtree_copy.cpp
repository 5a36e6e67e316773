#include "messages/subtree_copy.h"

#include "messages/item_names.h"
#include "platform/tree/node_tree.h"
#include "platform/tree/node_walk.h"

namespace zb {

CopyOutcome copySubtree(const Node& source, Node& destination, NodeTree& destinationTree) {
    MessageItemNames names(destination);
    return copySubtree(source, destination, destinationTree, names);
}

// A parent is copied before its children, and these before its next sibling: the order decides which of two
// equal names is changed. The walk keeps its position in both trees and needs no stack, at any depth.
CopyOutcome copySubtree(const Node& source, Node& destination, NodeTree& destinationTree,
                        MessageItemNames& names) {
    Node* last = &destination;
    std::size_t lastLevel = 0; // of the copies; the destination is at 0
    for (NodeWalk walk(source); const Node* from = walk.node(); walk.next()) {
        const std::string text = names.uniqueItemText(from->text());
        if (text.empty())
            return CopyOutcome::Broken;
        for (; lastLevel > walk.depth(); --lastLevel)
            last = last->parent();
        last = &destinationTree.add(last, Relation::Child, text);
        ++lastLevel;
        last->setExpanded(true);
        names.add(itemNameInText(text));
    }
    return CopyOutcome::Whole;
}

} // namespace zb
