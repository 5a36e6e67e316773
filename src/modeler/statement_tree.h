#pragma once

#include "controls/tree.h"

#include <string>
#include <string_view>

namespace zb {

/// The statements of a TR item as a tree: chains of "if", "elif" and "else" whose branches hold a value or a
/// further chain. The tree control shows them, and its nodes are the statements.
class StatementTree {
public:
    explicit StatementTree(Tree& tree);

    /// Starts from the root node alone, and numbers the node keys from 1 again.
    void initStatementTree();
    /// Null before the tree has been initialised.
    Node* root() const { return tree_.nodes().firstRoot(); }

    /// What became of a statement that was dropped on a node.
    struct Added {
        Node* node = nullptr; ///< null when nothing was added
        std::string refusal;  ///< to be told to the user; empty when there is nothing to say
    };
    /// Adds a statement ("if", "elif" or "else") to the chain below `parent`. A new chain begins with an
    /// "if", which is added first where it is wanting.
    Added addStatement(Node& parent, std::string_view type);
    /// Adds the assignment behind all that stands below `parent`.
    Node& addValueNode(Node& parent, std::string text);
    /// Adds the statements that the text holds below the root. Lines at the same depth as the line before
    /// lose one character, whatever the depth: so it has always been read.
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
