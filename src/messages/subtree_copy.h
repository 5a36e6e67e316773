#pragma once

namespace zb {

class MessageItemNames;
class Node;
class NodeTree;

enum class CopyOutcome {
    Whole,
    /// An item without a Text ends the copy; the part copied so far remains.
    Broken,
};

/// Copies everything below `source` to below `destination`, in order. The name of each item is made unique in
/// the message of the destination. All copies are expanded.
CopyOutcome copySubtree(const Node& source, Node& destination, NodeTree& destinationTree);
/// The same when the names of that message are known already, for many copies into one message. Those of the
/// copies are added to them.
CopyOutcome copySubtree(const Node& source, Node& destination, NodeTree& destinationTree,
                        MessageItemNames& names);

} // namespace zb
