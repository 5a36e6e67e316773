#include "desktop/corner_beside.h"

namespace zb {

QPoint cornerBeside(const QRect& place, const QSize& size, const QRect& screen) {
    constexpr int kGap = 12;
    const int right = place.right() + kGap;
    const int left = place.left() - kGap - size.width();
    const bool fitsRight = right + size.width() <= screen.right() || left < screen.left();
    return {fitsRight ? right : left, place.bottom() - size.height()};
}

} // namespace zb
