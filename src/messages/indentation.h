#pragma once

#include <cstddef>

namespace zb {

/// The depth of a number of leading blanks: a quarter of it, with halves rounded to even.
inline long depthOfIndentation(std::size_t blanks) {
    const auto whole = static_cast<long>(blanks / 4);
    const std::size_t rest = blanks % 4;
    if (rest == 2)
        return whole + whole % 2;
    return rest > 2 ? whole + 1 : whole;
}

} // namespace zb
