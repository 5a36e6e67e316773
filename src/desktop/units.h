#pragma once

namespace zb {

/// Windows measure in units of their own, of which nine make a pixel.
inline constexpr int kUnitsOfPixel = 9;
inline constexpr int toUnits(int pixels) {
    return pixels * kUnitsOfPixel;
}
inline constexpr int toPixels(int units) {
    return units / kUnitsOfPixel;
}

} // namespace zb
