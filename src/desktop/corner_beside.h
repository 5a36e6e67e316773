#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

namespace zb {

/// The upper left corner at which a window of that size covers as little as possible of the place: on its
/// right, or on its left when only that fits the screen, with their lower edges level.
QPoint cornerBeside(const QRect& place, const QSize& size, const QRect& screen);

} // namespace zb
