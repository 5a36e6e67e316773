#include "desktop/dialog_places.h"

#include "controls/window.h"
#include "desktop/corner_beside.h"
#include "desktop/layout_memory.h"

#include <QMainWindow>
#include <QScreen>
#include <QStyle>
#include <QVariant>
#include <QWindow>

namespace zb {

namespace {

bool worksWithTheTrees(const Window& window) {
    return window.name() == "frmTRMessage" || window.name() == "frmTRItem";
}

/// The room that the frame and the title bar of the window manager take, which are not known before the
/// window is shown.
QSize decorationOf(const QWidget& form) {
    const auto measure = [&form](QStyle::PixelMetric metric) {
        return form.style()->pixelMetric(metric, nullptr, &form);
    };
    const int frame = 2 * measure(QStyle::PM_MdiSubWindowFrameWidth);
    return {frame, frame + measure(QStyle::PM_TitleBarHeight)};
}

} // namespace

bool isTopmost(const Window& window) {
    return worksWithTheTrees(window);
}

void fitOnScreen(QWidget& form) {
    if (form.property(kRemembered).toBool())
        return;
    form.setProperty(kRemembered, true);
    form.resize(form.size().boundedTo(form.screen()->availableSize() - decorationOf(form)));
}

void placeDialog(const Window& window, QWidget& form, QWidget& owner, QMainWindow& main) {
    form.winId(); // creates the window, which must exist before its owner is set
    owner.winId();
    form.windowHandle()->setTransientParent(owner.windowHandle());
    if (form.property(kRemembered).toBool())
        return;
    fitOnScreen(form);
    const bool aside = worksWithTheTrees(window);
    const QWidget& place = aside ? main : owner;
    const QRect around = place.geometry();
    QPoint corner = around.center() - form.rect().center();
    if (aside)
        corner = around.bottomRight() - QPoint(form.width() + 24, form.height() + 48);
    const QRect screen = place.screen()->availableGeometry();
    const auto* tree = main.findChild<QWidget*>(QStringLiteral("tvwEdit"));
    if (window.name() == "frmFind" && tree->isVisible()) // what the search selects stays in view
        corner = cornerBeside(QRect(tree->mapToGlobal(QPoint()), tree->size()), form.frameSize(), screen);
    const QSize outer = form.size() + decorationOf(form);
    form.move(qBound(screen.left(), corner.x(), qMax(screen.left(), screen.right() - outer.width())),
              qBound(screen.top(), corner.y(), qMax(screen.top(), screen.bottom() - outer.height())));
}

} // namespace zb
