#include "screen/x11/key_symbols.h"

#include <array>
#include <utility>

namespace zb::test {

namespace {

constexpr std::array<std::pair<int, xcb_keysym_t>, 18> kFunctionKeys{{
    {kKeyBackspace, 0xff08},
    {kKeyTab, 0xff09},
    {kKeyEnter, 0xff0d},
    {16, 0xffe1},
    {17, 0xffe3},
    {20, 0xffe5},
    {kKeyEscape, 0xff1b},
    {33, 0xff55},
    {34, 0xff56},
    {kKeyEnd, 0xff57},
    {kKeyHome, 0xff50},
    {kKeyLeft, 0xff51},
    {kKeyUp, 0xff52},
    {kKeyRight, 0xff53},
    {kKeyDown, 0xff54},
    {45, 0xff63},
    {kKeyDelete, 0xffff},
    {kKeySpace, 0x0020},
}};
constexpr int kKeypadZero = 96;
constexpr int kKeypadDivide = 111;
constexpr xcb_keysym_t kKeypadMultiplySymbol = 0xffaa; // code 106; those up to 111 follow in the same order
constexpr xcb_keysym_t kKeypadZeroSymbol = 0xffb0;
constexpr int kFirstFunctionKey = 112;
constexpr int kLastFunctionKey = 123;
constexpr xcb_keysym_t kFirstFunctionSymbol = 0xffbe;

} // namespace

std::optional<KeySymbol> symbolOf(KeyEvent key) {
    const bool shift = (key.shift & kShiftKey) != 0;
    for (const auto& [code, symbol] : kFunctionKeys) {
        if (code == key.code)
            return KeySymbol{symbol, shift};
    }
    if (key.code >= kFirstFunctionKey && key.code <= kLastFunctionKey)
        return KeySymbol{kFirstFunctionSymbol + static_cast<xcb_keysym_t>(key.code - kFirstFunctionKey),
                         shift};
    if (key.code >= kKeypadZero && key.code <= kKeypadZero + 9)
        return KeySymbol{kKeypadZeroSymbol + static_cast<xcb_keysym_t>(key.code - kKeypadZero), shift};
    if (key.code > kKeypadZero + 9 && key.code <= kKeypadDivide)
        return KeySymbol{kKeypadMultiplySymbol + static_cast<xcb_keysym_t>(key.code - kKeypadZero - 10),
                         shift};
    const auto character = characterOfKey(key);
    return character ? std::optional(KeySymbol{symbolOf(*character), false}) : std::nullopt;
}

} // namespace zb::test
