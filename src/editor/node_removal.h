#pragma once

#include <vector>

namespace zb {

class frmSECSEditor;
class Node;

/// Removes messages, each with its three root nodes, and items from the message tree. The names of the window
/// and the counts of lists follow.
class NodeRemoval {
public:
    explicit NodeRemoval(frmSECSEditor& window) : window_(window) {}

    /// Returns the node to select next; null for none. Of a message any root node may be given.
    /// @{
    Node* remove(Node& node);
    Node* remove(const std::vector<Node*>& nodes);
    /// @}

private:
    Node* removeItem(Node& item);
    Node* removeMessage(Node& root);

    frmSECSEditor& window_;
};

} // namespace zb
