#include "desktop/accessibility/accessible_tree.h"

#include "controls/tree.h"
#include "desktop/accessibility/accessible_node.h"
#include "desktop/models/node_tree_view.h"

#include <utility>

namespace zb {

namespace {

QAccessibleInterface* makeInterface(const QString& /*className*/, QObject* object) {
    auto* view = dynamic_cast<NodeTreeView*>(object);
    return view == nullptr ? nullptr : new AccessibleTree(*view); // Qt owns it
}

} // namespace

void AccessibleTree::install() {
    QAccessible::installFactory(&makeInterface);
}

void AccessibleTree::reportSelection(NodeTreeView& view) {
    if (!QAccessible::isActive())
        return;
    const auto* tree = dynamic_cast<AccessibleTree*>(QAccessible::queryAccessibleInterface(&view));
    QAccessibleInterface* selected = tree == nullptr ? nullptr : tree->focusChild();
    if (selected == nullptr)
        return;
    QAccessibleEvent event(selected, view.hasFocus() ? QAccessible::Focus : QAccessible::Selection);
    QAccessible::updateAccessibility(&event);
}

void AccessibleTree::reportMarks(NodeTreeView& view) {
    if (!QAccessible::isActive())
        return;
    QAccessibleEvent event(&view, QAccessible::SelectionWithin);
    QAccessible::updateAccessibility(&event);
}

AccessibleTree::AccessibleTree(NodeTreeView& view) : QAccessibleWidget(&view, QAccessible::Tree) {
    // The address of a node that goes may come back as that of another one.
    if (const QAbstractItemModel* model = view.model()) {
        const auto forget = [this] { forgetAll(); };
        QObject::connect(model, &QAbstractItemModel::rowsAboutToBeRemoved, &watch_, forget);
        QObject::connect(model, &QAbstractItemModel::modelAboutToBeReset, &watch_, forget);
        QObject::connect(model, &QAbstractItemModel::modelReset, &watch_, forget);
        QObject::connect(model, &QObject::destroyed, &watch_, forget);
    }
}

AccessibleTree::~AccessibleTree() {
    forgetAll();
}

void AccessibleTree::forgetAll() const {
    for (const auto& [node, id] : std::exchange(known_, {}))
        QAccessible::deleteAccessibleInterface(id);
}

NodeTreeView& AccessibleTree::view() const {
    return static_cast<NodeTreeView&>(*widget());
}

QAccessibleInterface* AccessibleTree::interfaceOf(const Node* node) const {
    if (node == nullptr)
        return nullptr;
    const auto found = known_.find(node);
    if (found != known_.end())
        return QAccessible::accessibleInterface(found->second);
    auto made = std::make_unique<AccessibleNode>(*this, *node);
    QAccessibleInterface* registered = made.get();
    known_[node] = QAccessible::registerAccessibleInterface(made.release()); // Qt owns it
    return registered;
}

QAccessible::State AccessibleTree::state() const {
    QAccessible::State state = QAccessibleWidget::state();
    state.focusable = view().focusPolicy() != Qt::NoFocus;
    return state;
}

int AccessibleTree::childCount() const {
    return view().model() == nullptr ? 0 : view().model()->rowCount();
}

QAccessibleInterface* AccessibleTree::child(int index) const {
    if (index < 0 || index >= childCount())
        return nullptr;
    return interfaceOf(NodeTreeModel::nodeOf(view().model()->index(index, 0)));
}

int AccessibleTree::indexOfChild(const QAccessibleInterface* child) const {
    const auto* node = dynamic_cast<const AccessibleNode*>(child);
    if (node == nullptr || node->node()->parent() != nullptr)
        return -1;
    return static_cast<const NodeTreeModel&>(*view().model()).rootRow(*node->node());
}

QAccessibleInterface* AccessibleTree::childAt(int x, int y) const {
    const QPoint place = view().viewport()->mapFromGlobal(QPoint(x, y));
    return view().viewport()->rect().contains(place) && view().model() != nullptr
               ? interfaceOf(view().nodeAt(place))
               : nullptr;
}

QAccessibleInterface* AccessibleTree::focusChild() const {
    if (view().model() == nullptr)
        return nullptr;
    return interfaceOf(static_cast<const NodeTreeModel&>(*view().model()).store().nodes().selected());
}

} // namespace zb
