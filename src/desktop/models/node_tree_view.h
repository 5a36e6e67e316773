#pragma once

#include "desktop/models/node_tree_model.h"

#include <QAbstractItemView>

#include <optional>
#include <unordered_set>
#include <vector>

namespace zb {

/// Shows the nodes of a tree with lines and expansion boxes. All rows have the same height, and only the
/// visible part is laid out and painted, so that an edit of a tree with hundreds of thousands of expanded
/// nodes is cheap. It shows the expansion and the selection of the store; input is handled by the binder.
class NodeTreeView final : public QAbstractItemView, private NodeTreeWatcher {
public:
    explicit NodeTreeView(QWidget* parent = nullptr);

    void setNodes(NodeTreeModel& model);
    /// Other nodes are marked than before.
    void showMarks();
    void forgetNodes();
    /// The node at that position of the viewport; null below all nodes.
    Node* nodeAt(const QPoint& place) const;
    /// Whether the position is on the expansion box of the node.
    bool isOnBox(const Node& node, const QPoint& place) const;
    /// Scrolls to the selected node. Collapsed ancestors are shown expanded, but stay collapsed in the store.
    void showSelected();
    /// Shows collapsed ancestors of a node as expanded, and scrolls to it.
    void reveal(Node& node, ScrollHint hint = EnsureVisible);
    /// A position below all nodes; it may be outside the viewport.
    QPoint placeBelowAll() const;
    /// The user expands or collapses a node.
    void toggle(Node& node);
    /// Other nodes pass the filter of the tree.
    void filterChanged();
    /// Whether the children of a node are shown.
    bool isOpen(const Node& node) const;
    int rowsOfPage() const;
    /// The node so many rows below or above another one; the nearest end when there is none.
    Node* nodeBeside(const Node& node, int rows) const;

    QRect visualRect(const QModelIndex& index) const override;
    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;
    void doItemsLayout() override;
    QModelIndex indexAt(const QPoint& place) const override;
    void reset() override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void rowsInserted(const QModelIndex& parent, int start, int end) override;
    void rowsAboutToBeRemoved(const QModelIndex& parent, int start, int end) override;
    void dataChanged(const QModelIndex& from, const QModelIndex& to, const QList<int>& roles) override;
    void updateGeometries() override;
    void changeEvent(QEvent* event) override;
    bool viewportEvent(QEvent* event) override;

    QModelIndex moveCursor(CursorAction /*action*/, Qt::KeyboardModifiers /*modifiers*/) override {
        return {};
    }
    int horizontalOffset() const override;
    int verticalOffset() const override;
    bool isIndexHidden(const QModelIndex& /*index*/) const override { return false; }
    void setSelection(const QRect& /*rect*/, QItemSelectionModel::SelectionFlags /*flags*/) override {}
    QRegion visualRegionForSelection(const QItemSelection& /*selection*/) const override { return {}; }

private:
    void nodeWasExpanded(Node& node) override;
    void nodeLooksDifferent(Node& node) override;
    void selectionMoved() override;

    bool isShown(const Node& node) const;
    bool passesFilter(const Node& node) const;
    static const Node& rootOf(const Node& node);
    Node* nextShown(const Node& node, const Node& root) const;
    int shownRows(const Node& root) const;
    void forgetRowsOf(const Node& node);
    void takeAdded(Node& node);
    void layOut() const;
    void layOutLater();
    int rowCount() const;
    int rowHeight() const;
    int indentation() const;
    std::optional<int> rowOfNode(const Node& node) const;
    Node* nodeOfRow(int row) const;
    /// The node in the next row; null after the last one.
    const Node* nodeBelow(const Node& node) const;
    QRect boxRect(const Node& node, const QRect& row) const;
    int textLeft(const Node& node) const;
    void paintRow(QPainter& painter, const Node& node, const QRect& row);
    void paintLines(QPainter& painter, const Node& node, const QRect& row) const;
    void paintMark(QPainter& painter, const QRect& row) const;
    void paintBox(QPainter& painter, const Node& node, const QRect& row) const;
    void paintText(QPainter& painter, const Node& node, const QRect& row);
    void widenTo(int width);

    NodeTreeModel* nodes_ = nullptr;
    mutable std::vector<int> heights_; // rows of each root node and its expanded subtree; 0 when unknown
    mutable std::vector<int> starts_;  // row of each root node, and the total number of rows after them
    mutable bool laidOut_ = false;
    std::unordered_set<const Node*> openedToShow_;
    Node* added_ = nullptr; // the first one since the last layout
    Node* addedLast_ = nullptr;
    bool severalAdded_ = false;
    std::optional<int> unseenFrom_; // the scroll position before the moves since the last painting
    int widest_ = 0;
    bool withoutLines_ = false; // set by the form's property with that name
};

} // namespace zb
