#pragma once

#include "platform/tree/node_tree.h"

namespace zb {

/// Adds a copy of a node with all below it, alike in everything but the Key.
Node& copyExactly(const Node& source, NodeTree& tree, Node* relative, Relation relation);

/// Adds such copies of all nodes of a tree at the end of another one.
void copyAll(const NodeTree& from, NodeTree& to);

} // namespace zb
