#pragma once

#include <vector>

namespace zb {

class frmSECSEditor;
class Node;

enum class NodeMove { Up, Down, Out, In };

/// Moves the marked or, without marks, the selected messages and items of the tree: up and down among their
/// siblings, and items also out of the list that they are in and into the list above them. Selection and
/// marks go with them. What cannot move stays, without a word.
class NodeMoves {
public:
    explicit NodeMoves(frmSECSEditor& window) : window_(window) {}

    /// Whether at least one node would move.
    bool isPossible(NodeMove way) const;
    void move(NodeMove way);

private:
    /// What moves, in the order of the tree.
    std::vector<Node*> units() const;
    bool isPossible(const Node& unit, NodeMove way) const;
    /// Returns the moved ones in their order; those that are blocked stay.
    std::vector<Node*> moveUnits(const std::vector<Node*>& units, NodeMove way);
    Node* moveUnit(Node& unit, NodeMove way);
    Node* moveMessage(Node& message, NodeMove way);
    Node* moveItem(Node& item, NodeMove way);

    frmSECSEditor& window_;
};

} // namespace zb
