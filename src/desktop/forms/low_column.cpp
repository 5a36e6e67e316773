#include "desktop/forms/low_column.h"

#include <QApplication>
#include <QEvent>
#include <QScrollBar>

namespace zb {

LowColumn::LowColumn(QWidget* parent) : QScrollArea(parent) {
    setFrameShape(NoFrame);
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::NoFocus);
    // A field that gets the keyboard from the program comes into view as well.
    connect(qApp, &QApplication::focusChanged, this, [this](const QWidget*, QWidget* now) {
        if (now != nullptr && now != this && isAncestorOf(now))
            ensureWidgetVisible(now);
    });
}

QSize LowColumn::minimumSizeHint() const {
    constexpr int kLeastHeight = 80;
    const QSize fields = widget() == nullptr ? QSize() : widget()->minimumSizeHint();
    return {fields.width() + verticalScrollBar()->sizeHint().width(), qMin(fields.height(), kLeastHeight)};
}

QSize LowColumn::sizeHint() const {
    return widget() == nullptr ? QScrollArea::sizeHint() : widget()->sizeHint().expandedTo(minimumSizeHint());
}

// The area itself takes no notice of fields that come and go.
bool LowColumn::eventFilter(QObject* watched, QEvent* event) {
    if (watched == widget() && event->type() == QEvent::LayoutRequest)
        updateGeometry();
    return QScrollArea::eventFilter(watched, event);
}

} // namespace zb
