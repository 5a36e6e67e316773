#pragma once

#include "platform/tree/node_tree.h"

#include <QAbstractItemModel>

#include <unordered_map>
#include <vector>

namespace zb {

class Pictures;
class Tree;

/// Changes of interest to a view of the nodes other than changes of rows.
class NodeTreeWatcher {
public:
    virtual ~NodeTreeWatcher() = default;
    virtual void nodeWasExpanded(Node& node) = 0;
    /// A node shows another text, colour or picture. Changes come by the hundred thousand, and the row of one
    /// among many is slow to find out, so `dataChanged` reports only changes of all nodes.
    virtual void nodeLooksDifferent(Node& node) = 0;
    virtual void selectionMoved() = 0;
};

/// The nodes of a tree store as a model. Nodes stay in the store; the model only keeps the positions of the
/// nodes of the root level, which a linked list cannot provide fast enough for a project of ten thousand
/// messages.
class NodeTreeModel final : public QAbstractItemModel, public NodeTreeListener {
public:
    NodeTreeModel(Tree& store, const Pictures& pictures, QObject* parent);
    ~NodeTreeModel() override;

    void setWatcher(NodeTreeWatcher* watcher) { watcher_ = watcher; }
    Tree& store() const { return store_; }
    static Node* nodeOf(const QModelIndex& index) { return static_cast<Node*>(index.internalPointer()); }
    QModelIndex indexOf(const Node* node) const;
    /// The nodes of the root level in order, and the position of a node among them.
    const std::vector<Node*>& roots() const { return roots_; }
    int rootRow(const Node& root) const;

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& /*parent*/ = {}) const override { return 1; }
    bool hasChildren(const QModelIndex& parent = {}) const override { return rowCount(parent) > 0; }
    QVariant data(const QModelIndex& index, int role) const override;
    /// What the data of the node's row are, for a view that has the node: the row is not looked up.
    QVariant lookOf(const Node& node, int role) const;

private:
    void beforeInsert(Node* parent, Node* previous) override;
    void afterInsert(Node& node) override;
    void beforeRemove(Node& node) override;
    void afterRemove() override;
    void nodeChanged(Node& node) override;
    void nodeExpanded(Node& node) override;
    void selectionChanged() override;
    void allChanged() override;
    void beforeFill() override;
    void afterFill() override;

    void showNothing();
    void rereadRoots();
    int rowOf(const Node& node) const;
    int rowAfter(const Node* parent, const Node* previous) const;

    Tree& store_;
    const Pictures& pictures_;
    NodeTreeWatcher* watcher_ = nullptr;
    std::vector<Node*> roots_;
    mutable std::unordered_map<const Node*, int> rootRows_; // hints: valid only when `roots_` agrees
    struct LastChild {
        const Node* parent = nullptr;
        int row = 0;
        Node* node = nullptr;
    };
    mutable LastChild last_;
    int insertedRow_ = 0;
};

} // namespace zb
