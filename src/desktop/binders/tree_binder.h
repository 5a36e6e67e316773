#pragma once

#include "desktop/binders/item_binder.h"

namespace zb {

class NodeTreeModel;
class NodeTreeView;
class Tree;

/// A tree of nodes. A press selects and a release clicks, as the store reports; the boxes expand and
/// collapse.
class TreeBinder final : public ItemBinder {
public:
    TreeBinder(Tree& tree, NodeTreeView& view, Binding& binding);
    ~TreeBinder() override;

private:
    void show(Change change) override;
    bool keyPressed(QKeyEvent& event) override;
    bool moveByPage(const QKeyEvent& event);
    bool openByKey(const QKeyEvent& event);
    void pressOnBox(Node& node);
    bool keptByView(const QMouseEvent& event) override;

    Target targetAt(const QPoint& place) const override;
    Target selectedTarget() const override;
    QRect placeOf(const Target& target) const override;
    QStringList selectedTexts() const override;
    bool startsDrags() const override;
    bool takesDrops() const override;
    bool takesDoubleClicks() const override;

    Tree& tree_;
    NodeTreeView& view_;
    NodeTreeModel* model_;
};

} // namespace zb
