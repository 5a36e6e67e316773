#include "editor/subtree_copy.h"

#include "editor/item_names.h"
#include "platform/tree/node_tree.h"

namespace zb {

// A parent is copied before its children and these before its next sibling: the order decides which of two
// equal names is changed. The walk keeps its place in both trees at once and needs no stack, however deep
// they are.
CopyOutcome copySubtree(const Node& source, Node& destination, NodeTree& destinationTree) {
    MessageItemNames names(destination);
    const Node* from = source.child();
    Node* parent = &destination;
    while (from != nullptr) {
        const std::string text = names.uniqueItemText(from->text());
        if (text.empty())
            return CopyOutcome::Broken;
        Node& copy = destinationTree.add(parent, Relation::Child, text);
        copy.setExpanded(true);
        names.add(itemNameInText(text));
        if (from->child() != nullptr) {
            from = from->child();
            parent = &copy;
            continue;
        }
        while (from != &source && from->next() == nullptr) {
            from = from->parent();
            if (from != &source)
                parent = parent->parent();
        }
        from = from == &source ? nullptr : from->next();
    }
    return CopyOutcome::Whole;
}

} // namespace zb
