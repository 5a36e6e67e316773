#pragma once

#include "controls/tree.h"

#include <string>
#include <string_view>

namespace zb {

/// The statements of a TR item as a tree: chains of "if", "elif" and "else" whose branches contain a value or
/// another chain. The tree control shows them, and its nodes are the statements.
class StatementTree {
public:
    explicit StatementTree(Tree& tree);

    /// Resets the tree to its root node and numbers the node keys from 1 again.
    void initStatementTree();
    /// Null before the tree has been initialised.
    Node* root() const { return tree_.nodes().firstRoot(); }

    /// The last number that a node key got.
    int keyCounter() const { return keyCounter_; }
    void setKeyCounter(int number) { keyCounter_ = number; }

    /// The result of dropping a statement on a node.
    struct Added {
        Node* node = nullptr; ///< null when nothing was added
        std::string refusal;  ///< a message for the user; empty when there is none
    };
    /// Adds a statement ("if", "elif" or "else") to the chain below `parent`. A new chain begins with an
    /// "if", which is added first when it is missing.
    Added addStatement(Node& parent, std::string_view type);
    /// Adds the assignment after all nodes below `parent`.
    Node& addValueNode(Node& parent, std::string text);
    /// Adds the statements of the text below the root. Lines at the same depth as the line before lose one
    /// character at any depth; files have always been read so.
    void showStatementText(std::string_view text);

private:
    Node& addStatementNode(Node& parent, std::string_view type);
    Node& addNode(Node& parent, std::string text, std::string_view image);
    void markStatementNode(Node& node);
    std::string newNodeKey();

    Tree& tree_;
    int keyCounter_ = 0;
};

} // namespace zb
