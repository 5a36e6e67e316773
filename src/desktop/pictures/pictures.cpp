#include "desktop/pictures/pictures.h"

#include "desktop/qt_text.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QSvgRenderer>

// Resources of a static library must be initialised explicitly, outside of any namespace.
static void loadPictures() {
    Q_INIT_RESOURCE(pictures);
}

namespace zb {

namespace {

QString pathOf(std::string_view name) {
    return QStringLiteral(":/pictures/") + toQt(name).toLower() + QStringLiteral(".svg");
}

QPalette::ColorGroup groupOf(QIcon::Mode mode) {
    return mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
}

/// Draws an SVG whose lines are "currentColor" and whose accents are "accentColor" in the colours of the
/// current palette.
class DrawingEngine final : public QIconEngine {
public:
    explicit DrawingEngine(QByteArray drawing) : drawing_(std::move(drawing)) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State /*state*/) override {
        const QPalette palette = QGuiApplication::palette();
        const QColor line = palette.color(groupOf(mode), QPalette::ButtonText);
        const bool dark = palette.color(QPalette::Button).lightness() < 128;
        QColor accent = dark ? QColor(0x6c, 0xb2, 0xff) : QColor(0x0b, 0x5c, 0xad);
        if (mode == QIcon::Disabled)
            accent = line;
        QByteArray drawing = drawing_;
        drawing.replace("currentColor", line.name().toLatin1());
        drawing.replace("accentColor", accent.name().toLatin1());
        QSvgRenderer renderer(drawing);
        renderer.render(painter, rect);
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return pixmap;
    }

    QIconEngine* clone() const override { return new DrawingEngine(*this); }

private:
    QByteArray drawing_;
};

} // namespace

Pictures::Pictures() {
    loadPictures();
}

bool Pictures::has(std::string_view name) {
    return QFile::exists(pathOf(name));
}

QIcon Pictures::icon(std::string_view name) const {
    QFile file(pathOf(name));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QIcon(new DrawingEngine(file.readAll())); // the icon owns it
}

} // namespace zb
