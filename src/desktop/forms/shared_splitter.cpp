#include "desktop/forms/shared_splitter.h"

#include "desktop/layout_memory.h"

#include <QEvent>
#include <QSplitter>

namespace zb {

SharedSplitter::SharedSplitter(QSplitter& splitter, int percentOfFirst)
    : QObject(&splitter), splitter_(splitter), percent_(percentOfFirst) {
    connect(&splitter_, &QSplitter::splitterMoved, this, [this] { moved_ = true; });
    splitter_.installEventFilter(this);
}

bool SharedSplitter::eventFilter(QObject* watched, QEvent* event) {
    const bool sized = event->type() == QEvent::Resize || event->type() == QEvent::Show;
    if (watched != &splitter_ || !sized || moved_ || splitter_.property(kRemembered).toBool())
        return false;
    const int extent = (splitter_.orientation() == Qt::Horizontal ? splitter_.width() : splitter_.height()) -
                       splitter_.handleWidth();
    const int first = extent * percent_ / 100;
    splitter_.setSizes({first, extent - first});
    return false;
}

} // namespace zb
