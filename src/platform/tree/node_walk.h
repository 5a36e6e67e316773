#pragma once

#include "platform/tree/node.h"

namespace zb {

/// The node that follows behind the subtree of `node`, within that of `root`; null behind the last one.
inline Node* nextBeside(const Node& node, const Node& root) {
    const Node* at = &node;
    while (at != &root && at->next() == nullptr)
        at = at->parent();
    return at == &root ? nullptr : at->next();
}

/// The next node below `root` from the top down, without recursion: trees may be of any depth.
inline Node* nextBelow(const Node& node, const Node& root) {
    return node.child() != nullptr ? node.child() : nextBeside(node, root);
}

} // namespace zb
