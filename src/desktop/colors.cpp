#include "desktop/colors.h"

#include <QGuiApplication>
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
    const auto [dark, light] = std::minmax(luminance(left), luminance(right));
    return (light + 0.05) / (dark + 0.05);
}

} // namespace

QColor shaded(const Color& back) {
    const QColor told = toQt(back);
    const QColor base = QGuiApplication::palette().color(QPalette::Base);
    if (told.saturation() > 0 || base.lightnessF() > 0.5F)
        return told;
    const float lightness = base.lightnessF() + (1.0F - told.lightnessF());
    return QColor::fromHslF(std::max(base.hslHueF(), 0.0F), base.hslSaturationF(),
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

QColor restingHighlight(const QPalette& palette) {
    constexpr float kShare = 0.35F;
    const QColor highlight = palette.color(QPalette::Highlight);
    const QColor base = palette.color(QPalette::Base);
    const auto mix = [](float left, float right) { return kShare * left + (1 - kShare) * right; };
    return QColor::fromRgbF(mix(highlight.redF(), base.redF()), mix(highlight.greenF(), base.greenF()),
                            mix(highlight.blueF(), base.blueF()));
}

QColor readable(const Color& text) {
    return readable(toQt(text), QGuiApplication::palette().color(QPalette::Base));
}

} // namespace zb
