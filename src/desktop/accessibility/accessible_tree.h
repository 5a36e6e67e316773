#pragma once

#include <QAccessibleWidget>
#include <QObject>

#include <unordered_map>

namespace zb {

class Node;
class NodeTreeView;

/// What a screen reader finds in a tree view: the nodes as a hierarchy, each with its text, its state and its
/// place. The level of a node is the number of nodes above it, its position in its set the place among the
/// children of its parent. Nodes get their interfaces when they are asked for.
class AccessibleTree final : public QAccessibleWidget {
public:
    explicit AccessibleTree(NodeTreeView& view);
    ~AccessibleTree() override;

    /// Makes Qt find the interface of every tree view. Further calls do nothing.
    static void install();
    /// Reports that another node has been selected, when a screen reader listens.
    static void reportSelection(NodeTreeView& view);
    /// Other nodes are marked than before.
    static void reportMarks(NodeTreeView& view);

    NodeTreeView& view() const;
    /// Null for no node.
    QAccessibleInterface* interfaceOf(const Node* node) const;

    QAccessible::State state() const override;
    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    QAccessibleInterface* focusChild() const override;

private:
    void forgetAll() const;

    mutable std::unordered_map<const Node*, QAccessible::Id> known_;
    QObject watch_; // ends what the interface hears from the model with it
};

} // namespace zb
