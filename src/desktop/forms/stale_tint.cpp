#include "desktop/forms/stale_tint.h"

#include <QEvent>
#include <QWidget>

namespace zb {

namespace {

QColor tinted(const QColor& window) {
    constexpr int kShare = 28; // percent
    const QColor warning(255, 170, 0);
    const auto mix = [](int left, int right) { return (kShare * left + (100 - kShare) * right) / 100; };
    return QColor(mix(warning.red(), window.red()), mix(warning.green(), window.green()),
                  mix(warning.blue(), window.blue()));
}

} // namespace

StaleTint::StaleTint(QWidget& form)
    : QObject(&form), pane_(*form.findChild<QWidget*>(QStringLiteral("picMsg"))),
      line_(*form.findChild<QWidget*>(QStringLiteral("lblStale"))) {
    line_.installEventFilter(this);
    show(!line_.isHidden());
}

bool StaleTint::eventFilter(QObject* /*watched*/, QEvent* event) {
    if (event->type() == QEvent::ShowToParent || event->type() == QEvent::HideToParent)
        show(!line_.isHidden());
    return false;
}

void StaleTint::show(bool stale) {
    QPalette palette;
    if (stale)
        palette.setColor(QPalette::Window, tinted(palette.color(QPalette::Window)));
    pane_.setAutoFillBackground(stale);
    pane_.setPalette(palette);
}

} // namespace zb
