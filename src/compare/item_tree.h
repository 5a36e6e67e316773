#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace zb {

/// The items of a message or of a data block, or the rows of a sequence. The nodes are in the order of the
/// text, each before its sub items, so that a subtree is a run of nodes; trees may have any depth.
class ItemTree {
public:
    /// The node above the direct items; it has no text.
    static constexpr std::size_t kRoot = 0;

    struct Node {
        std::string text;
        std::size_t parent = kRoot;
        std::size_t depth = 0; ///< 0 for the root
        std::vector<std::size_t> children;

        bool operator==(const Node&) const = default;
    };

    ItemTree() : nodes_(1) {}

    /// Adds a node after all others, below the last node or one of the nodes above that.
    std::size_t add(std::size_t parent, std::string text);
    /// Adds a node by its level, 1 for a direct item. A level that skips some goes below the last node.
    std::size_t addAtLevel(std::size_t level, std::string text);
    void setText(std::size_t node, std::string text) { nodes_[node].text = std::move(text); }

    /// With the root.
    std::size_t count() const { return nodes_.size(); }
    bool empty() const { return nodes_.size() == 1; }
    const Node& at(std::size_t node) const { return nodes_[node]; }
    /// The node after the last one of each subtree.
    std::vector<std::size_t> subtreeEnds() const;
    /// The positions from the root to the node, from 1, joined by "/".
    std::string path(std::size_t node) const;
    /// The lines of a subtree in project form, joined by LF, the first one without indentation.
    std::string subtreeText(std::size_t node) const;

    bool operator==(const ItemTree&) const = default;

private:
    std::vector<Node> nodes_;
};

/// The lines of all items in project form, joined by LF.
std::string shownItems(const ItemTree& tree);

/// A fixed list whose count is the number of its sub items: the count follows the sub items, and is no
/// difference of its own.
bool countFollowsItems(const ItemTree& tree, std::size_t node);
/// The Text of an item with a mark instead of a count that follows the sub items.
std::string textWithoutFollowingCount(const ItemTree& tree, std::size_t node);
/// The inverse, for a list of so many sub items; any other text is unchanged.
std::string textWithCount(std::string_view text, std::size_t subItems);

} // namespace zb
