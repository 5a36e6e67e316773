#pragma once

#include <QImage>
#include <QString>

namespace zb::test {

/// Why two pictures are not the same to the eye; empty when they are. The mean colours of small tiles are
/// compared: the edge of a letter may be drawn otherwise, but a text that loses its colour changes its tile.
QString differenceOf(const QImage& expected, const QImage& drawn);

} // namespace zb::test
