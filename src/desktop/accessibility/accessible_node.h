#pragma once

#include <QAccessibleInterface>

namespace zb {

class AccessibleTree;
class Node;

/// A node of a tree view for screen readers. It becomes invalid when rows leave the tree.
class AccessibleNode final : public QAccessibleInterface {
public:
    AccessibleNode(const AccessibleTree& tree, const Node& node) : tree_(tree), node_(&node) {}

    const Node* node() const { return node_; }

    bool isValid() const override { return node_ != nullptr; }
    QObject* object() const override { return nullptr; }
    QWindow* window() const override;
    QAccessible::Role role() const override { return QAccessible::TreeItem; }
    QString text(QAccessible::Text text) const override;
    void setText(QAccessible::Text /*text*/, const QString& /*value*/) override {}
    QAccessible::State state() const override;
    QRect rect() const override;
    QAccessibleInterface* parent() const override;
    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }

private:
    bool isMarked() const;

    const AccessibleTree& tree_;
    const Node* node_;
};

} // namespace zb
