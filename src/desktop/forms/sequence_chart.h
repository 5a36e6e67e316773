#pragma once

#include <QStyledItemDelegate>

namespace zb {

/// Paints the rows of a sequence as a message sequence chart: the life lines of host and equipment run
/// through all rows, and each row is an arrow with its TR message. A step that is still expected is dashed.
class SequenceChart final : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

} // namespace zb
