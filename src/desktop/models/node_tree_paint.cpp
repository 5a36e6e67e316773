#include "controls/tree.h"
#include "desktop/colors.h"
#include "desktop/models/node_tree_view.h"
#include "desktop/shown_text.h"

#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>

namespace zb {

namespace {

constexpr int kBoxSize = 9;
constexpr int kTextPadding = 3;

} // namespace

int NodeTreeView::textLeft(const Node& node) const {
    return (node.level() + 1) * indentation() - horizontalOffset();
}

QRect NodeTreeView::boxRect(const Node& node, const QRect& row) const {
    const int center = textLeft(node) - indentation() / 2;
    return {center - kBoxSize / 2, row.center().y() - kBoxSize / 2, kBoxSize, kBoxSize};
}

bool NodeTreeView::isOnBox(const Node& node, const QPoint& place) const {
    if (node.child() == nullptr)
        return false;
    const QRect row = visualRect(nodes_->indexOf(&node));
    return boxRect(node, row).adjusted(-3, -3, 3, 3).contains(place);
}

const Node* NodeTreeView::nodeBelow(const Node& node) const {
    const Node& root = rootOf(node);
    const Node* next = nextShown(node, root);
    return next != nullptr ? next : root.next();
}

void NodeTreeView::paintEvent(QPaintEvent* event) {
    if (nodes_ == nullptr)
        return;
    unseenFrom_.reset();
    QPainter painter(viewport());
    const int height = rowHeight();
    const int top = verticalScrollBar()->value();
    const int first = event->rect().top() / height;
    const int last = event->rect().bottom() / height;
    // The row of a node in a long message is found by counting, so only that of the first one is.
    const Node* node = nodeOfRow(top + first);
    for (int line = first; line <= last && node != nullptr; ++line) {
        paintRow(painter, *node, QRect(0, line * height, viewport()->width(), height));
        node = nodeBelow(*node);
    }
}

void NodeTreeView::paintRow(QPainter& painter, const Node& node, const QRect& row) {
    if (nodes_->store().marks().holds(node))
        paintMark(painter, row);
    if (!withoutLines_)
        paintLines(painter, node, row);
    if (node.child() != nullptr)
        paintBox(painter, node, row);
    paintText(painter, node, row);
}

// A tint of the whole row, and a bar that is seen without colours.
void NodeTreeView::paintMark(QPainter& painter, const QRect& row) const {
    constexpr int kBar = 4;
    painter.fillRect(row, markedRow(palette()));
    painter.fillRect(QRect(row.topLeft(), QSize(kBar, row.height())), palette().color(QPalette::Highlight));
}

void NodeTreeView::paintLines(QPainter& painter, const Node& node, const QRect& row) const {
    painter.setPen(QPen(palette().color(QPalette::Disabled, QPalette::Text), 1, Qt::DotLine));
    int center = textLeft(node) - indentation() / 2;
    const int middle = row.center().y();
    painter.drawLine(center, middle, center + indentation() / 2, middle);
    const bool isFirst = node.previous() == nullptr && node.parent() == nullptr;
    painter.drawLine(center, isFirst ? middle : row.top(), center,
                     node.next() == nullptr ? middle : row.bottom());
    for (const Node* above = node.parent(); above != nullptr && center > 0; above = above->parent()) {
        center -= indentation();
        if (above->next() != nullptr)
            painter.drawLine(center, row.top(), center, row.bottom());
    }
}

void NodeTreeView::paintBox(QPainter& painter, const Node& node, const QRect& row) const {
    const QRect box = boxRect(node, row);
    painter.setPen(palette().color(QPalette::Disabled, QPalette::Text));
    painter.setBrush(palette().color(QPalette::Base));
    painter.drawRect(box.adjusted(0, 0, -1, -1));
    painter.setPen(palette().color(QPalette::Text));
    const QPoint center = box.center();
    painter.drawLine(center.x() - 2, center.y(), center.x() + 2, center.y());
    if (!isOpen(node))
        painter.drawLine(center.x(), center.y() - 2, center.x(), center.y() + 2);
}

void NodeTreeView::paintText(QPainter& painter, const Node& node, const QRect& row) {
    QFont font = this->font();
    font.setBold(node.bold());
    painter.setFont(font);
    const QString text = shownLine(node.text());
    int left = textLeft(node);
    const QIcon icon = qvariant_cast<QIcon>(nodes_->lookOf(node, Qt::DecorationRole));
    if (!icon.isNull()) {
        const int size = row.height() - 4;
        icon.paint(&painter, left, row.top() + 2, size, size);
        left += size + kTextPadding;
    }
    const int width = painter.fontMetrics().horizontalAdvance(text) + 2 * kTextPadding;
    const QRect place(left, row.top(), std::max(width, indentation()), row.height());
    widenTo(place.right() + horizontalOffset() + indentation());
    const QBrush back = qvariant_cast<QBrush>(nodes_->lookOf(node, Qt::BackgroundRole));
    const QBrush fore = qvariant_cast<QBrush>(nodes_->lookOf(node, Qt::ForegroundRole));
    const bool selected = nodes_->store().nodes().selected() == &node;
    const auto group =
        isEnabled() ? (hasFocus() ? QPalette::Active : QPalette::Inactive) : QPalette::Disabled;
    QColor color = fore.style() == Qt::NoBrush ? palette().color(group, QPalette::Text) : fore.color();
    if (node.backColor())
        painter.fillRect(place, back);
    if (selected) {
        // The error mark stays visible around a selected node.
        const QRect inner = node.backColor() ? place.adjusted(2, 2, -2, -2) : place;
        painter.fillRect(inner,
                         hasFocus() ? palette().color(QPalette::Highlight) : restingHighlight(palette()));
        color = hasFocus() ? palette().color(group, QPalette::HighlightedText)
                           : readable(color, restingHighlight(palette()));
    } else if (nodes_->store().marks().holds(node)) {
        color = readable(color, markedRow(palette()));
    }
    painter.setPen(color);
    painter.drawText(place.adjusted(kTextPadding, 0, 0, 0),
                     Qt::AlignVCenter | Qt::TextSingleLine | Qt::TextDontClip, text);
}

} // namespace zb
