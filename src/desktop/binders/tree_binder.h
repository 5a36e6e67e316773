#pragma once

#include "desktop/binders/binder.h"

#include <QPoint>

class QMouseEvent;

namespace zb {

class NodeTreeModel;
class NodeTreeView;
class Tree;

/// A tree of nodes. A press selects, a release clicks, as the store tells it; the boxes open and close.
class TreeBinder final : public Binder {
public:
    TreeBinder(Tree& tree, NodeTreeView& view, Binding& binding);
    ~TreeBinder() override;

private:
    void show(Change change) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool viewportEvent(QEvent& event);
    bool keyPressed(QKeyEvent& event) override;
    bool moveByPage(QKeyEvent& event);
    bool openByKey(QKeyEvent& event);
    void mousePressed(const QMouseEvent& event);
    void mouseMoved(const QMouseEvent& event);
    void mouseReleased(const QMouseEvent& event);
    bool drops(QEvent& event);
    void scrollAtEdge(const QPoint& place);
    Target targetAt(const QPoint& place) const;

    Tree& tree_;
    NodeTreeView& view_;
    NodeTreeModel* model_;
    Target pressed_;
    int pressedIndex_ = 0;
    QPoint pressedAt_;
};

} // namespace zb
