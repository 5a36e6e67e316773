#pragma once

namespace zb {

/// Windows are measured in their own units; nine units are one pixel.
inline constexpr int kUnitsOfPixel = 9;
inline constexpr int toUnits(int pixels) {
    return pixels * kUnitsOfPixel;
}
inline constexpr int toPixels(int units) {
    return units / kUnitsOfPixel;
}

} // namespace zb
