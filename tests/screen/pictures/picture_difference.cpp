#include "screen/pictures/picture_difference.h"

#include <array>
#include <cmath>

namespace zb::test {

namespace {

constexpr int kTile = 24;          // pixels
constexpr double kTolerance = 5.0; // of 255, in each channel of a tile's mean

using Mean = std::array<double, 3>;

Mean meanOf(const QImage& picture, const QRect& tile) {
    Mean sum{};
    for (int y = tile.top(); y <= tile.bottom(); ++y) {
        for (int x = tile.left(); x <= tile.right(); ++x) {
            const QRgb pixel = picture.pixel(x, y);
            sum[0] += qRed(pixel);
            sum[1] += qGreen(pixel);
            sum[2] += qBlue(pixel);
        }
    }
    for (double& channel : sum)
        channel /= tile.width() * tile.height();
    return sum;
}

double distance(const Mean& left, const Mean& right) {
    double farthest = 0;
    for (std::size_t i = 0; i < left.size(); ++i)
        farthest = std::max(farthest, std::abs(left[i] - right[i]));
    return farthest;
}

} // namespace

QString differenceOf(const QImage& expected, const QImage& drawn) {
    if (expected.isNull() || drawn.isNull())
        return QStringLiteral("one of them cannot be read");
    if (expected.size() != drawn.size())
        return QStringLiteral("the sizes are %1 x %2 and %3 x %4")
            .arg(expected.width())
            .arg(expected.height())
            .arg(drawn.width())
            .arg(drawn.height());
    for (int y = 0; y < expected.height(); y += kTile) {
        for (int x = 0; x < expected.width(); x += kTile) {
            const QRect tile = QRect(x, y, kTile, kTile).intersected(expected.rect());
            const double found = distance(meanOf(expected, tile), meanOf(drawn, tile));
            if (found > kTolerance)
                return QStringLiteral("the colours around (%1, %2) differ by %3 of 255")
                    .arg(tile.center().x())
                    .arg(tile.center().y())
                    .arg(found, 0, 'f', 1);
        }
    }
    return {};
}

} // namespace zb::test
