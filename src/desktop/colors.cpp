#include "desktop/colors.h"

#include <QApplication>
#include <QPalette>

#include <algorithm>
#include <cmath>

namespace zb {

namespace {

constexpr double kReadableContrast = 4.5;

double linear(double channel) {
    return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& color) {
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

double contrast(const QColor& left, const QColor& right) {
    const double one = luminance(left);
    const double other = luminance(right);
    return (std::max(one, other) + 0.05) / (std::min(one, other) + 0.05);
}

QColor base() {
    return QGuiApplication::palette().color(QPalette::Base);
}

bool isLight(const QColor& background) {
    return background.lightnessF() > 0.5F;
}

} // namespace

QColor shaded(const Color& back) {
    const QColor given = toQt(back);
    const QColor dark = base();
    if (given.saturation() > 0 || isLight(dark))
        return given;
    const float lightness = dark.lightnessF() + (1.0F - given.lightnessF());
    return QColor::fromHslF(std::max(dark.hslHueF(), 0.0F), dark.hslSaturationF(),
                            std::clamp(lightness, 0.0F, 1.0F));
}

bool isOrdinary(const OptionalColor& text) {
    return !text || *text == Color{};
}

QColor readable(QColor text, const QColor& background) {
    const bool lighten = luminance(background) < 0.18;
    for (int step = 0; step < 20 && contrast(text, background) < kReadableContrast; ++step) {
        float hue = 0;
        float saturation = 0;
        float lightness = 0;
        text.getHslF(&hue, &saturation, &lightness);
        lightness = std::clamp(lightness + (lighten ? 0.05F : -0.05F), 0.0F, 1.0F);
        text = QColor::fromHslF(std::clamp(hue, 0.0F, 1.0F), saturation, lightness);
    }
    return text;
}

namespace {

QColor mixed(const QColor& color, const QColor& other, float share) {
    const auto mix = [share](float left, float right) { return share * left + (1 - share) * right; };
    return QColor::fromRgbF(mix(color.redF(), other.redF()), mix(color.greenF(), other.greenF()),
                            mix(color.blueF(), other.blueF()));
}

/// The highlight of the palette with the background of its fields.
QColor mixedHighlight(const QPalette& palette, float share) {
    return mixed(palette.color(QPalette::Highlight), palette.color(QPalette::Base), share);
}

} // namespace

QColor restingHighlight(const QPalette& palette) {
    return mixedHighlight(palette, 0.35F);
}

QColor hintColor(const QPalette& palette) {
    constexpr double kLeastContrast = 2;
    const QColor field = palette.color(QPalette::Base);
    const QColor hint = palette.color(QPalette::PlaceholderText);
    if (contrast(mixed(hint, field, hint.alphaF()), field) >= kLeastContrast)
        return hint;
    return mixed(palette.color(QPalette::Text), field, 0.6F);
}

void makeHintsReadable() {
    const QColor hint = hintColor(QGuiApplication::palette());
    if (hint == QGuiApplication::palette().color(QPalette::PlaceholderText))
        return;
    QPalette hints;
    hints.setColor(QPalette::PlaceholderText, hint);
    QApplication::setPalette(hints);
}

QColor markedRow(const QPalette& palette) {
    return mixedHighlight(palette, 0.2F);
}

QColor readable(const Color& text, const OptionalColor& back) {
    if (isLight(base()))
        return toQt(text);
    return readable(toQt(text), back ? shaded(*back) : base());
}

} // namespace zb
