#include "desktop/binders/dragging.h"

#include "desktop/binders/binder.h"
#include "desktop/qt_text.h"

#include <QDrag>
#include <QDropEvent>
#include <QMimeData>
#include <QPainter>
#include <QPixmap>
#include <QWidget>

#include <algorithm>

namespace zb {

namespace {

constexpr int kMostLines = 6;
constexpr int kMargin = 6;

QStringList linesOf(const QStringList& texts) {
    QStringList lines = texts.mid(0, kMostLines);
    if (texts.size() > kMostLines)
        lines << QStringLiteral("… %1 more").arg(texts.size() - kMostLines);
    return lines;
}

QPixmap pictureOf(const QWidget& source, const QStringList& texts) {
    const QStringList lines = linesOf(texts);
    const QFontMetrics metrics = source.fontMetrics();
    int width = 0;
    for (const QString& line : lines)
        width = std::max(width, metrics.horizontalAdvance(line));
    const QSize size(std::min(width, 400) + 2 * kMargin,
                     metrics.lineSpacing() * static_cast<int>(lines.size()) + kMargin);
    const qreal ratio = source.devicePixelRatioF();
    QPixmap picture(size * ratio);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setOpacity(0.85);
    painter.setPen(source.palette().color(QPalette::Highlight));
    painter.setBrush(source.palette().color(QPalette::Base));
    painter.drawRect(0, 0, size.width() - 1, size.height() - 1);
    painter.setPen(source.palette().color(QPalette::Text));
    painter.setFont(source.font());
    int baseline = kMargin / 2 + metrics.ascent();
    for (const QString& line : lines) {
        painter.drawText(kMargin, baseline,
                         metrics.elidedText(line, Qt::ElideRight, size.width() - 2 * kMargin));
        baseline += metrics.lineSpacing();
    }
    return picture;
}

} // namespace

void runDrag(Binding& binding, QWidget& source, const DragData& data, const QStringList& texts) {
    binding.drag = data;
    auto content = std::make_unique<QMimeData>();
    content->setText(toQt(data.text));
    QDrag drag(&source);
    drag.setMimeData(content.release()); // the drag owns it
    if (!texts.isEmpty())
        drag.setPixmap(pictureOf(source, texts));
    drag.exec(Qt::CopyAction | Qt::MoveAction, Qt::CopyAction);
    binding.drag.reset();
}

DragData dragDataOf(const Binding& binding, const QDropEvent& event) {
    if (binding.drag)
        return *binding.drag;
    return {fromQt(event.mimeData()->text()), nullptr};
}

bool acceptDrag(const Binding& binding, QDropEvent& event) {
    const bool takes = binding.drag || event.mimeData()->hasText();
    if (takes)
        event.acceptProposedAction();
    else
        event.ignore();
    return takes;
}

} // namespace zb
