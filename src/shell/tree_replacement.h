#pragma once

namespace zb {

class NodeTree;

/// Makes the tree show what another one shows, with few changes: nodes that are in both, with all that is
/// below them, stay the same ones, with their marks, their expansion and the selection. Texts, Keys, bold
/// type, pictures and order are afterwards those of the other tree; flat positions of new nodes come last.
void replaceNodes(NodeTree& tree, const NodeTree& wanted);

} // namespace zb
