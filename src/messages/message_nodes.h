#pragma once

#include "platform/tree/node.h"

#include <string>
#include <string_view>

namespace zb {

class NodeTree;

// A message has three root nodes: a blank separator, a bold description, and the MessageNode, whose Text
// contains a colon. The kind of a root node follows from the Texts alone. Trees from a damaged file may lack
// some of them; every link here may therefore be null.

/// The root node above an item, or the root node itself.
template<typename AnyNode>
AnyNode& rootOf(AnyNode& node) {
    AnyNode* root = &node;
    while (root->parent() != nullptr)
        root = root->parent();
    return *root;
}

/// The node `steps` siblings after (below 0: before) `node`; null past either end.
Node* siblingAt(Node* node, int steps);

struct MessageParts {
    Node* description = nullptr;
    Node* message = nullptr;
};

/// The message that a root node belongs to.
MessageParts messageOf(Node& root);

/// The name of a MessageNode: its Text before the first colon.
std::string_view nameInText(std::string_view nodeText);

/// Adds separator, description and MessageNode after `previous` (null: at the end of the tree) and returns
/// the last.
Node& addMessageNodes(NodeTree& tree, Node* previous, std::string_view name, std::string text,
                      std::string description);

/// The words of a node's Text; the word at `position`, empty past the end.
std::string_view wordAt(std::string_view text, int position);

/// An item's Text whose first word is "L".
bool isList(const Node& item);
/// An item's Text whose count ends in "V".
bool hasVariableCount(const Node& item);

} // namespace zb
