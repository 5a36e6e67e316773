#pragma once

#include "platform/tree/node_tree.h"

#include <functional>
#include <unordered_set>
#include <vector>

namespace zb {

/// The nodes of a tree that are marked beside the selected one. A mark goes with its node, and all marks go
/// when the selection moves to a node without one, or when many changes come at once.
class TreeMarks final : public NodeTreeListener {
public:
    /// Whose selection counts.
    void follow(const NodeTree& tree) { tree_ = &tree; }

    bool empty() const { return marked_.empty(); }
    /// In no order.
    const std::unordered_set<const Node*>& all() const { return marked_; }
    bool holds(const Node& node) const { return marked_.contains(&node); }
    /// These nodes are marked from now on, and no others.
    void set(const std::vector<Node*>& nodes);
    void clear() { set({}); }

    /// The node that is selected next keeps the marks, even without a mark of its own.
    void keepFor(const Node& node) { keptFor_ = &node; }

    /// There are other marks than before.
    std::function<void()> onChange;
    /// Another node is selected, or none.
    std::function<void()> onSelected;

private:
    void beforeRemove(Node& node) override;
    void selectionChanged() override;
    void beforeFill() override { clear(); }

    std::unordered_set<const Node*> marked_;
    const Node* keptFor_ = nullptr; // never looked into
    const NodeTree* tree_ = nullptr;
};

} // namespace zb
