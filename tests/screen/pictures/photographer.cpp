#include "screen/pictures/photographer.h"

#include <QDir>
#include <QFileInfo>
#include <QTimer>
#include <QWidget>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <utility>
#include <vector>

namespace zb::test {

namespace {

constexpr int kColours = 128;
constexpr int kAlike = 24; // the sum of the differences of the channels

bool areAlike(QRgb left, QRgb right) {
    return std::abs(qRed(left) - qRed(right)) + std::abs(qGreen(left) - qGreen(right)) +
               std::abs(qBlue(left) - qBlue(right)) <
           kAlike;
}

// The colours that cover most of a picture. Shades that nobody tells apart count as one, so that the smoothed
// edges of much text leave room for the colour of a single row.
QList<QRgb> mainColours(const QImage& picture) {
    std::map<QRgb, int> counts;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            ++counts[picture.pixel(x, y)];
    }
    std::vector<std::pair<int, QRgb>> byCount;
    byCount.reserve(counts.size());
    for (const auto& [colour, count] : counts)
        byCount.emplace_back(count, colour);
    std::sort(byCount.rbegin(), byCount.rend());
    QList<QRgb> chosen;
    for (const auto& [count, colour] : byCount) {
        const auto isAlike = [one = colour](QRgb other) { return areAlike(one, other); };
        if (chosen.size() < kColours && std::none_of(chosen.begin(), chosen.end(), isAlike))
            chosen.push_back(colour);
    }
    return chosen;
}

} // namespace

void Photographer::take(QWidget& widget, const QString& name) {
    program_.settle();
    // Few colours and no alpha keep the files small.
    const QImage picture = widget.grab().toImage().convertToFormat(QImage::Format_RGB888);
    const QImage small = picture.convertToFormat(QImage::Format_Indexed8, mainColours(picture),
                                                 Qt::AvoidDither | Qt::ThresholdDither);
    const QString path = QDir(folder_).filePath(name + QLatin1Char('-') + suffix_ + QStringLiteral(".png"));
    failed_ = !small.save(path, "PNG", 0) || failed_;
    std::printf("%s\t%lld bytes\n", qPrintable(path), static_cast<long long>(QFileInfo(path).size()));
}

void Photographer::takeDialog(Window& window, const QString& name) {
    window.show();
    take(program_.form(window), name);
    window.hide();
}

void Photographer::takeNext(Window& window, const QString& name, std::function<void()> fill) {
    QTimer::singleShot(0, &program_.form(window), [this, &window, name, fill = std::move(fill)] {
        if (!window.visible())
            return;
        fill();
        take(program_.form(window), name);
        window.hide();
    });
}

} // namespace zb::test
