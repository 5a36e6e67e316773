#pragma once

#include <cstdint>
#include <optional>

namespace zb {

/// A colour that the program set on a row or node; without one the screen's own colour is shown.
struct Color {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;

    friend bool operator==(const Color&, const Color&) = default;
};

using OptionalColor = std::optional<Color>;

/// Marks the place of a definition fault.
inline constexpr Color kErrorBackColor{255, 128, 128};
/// Marks transaction faults.
inline constexpr Color kErrorForeColor{255, 0, 0};
/// The editor's ordinary text colour.
inline constexpr Color kEditorForeColor{16, 28, 177};

} // namespace zb
