#include "desktop/forms/picture_box.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOptionFocusRect>

namespace zb {

namespace {

constexpr int kPictureSize = 20;
constexpr int kMargin = 5;

} // namespace

PictureBox::PictureBox(QWidget* parent) : QWidget(parent) {
    setFocusPolicy(Qt::TabFocus);
    setCursor(Qt::OpenHandCursor);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void PictureBox::setPicture(const QIcon& icon, const QString& caption) {
    icon_ = icon;
    caption_ = caption;
    setAccessibleName(caption);
    updateGeometry();
    update();
}

QSize PictureBox::sizeHint() const {
    return {kPictureSize + 3 * kMargin + fontMetrics().horizontalAdvance(caption_),
            std::max(kPictureSize, fontMetrics().height()) + 2 * kMargin};
}

void PictureBox::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::Mid));
    painter.setBrush(palette().color(QPalette::Button));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 3, 3);
    icon_.paint(&painter, kMargin, (height() - kPictureSize) / 2, kPictureSize, kPictureSize, Qt::AlignCenter,
                isEnabled() ? QIcon::Normal : QIcon::Disabled);
    painter.setPen(palette().color(QPalette::ButtonText));
    painter.drawText(rect().adjusted(2 * kMargin + kPictureSize, 0, 0, 0), Qt::AlignVCenter, caption_);
    if (!hasFocus())
        return;
    painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 3, 3);
}

void PictureBox::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    update();
}

void PictureBox::focusOutEvent(QFocusEvent* event) {
    QWidget::focusOutEvent(event);
    update();
}

} // namespace zb
