#include "desktop/accessibility/accessible_node.h"

#include "controls/tree.h"
#include "desktop/accessibility/accessible_tree.h"
#include "desktop/models/node_tree_view.h"
#include "desktop/qt_text.h"

namespace zb {

namespace {

QModelIndex indexOf(const NodeTreeView& view, const Node& node) {
    return static_cast<const NodeTreeModel&>(*view.model()).indexOf(&node);
}

} // namespace

QWindow* AccessibleNode::window() const {
    return tree_.window();
}

QString AccessibleNode::text(QAccessible::Text text) const {
    if (text == QAccessible::Description)
        return isMarked() ? QStringLiteral("marked") : QString();
    return text == QAccessible::Name ? toQt(node_->text()) : QString();
}

bool AccessibleNode::isMarked() const {
    const auto& model = static_cast<const NodeTreeModel&>(*tree_.view().model());
    return model.store().marks().holds(*node_);
}

QAccessible::State AccessibleNode::state() const {
    const NodeTreeView& view = tree_.view();
    QAccessible::State state;
    const bool isSelected =
        static_cast<const NodeTreeModel&>(*view.model()).store().nodes().selected() == node_;
    state.disabled = !view.isEnabled();
    state.selectable = true;
    state.focusable = true;
    state.selected = isSelected || isMarked();
    state.multiSelectable =
        static_cast<bool>(static_cast<const NodeTreeModel&>(*view.model()).store().onMarking);
    state.focused = isSelected && view.hasFocus();
    state.expandable = node_->child() != nullptr;
    state.expanded = state.expandable && view.isOpen(*node_);
    state.collapsed = state.expandable && !state.expanded;
    const QRect place = view.visualRect(indexOf(view, *node_));
    state.offscreen = !view.viewport()->rect().intersects(place);
    state.invisible = place.isNull();
    return state;
}

QRect AccessibleNode::rect() const {
    const NodeTreeView& view = tree_.view();
    const QRect place = view.visualRect(indexOf(view, *node_));
    return place.isNull() ? QRect() : QRect(view.viewport()->mapToGlobal(place.topLeft()), place.size());
}

QAccessibleInterface* AccessibleNode::parent() const {
    return node_->parent() == nullptr ? QAccessible::queryAccessibleInterface(&tree_.view())
                                      : tree_.interfaceOf(node_->parent());
}

int AccessibleNode::childCount() const {
    return node_->children();
}

QAccessibleInterface* AccessibleNode::child(int index) const {
    const QModelIndex below = tree_.view().model()->index(index, 0, indexOf(tree_.view(), *node_));
    return below.isValid() ? tree_.interfaceOf(NodeTreeModel::nodeOf(below)) : nullptr;
}

int AccessibleNode::indexOfChild(const QAccessibleInterface* child) const {
    const auto* other = dynamic_cast<const AccessibleNode*>(child);
    if (other == nullptr || other->node()->parent() != node_)
        return -1;
    return indexOf(tree_.view(), *other->node()).row();
}

} // namespace zb
