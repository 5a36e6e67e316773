#include "desktop/forms/elided_label.h"

#include <QPainter>
#include <QStyle>

namespace zb {

void ElidedLabel::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const QRect place = contentsRect().marginsRemoved(QMargins(margin(), margin(), margin(), margin()));
    const QString shown = fontMetrics().elidedText(text(), Qt::ElideMiddle, place.width());
    style()->drawItemText(&painter, place, static_cast<int>(alignment()), palette(), isEnabled(), shown,
                          foregroundRole());
}

} // namespace zb
