#ifndef ZELTO_NUMBERS_H
#define ZELTO_NUMBERS_H

#include "any.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>
#include <type_traits>

namespace zelto {

/// The bits of a value as a message carries them.
template<typename Number>
std::uint64_t bitsOf(Number value) {
    if constexpr (std::is_same_v<Number, float>)
        return std::bit_cast<std::uint32_t>(value);
    else if constexpr (std::is_same_v<Number, double>)
        return std::bit_cast<std::uint64_t>(value);
    else
        return static_cast<std::uint64_t>(value);
}

/// The value of one number of a message.
template<typename Number>
Number numberOf(std::string_view bytes) {
    const std::uint64_t bits = bigEndian(bytes);
    if constexpr (std::is_same_v<Number, float>)
        return std::bit_cast<float>(static_cast<std::uint32_t>(bits));
    else if constexpr (std::is_same_v<Number, double>)
        return std::bit_cast<double>(bits);
    else if constexpr (std::is_same_v<Number, bool>)
        return bits != 0;
    else
        return static_cast<Number>(bits);
}

/// The shortest text that reads back as the same value; truth values as "True" and "False".
template<typename Number>
void appendNumber(std::string& text, Number value) {
    if constexpr (std::is_floating_point_v<Number>) {
        if (!std::isfinite(value)) {
            text += std::isnan(value) ? "NaN" : value < 0 ? "-Infinity" : "Infinity";
            return;
        }
    }
    if constexpr (std::is_same_v<Number, bool>) {
        text += value ? "True" : "False";
    } else {
        char digits[32];
        const auto end = std::to_chars(digits, digits + sizeof digits, value).ptr;
        text.append(digits, end);
    }
}

/// Calls `use` with each value of an item of numbers, bytes or truth values.
template<typename Use>
void forEachNumber(Format format, std::string_view data, Use use) {
    const std::size_t width = widthOf(format);
    for (std::size_t at = 0; width > 0 && at + width <= data.size(); at += width) {
        const std::string_view bytes = data.substr(at, width);
        switch (format) {
        case Format::Boolean: use(numberOf<bool>(bytes)); break;
        case Format::I1: use(numberOf<std::int8_t>(bytes)); break;
        case Format::I2: use(numberOf<std::int16_t>(bytes)); break;
        case Format::I4: use(numberOf<std::int32_t>(bytes)); break;
        case Format::I8: use(numberOf<std::int64_t>(bytes)); break;
        case Format::F4: use(numberOf<float>(bytes)); break;
        case Format::F8: use(numberOf<double>(bytes)); break;
        default: use(bigEndian(bytes)); break;
        }
    }
}

} // namespace zelto

#endif
