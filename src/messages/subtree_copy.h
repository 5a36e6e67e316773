#pragma once

namespace zb {

class Node;
class NodeTree;

enum class CopyOutcome {
    Whole,
    /// An item without a Text ended the copy; what was copied by then stays.
    Broken,
};

/// Copies all that lies below `source` below `destination`, in order, each item with its name made unique in
/// the message of the destination. All copies are expanded.
CopyOutcome copySubtree(const Node& source, Node& destination, NodeTree& destinationTree);

} // namespace zb
