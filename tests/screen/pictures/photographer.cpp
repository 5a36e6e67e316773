#include "screen/pictures/photographer.h"

#include <QDir>
#include <QFileInfo>
#include <QHash>
#include <QTimer>
#include <QWidget>

#include <algorithm>
#include <cstdio>

namespace zb::test {

namespace {

constexpr int kColours = 80;

// The colours that cover most of a picture: text is smoothed over few shades of few colours.
QList<QRgb> mainColours(const QImage& picture) {
    QHash<QRgb, int> counts;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            ++counts[picture.pixel(x, y)];
    }
    QList<QRgb> colours = counts.keys();
    std::sort(colours.begin(), colours.end(),
              [&](QRgb left, QRgb right) { return counts[left] > counts[right]; });
    return colours.mid(0, kColours);
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
