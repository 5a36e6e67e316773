#include "desktop/models/node_tree_view.h"

#include "controls/tree.h"
#include "desktop/accessibility/accessible_tree.h"
#include "desktop/plain_labels.h"
#include "desktop/qt_text.h"
#include "desktop/shown_text.h"
#include "platform/tree/node_walk.h"

#include <QEvent>
#include <QHelpEvent>
#include <QScrollBar>
#include <QToolTip>

#include <algorithm>
#include <utility>

namespace zb {

namespace {

constexpr int kRowPadding = 4;

} // namespace

NodeTreeView::NodeTreeView(QWidget* parent) : QAbstractItemView(parent) {
    setHorizontalScrollMode(ScrollPerPixel);
    setVerticalScrollMode(ScrollPerItem);
    setMouseTracking(false);
}

bool NodeTreeView::isOpen(const Node& node) const {
    return node.expanded() || openedToShow_.contains(&node);
}

bool NodeTreeView::isShown(const Node& node) const {
    if (!passesFilter(node))
        return false;
    for (const Node* above = node.parent(); above != nullptr; above = above->parent()) {
        if (!isOpen(*above) || !passesFilter(*above))
            return false;
    }
    return true;
}

bool NodeTreeView::passesFilter(const Node& node) const {
    return nodes_->store().shows(node);
}

void NodeTreeView::filterChanged() {
    heights_.assign(heights_.size(), 0);
    layOutLater();
    viewport()->update();
}

const Node& NodeTreeView::rootOf(const Node& node) {
    const Node* at = &node;
    while (at->parent() != nullptr)
        at = at->parent();
    return *at;
}

Node* NodeTreeView::nextShown(const Node& node, const Node& root) const {
    Node* next = node.child() != nullptr && isOpen(node) ? node.child() : nextBeside(node, root);
    while (next != nullptr && !passesFilter(*next))
        next = nextBeside(*next, root);
    return next;
}

int NodeTreeView::shownRows(const Node& root) const {
    int rows = 0;
    for (const Node* node = &root; node != nullptr; node = nextShown(*node, root))
        ++rows;
    return rows;
}

void NodeTreeView::toggle(Node& node) {
    const bool wasOpen = isOpen(node);
    openedToShow_.erase(&node);
    node.setExpanded(!wasOpen);
    forgetRowsOf(node);
}

void NodeTreeView::setNodes(NodeTreeModel& model) {
    nodes_ = &model;
    withoutLines_ = property("withoutLines").toBool();
    setModel(&model);
    model.setWatcher(this);
    reset();
}

void NodeTreeView::forgetNodes() {
    nodes_ = nullptr;
    setModel(nullptr);
}

void NodeTreeView::reset() {
    QAbstractItemView::reset();
    heights_.assign(nodes_ == nullptr ? 0 : nodes_->roots().size(), 0);
    openedToShow_.clear();
    added_ = nullptr;
    addedLast_ = nullptr;
    widest_ = 0;
    layOutLater();
}

int NodeTreeView::rowHeight() const {
    return std::max(fontMetrics().height() + kRowPadding, 18);
}

int NodeTreeView::indentation() const {
    return rowHeight();
}

void NodeTreeView::layOutLater() {
    laidOut_ = false;
    scheduleDelayedItemsLayout();
}

void NodeTreeView::layOut() const {
    if (laidOut_ || nodes_ == nullptr)
        return;
    laidOut_ = true;
    const auto& roots = nodes_->roots();
    heights_.resize(roots.size(), 0);
    starts_.resize(roots.size() + 1);
    int row = 0;
    for (std::size_t i = 0; i < roots.size(); ++i) {
        if (heights_[i] == 0)
            heights_[i] = shownRows(*roots[i]);
        starts_[i] = row;
        row += heights_[i];
    }
    starts_[roots.size()] = row;
}

int NodeTreeView::rowCount() const {
    layOut();
    return starts_.empty() ? 0 : starts_.back();
}

std::optional<int> NodeTreeView::rowOfNode(const Node& node) const {
    if (!isShown(node))
        return std::nullopt;
    layOut();
    const Node& root = rootOf(node);
    const auto place = static_cast<std::size_t>(nodes_->rootRow(root));
    if (place >= nodes_->roots().size())
        return std::nullopt;
    int row = starts_[place];
    for (const Node* at = &root; at != nullptr && at != &node; at = nextShown(*at, root))
        ++row;
    return row;
}

Node* NodeTreeView::nodeOfRow(int row) const {
    if (row < 0 || row >= rowCount())
        return nullptr;
    const auto nextRoot = std::upper_bound(starts_.begin(), starts_.end(), row);
    const auto place = static_cast<std::size_t>(nextRoot - starts_.begin()) - 1;
    Node* node = nodes_->roots()[place];
    const Node& root = *node;
    for (int at = starts_[place]; at < row && node != nullptr; ++at)
        node = nextShown(*node, root);
    return node;
}

void NodeTreeView::forgetRowsOf(const Node& node) {
    const auto place = static_cast<std::size_t>(nodes_->rootRow(rootOf(node)));
    if (place < heights_.size())
        heights_[place] = 0;
    layOutLater();
}

void NodeTreeView::rowsInserted(const QModelIndex& parent, int start, int end) {
    if (parent.isValid())
        forgetRowsOf(*NodeTreeModel::nodeOf(parent));
    else
        heights_.insert(heights_.begin() + start, static_cast<std::size_t>(end - start) + 1, 0);
    takeAdded(*NodeTreeModel::nodeOf(nodes_->index(start, 0, parent)));
    layOutLater();
}

void NodeTreeView::takeAdded(Node& node) {
    if (severalAdded_) {
        addedLast_ = &node;
        return;
    }
    // Nodes come in order, so that no walk up a deep tree is needed for most.
    const Node* before = std::exchange(addedLast_, &node);
    if (before != nullptr &&
        (node.parent() == before || (before != added_ && node.parent() == before->parent())))
        return;
    for (const Node* above = node.parent(); above != nullptr; above = above->parent()) {
        if (above == added_)
            return;
    }
    severalAdded_ = added_ != nullptr;
    if (!severalAdded_)
        added_ = &node;
}

// What the user adds, pastes or drops is brought into view. Of several nodes that do not fit, the first one
// is at the top. A project that is opened is a tree of its own, which is shown from the top.
void NodeTreeView::doItemsLayout() {
    QAbstractItemView::doItemsLayout();
    Node* added = std::exchange(added_, nullptr);
    Node* last = std::exchange(addedLast_, nullptr);
    const bool several = std::exchange(severalAdded_, false);
    if (added == nullptr)
        return;
    if (several && last != nullptr)
        reveal(*last);
    const bool isAbove = several && visualRect(nodes_->indexOf(added)).top() < 0;
    reveal(*added, isAbove ? PositionAtTop : EnsureVisible);
}

void NodeTreeView::rowsAboutToBeRemoved(const QModelIndex& parent, int start, int end) {
    QAbstractItemView::rowsAboutToBeRemoved(parent, start, end);
    // Their addresses may be reused for other nodes.
    added_ = nullptr;
    addedLast_ = nullptr;
    if (!openedToShow_.empty()) {
        openedToShow_.clear();
        heights_.assign(heights_.size(), 0);
    }
    if (parent.isValid())
        forgetRowsOf(*NodeTreeModel::nodeOf(parent));
    else
        heights_.erase(heights_.begin() + start, heights_.begin() + end + 1);
    layOutLater();
}

void NodeTreeView::dataChanged(const QModelIndex& /*from*/, const QModelIndex& /*to*/,
                               const QList<int>& /*roles*/) {
    viewport()->update();
}

void NodeTreeView::nodeWasExpanded(Node& node) {
    openedToShow_.erase(&node);
    forgetRowsOf(node);
}

void NodeTreeView::nodeLooksDifferent(Node& /*node*/) {
    viewport()->update();
}

void NodeTreeView::selectionMoved() {
    // The selected node is shown whatever the filter says.
    if (nodes_ != nullptr && nodes_->store().isFiltered())
        filterChanged();
    showSelected();
    AccessibleTree::reportSelection(*this);
    viewport()->update();
}

void NodeTreeView::showMarks() {
    AccessibleTree::reportMarks(*this);
    viewport()->update();
}

void NodeTreeView::showSelected() {
    Node* selected = nodes_ == nullptr ? nullptr : nodes_->store().nodes().selected();
    setAccessibleDescription(selected == nullptr ? QString() : toQt(selected->text()));
    if (selected != nullptr)
        reveal(*selected);
}

void NodeTreeView::reveal(Node& node, ScrollHint hint) {
    if (!isShown(node)) {
        for (const Node* above = node.parent(); above != nullptr; above = above->parent()) {
            if (!above->expanded())
                openedToShow_.insert(above);
        }
        forgetRowsOf(node);
    }
    const int before = verticalScrollBar()->value();
    scrollTo(nodes_->indexOf(&node), hint);
    if (!unseenFrom_ && verticalScrollBar()->value() != before)
        unseenFrom_ = before;
}

QPoint NodeTreeView::placeBelowAll() const {
    const int row = rowCount() - verticalScrollBar()->value() + 1;
    return {viewport()->width() / 2, std::max(row * rowHeight(), viewport()->height() - 2)};
}

int NodeTreeView::rowsOfPage() const {
    return std::max(1, viewport()->height() / rowHeight());
}

Node* NodeTreeView::nodeBeside(const Node& node, int rows) const {
    const std::optional<int> row = rowOfNode(node);
    return row ? nodeOfRow(std::clamp(*row + rows, 0, rowCount() - 1)) : nullptr;
}

Node* NodeTreeView::nodeAt(const QPoint& place) const {
    if (place.y() < 0)
        return nullptr;
    return nodeOfRow(verticalScrollBar()->value() + place.y() / rowHeight());
}

QModelIndex NodeTreeView::indexAt(const QPoint& place) const {
    return nodes_ == nullptr ? QModelIndex() : nodes_->indexOf(nodeAt(place));
}

QRect NodeTreeView::visualRect(const QModelIndex& index) const {
    if (!index.isValid())
        return {};
    const std::optional<int> row = rowOfNode(*NodeTreeModel::nodeOf(index));
    if (!row)
        return {};
    return {0, (*row - verticalScrollBar()->value()) * rowHeight(), viewport()->width(), rowHeight()};
}

void NodeTreeView::scrollTo(const QModelIndex& index, ScrollHint hint) {
    if (!index.isValid())
        return;
    const std::optional<int> row = rowOfNode(*NodeTreeModel::nodeOf(index));
    if (!row)
        return;
    updateGeometries();
    const int top = verticalScrollBar()->value();
    const int page = rowsOfPage();
    const bool isFar = *row < top - page || *row >= top + 2 * page;
    if (hint != PositionAtTop && (hint == PositionAtCenter || isFar))
        verticalScrollBar()->setValue(*row - page / 2);
    else if (hint == PositionAtTop || *row < top)
        verticalScrollBar()->setValue(*row);
    else if (*row >= top + page)
        verticalScrollBar()->setValue(*row - page + 1);
}

void NodeTreeView::updateGeometries() {
    const int page = rowsOfPage();
    verticalScrollBar()->setPageStep(page);
    verticalScrollBar()->setSingleStep(1);
    verticalScrollBar()->setRange(0, std::max(0, rowCount() - page));
    horizontalScrollBar()->setPageStep(viewport()->width());
    horizontalScrollBar()->setSingleStep(indentation());
    horizontalScrollBar()->setRange(0, std::max(0, widest_ - viewport()->width()));
    QAbstractItemView::updateGeometries();
}

int NodeTreeView::horizontalOffset() const {
    return horizontalScrollBar()->value();
}

int NodeTreeView::verticalOffset() const {
    return verticalScrollBar()->value() * rowHeight();
}

void NodeTreeView::resizeEvent(QResizeEvent* event) {
    QAbstractItemView::resizeEvent(event);
    updateGeometries();
    Node* selected = nodes_ == nullptr ? nullptr : nodes_->store().nodes().selected();
    const QRect place = selected == nullptr ? QRect() : visualRect(nodes_->indexOf(selected));
    const bool wasSeen = place.isValid() && place.top() >= 0 && place.bottom() < event->oldSize().height();
    // A view that has its final size only now may show the same with less of a move.
    if (unseenFrom_)
        verticalScrollBar()->setValue(*unseenFrom_);
    // What was in view stays there when something else, such as a pane, takes room.
    if (unseenFrom_ || wasSeen)
        showSelected();
}

void NodeTreeView::scrollContentsBy(int /*dx*/, int /*dy*/) {
    viewport()->update();
}

void NodeTreeView::changeEvent(QEvent* event) {
    QAbstractItemView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        layOutLater();
}

bool NodeTreeView::viewportEvent(QEvent* event) {
    if (event->type() != QEvent::ToolTip)
        return QAbstractItemView::viewportEvent(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    const Node* node = nodeAt(help->pos());
    const bool cut =
        node != nullptr &&
        textLeft(*node) + fontMetrics().horizontalAdvance(shownLine(node->text())) > viewport()->width();
    QToolTip::showText(help->globalPos(), cut ? toolTipOf(node->text()) : toolTip(), this);
    return true;
}

void NodeTreeView::widenTo(int width) {
    if (width <= widest_)
        return;
    widest_ = width;
    scheduleDelayedItemsLayout();
}

} // namespace zb
