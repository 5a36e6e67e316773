#include "desktop/forms/sequence_chart.h"

#include "desktop/colors.h"

#include <QApplication>
#include <QPainter>
#include <QPainterPath>
#include <QTreeView>

namespace zb {

namespace {

constexpr int kStateColumn = 2;
constexpr int kMargin = 22;
constexpr int kHead = 8;
constexpr int kHalfHead = 4;
constexpr int kArrowLength = 5; // of "H->E " before the name
constexpr int kLeastWidth = 180;

/// The selection and the focus, without the text.
void paintBackground(QPainter& painter, QStyleOptionViewItem option) {
    option.text.clear();
    const QStyle* style = option.widget != nullptr ? option.widget->style() : QApplication::style();
    style->drawControl(QStyle::CE_ItemViewItem, &option, &painter, option.widget);
}

QColor textColor(const QStyleOptionViewItem& option, const QModelIndex& index) {
    const bool isSelected = option.state.testFlag(QStyle::State_Selected);
    const bool hasFocus = option.widget != nullptr && option.widget->hasFocus();
    if (isSelected && hasFocus)
        return option.palette.color(QPalette::HighlightedText);
    const auto brush = index.data(Qt::ForegroundRole);
    const QColor own = brush.isValid() ? brush.value<QBrush>().color() : option.palette.color(QPalette::Text);
    return isSelected ? readable(own, restingHighlight(option.palette)) : own;
}

void paintArrow(QPainter& painter, const QRect& area, bool isToHost, bool isExpected, const QColor& color) {
    const int left = area.left() + kMargin;
    const int right = area.right() - kMargin;
    const int y = area.bottom() - kHead;
    const int tip = isToHost ? left : right;
    const int back = isToHost ? tip + kHead : tip - kHead;
    painter.setPen(QPen(color, isExpected ? 1 : 2, isExpected ? Qt::DashLine : Qt::SolidLine));
    painter.drawLine(isToHost ? right : left, y, back, y);
    QPainterPath head(QPointF(tip, y));
    head.lineTo(back, y - kHalfHead);
    head.lineTo(back, y + kHalfHead);
    head.closeSubpath();
    painter.setPen(QPen(color, 1));
    painter.setBrush(isExpected ? QBrush(Qt::NoBrush) : QBrush(color));
    painter.drawPath(head);
}

} // namespace

void SequenceChart::paint(QPainter* painter, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const {
    QStyleOptionViewItem shown = option;
    initStyleOption(&shown, index);
    const QString text = shown.text;
    const bool hasFocus = option.widget != nullptr && option.widget->hasFocus();
    if (!hasFocus)
        shown.palette.setColor(QPalette::Highlight, restingHighlight(option.palette));
    painter->save();
    painter->setClipRect(option.rect);
    painter->setRenderHint(QPainter::Antialiasing);
    paintBackground(*painter, shown);
    const QRect area = option.rect;
    const QColor color = textColor(option, index);
    QColor lines = option.palette.color(QPalette::Text);
    lines.setAlphaF(0.4F);
    painter->setPen(QPen(lines, 1));
    for (const int x : {area.left() + kMargin, area.right() - kMargin})
        painter->drawLine(x, area.top(), x, area.bottom() + 1);
    const bool isExpected =
        index.siblingAtColumn(kStateColumn).data().toString().isEmpty(); // neither taken nor missed
    paintArrow(*painter, area, text.startsWith(QLatin1String("H<-E")), isExpected, color);
    painter->setPen(color);
    painter->setFont(shown.font);
    const QRect label = area.adjusted(kMargin + 3, 2, -kMargin - 3, -kHead - 3);
    painter->drawText(
        label, Qt::AlignCenter,
        painter->fontMetrics().elidedText(text.mid(kArrowLength), Qt::ElideRight, label.width()));
    painter->restore();
}

QSize SequenceChart::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    QStyleOptionViewItem shown = option;
    initStyleOption(&shown, index);
    const int width = shown.fontMetrics.horizontalAdvance(shown.text) + 2 * kMargin;
    return {std::max(kLeastWidth, width), shown.fontMetrics.height() + 2 * kHead};
}

} // namespace zb
