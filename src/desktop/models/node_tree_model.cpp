#include "desktop/models/node_tree_model.h"

#include "controls/tree.h"
#include "desktop/colors.h"
#include "desktop/pictures/pictures.h"
#include "desktop/qt_text.h"

#include <QBrush>
#include <QFont>

#include <algorithm>

namespace zb {

NodeTreeModel::NodeTreeModel(Tree& store, const Pictures& pictures, QObject* parent)
    : QAbstractItemModel(parent), store_(store), pictures_(pictures) {
    store_.setListener(this);
    store_.onReplaced = [this] {
        beginResetModel();
        rereadRoots();
        endResetModel();
    };
    rereadRoots();
}

NodeTreeModel::~NodeTreeModel() = default;

void NodeTreeModel::showNothing() {
    roots_.clear();
    rootRows_.clear();
    last_ = {};
}

void NodeTreeModel::rereadRoots() {
    showNothing();
    for (Node* node = store_.nodes().firstRoot(); node != nullptr; node = node->next())
        roots_.push_back(node);
}

int NodeTreeModel::rootRow(const Node& root) const {
    const auto hint = rootRows_.find(&root);
    if (hint != rootRows_.end() && hint->second < static_cast<int>(roots_.size()) &&
        roots_[static_cast<std::size_t>(hint->second)] == &root)
        return hint->second;
    const int row = static_cast<int>(std::find(roots_.begin(), roots_.end(), &root) - roots_.begin());
    rootRows_[&root] = row;
    return row;
}

int NodeTreeModel::rowOf(const Node& node) const {
    if (node.parent() == nullptr)
        return rootRow(node);
    if (last_.node == &node && last_.parent == node.parent())
        return last_.row;
    int row = 0;
    for (const Node* before = node.previous(); before != nullptr; before = before->previous())
        ++row;
    return row;
}

QModelIndex NodeTreeModel::indexOf(const Node* node) const {
    return node == nullptr ? QModelIndex() : createIndex(rowOf(*node), 0, node);
}

QModelIndex NodeTreeModel::index(int row, int column, const QModelIndex& parent) const {
    if (row < 0 || column != 0 || row >= rowCount(parent))
        return {};
    if (!parent.isValid())
        return createIndex(row, 0, roots_[static_cast<std::size_t>(row)]);
    const Node* above = nodeOf(parent);
    // Views request rows in order; walking on from the last one keeps that linear.
    LastChild at{above, 0, above->child()};
    if (last_.parent == above && last_.row <= row)
        at = last_;
    while (at.row < row && at.node != nullptr) {
        at.node = at.node->next();
        ++at.row;
    }
    last_ = at;
    return at.node == nullptr ? QModelIndex() : createIndex(row, 0, at.node);
}

QModelIndex NodeTreeModel::parent(const QModelIndex& child) const {
    return child.isValid() ? indexOf(nodeOf(child)->parent()) : QModelIndex();
}

int NodeTreeModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? nodeOf(parent)->children() : static_cast<int>(roots_.size());
}

QVariant NodeTreeModel::data(const QModelIndex& index, int role) const {
    return index.isValid() ? lookOf(*nodeOf(index), role) : QVariant();
}

QVariant NodeTreeModel::lookOf(const Node& node, int role) const {
    switch (role) {
    case Qt::DisplayRole:
    case Qt::AccessibleTextRole:
        return toQt(node.text());
    case Qt::BackgroundRole:
        return node.backColor() ? QBrush(shaded(*node.backColor())) : QVariant();
    case Qt::ForegroundRole:
        return isOrdinary(node.foreColor()) ? QVariant()
                                            : QBrush(readable(*node.foreColor(), node.backColor()));
    case Qt::FontRole: {
        QFont font;
        font.setBold(true);
        return node.bold() ? font : QVariant();
    }
    case Qt::DecorationRole:
        return node.image().empty() ? QVariant() : pictures_.icon(node.image());
    default:
        return {};
    }
}

int NodeTreeModel::rowAfter(const Node* parent, const Node* previous) const {
    if (previous == nullptr)
        return 0;
    if (parent != nullptr)
        return previous == parent->lastChild() ? parent->children() : rowOf(*previous) + 1;
    return roots_.back() == previous ? static_cast<int>(roots_.size()) : rootRow(*previous) + 1;
}

void NodeTreeModel::beforeInsert(Node* parent, Node* previous) {
    insertedRow_ = rowAfter(parent, previous);
    beginInsertRows(indexOf(parent), insertedRow_, insertedRow_);
}

void NodeTreeModel::afterInsert(Node& node) {
    last_ = {};
    if (node.parent() == nullptr) {
        roots_.insert(roots_.begin() + insertedRow_, &node);
        rootRows_[&node] = insertedRow_;
    }
    endInsertRows();
}

void NodeTreeModel::beforeRemove(Node& node) {
    const int row = rowOf(node);
    beginRemoveRows(indexOf(node.parent()), row, row);
    last_ = {};
    if (node.parent() == nullptr) {
        roots_.erase(roots_.begin() + row);
        rootRows_.erase(&node);
    }
}

void NodeTreeModel::afterRemove() {
    last_ = {};
    endRemoveRows();
}

void NodeTreeModel::nodeChanged(Node& node) {
    if (watcher_ != nullptr)
        watcher_->nodeLooksDifferent(node);
}

void NodeTreeModel::nodeExpanded(Node& node) {
    if (watcher_ != nullptr)
        watcher_->nodeWasExpanded(node);
}

void NodeTreeModel::selectionChanged() {
    if (watcher_ != nullptr)
        watcher_->selectionMoved();
}

void NodeTreeModel::allChanged() {
    if (!roots_.empty())
        emit dataChanged(indexOf(roots_.front()), indexOf(roots_.back()));
}

// The tree may be painted while it is being filled; it shows nothing then.
void NodeTreeModel::beforeFill() {
    beginResetModel();
    showNothing();
    endResetModel();
}

void NodeTreeModel::afterFill() {
    beginResetModel();
    rereadRoots();
    endResetModel();
}

} // namespace zb
