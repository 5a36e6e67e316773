#pragma once

#include "platform/tree/node.h"

#include <cstddef>

namespace zb {

/// The node that follows the subtree of `node`, within that of `root`; null after the last one.
inline Node* nextBeside(const Node& node, const Node& root) {
    const Node* at = &node;
    while (at != &root && at->next() == nullptr)
        at = at->parent();
    return at == &root ? nullptr : at->next();
}

/// The next node below `root` from the top down, without recursion: trees may have any depth.
inline Node* nextBelow(const Node& node, const Node& root) {
    return node.child() != nullptr ? node.child() : nextBeside(node, root);
}

/// A walk through all nodes below a root from the top down that knows how deep it is:
///
///     for (NodeWalk walk(root); const Node* node = walk.node(); walk.next())
///
/// Nodes may be added elsewhere meanwhile; the current node and its ancestors must stay.
class NodeWalk {
public:
    explicit NodeWalk(const Node& root) : root_(root), node_(root.child()) {}

    /// Null after the last node.
    Node* node() const { return node_; }
    /// How many nodes are between the root and this one; 0 for a child of the root.
    std::size_t depth() const { return depth_; }

    void next() {
        if (node_->child() != nullptr) {
            node_ = node_->child();
            ++depth_;
            return;
        }
        while (node_->next() == nullptr) {
            node_ = node_->parent();
            if (node_ == &root_) {
                node_ = nullptr;
                return;
            }
            --depth_;
        }
        node_ = node_->next();
    }

private:
    const Node& root_;
    Node* node_;
    std::size_t depth_ = 0;
};

} // namespace zb
