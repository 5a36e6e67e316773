#pragma once

#include "controls/key.h"

#include <xcb/xcb.h>

#include <optional>

namespace zb::test {

/// What X calls a key.
struct KeySymbol {
    xcb_keysym_t symbol = 0;
    bool shift = false; ///< has to be held beside what the symbol itself takes
};

/// Nothing for a key code that no keyboard has.
std::optional<KeySymbol> symbolOf(KeyEvent key);

/// ASCII characters are their own symbols.
inline xcb_keysym_t symbolOf(char character) {
    return static_cast<unsigned char>(character);
}

} // namespace zb::test
