#include "screen/script/qt_keys.h"

#include <array>
#include <utility>

namespace zb::test {

namespace {

constexpr std::array<std::pair<int, Qt::Key>, 13> kFunctionKeys{{
    {kKeyBackspace, Qt::Key_Backspace},
    {kKeyEnter, Qt::Key_Return},
    {kKeyEscape, Qt::Key_Escape},
    {33, Qt::Key_PageUp},
    {34, Qt::Key_PageDown},
    {kKeyEnd, Qt::Key_End},
    {kKeyHome, Qt::Key_Home},
    {kKeyLeft, Qt::Key_Left},
    {kKeyUp, Qt::Key_Up},
    {kKeyRight, Qt::Key_Right},
    {kKeyDown, Qt::Key_Down},
    {45, Qt::Key_Insert},
    {kKeyDelete, Qt::Key_Delete},
}};

std::optional<int> keypadKey(int code) {
    if (code >= 96 && code <= 105)
        return Qt::Key_0 + code - 96;
    switch (code) {
    case 106:
        return Qt::Key_Asterisk;
    case 107:
        return Qt::Key_Plus;
    case 109:
        return Qt::Key_Minus;
    case 110:
        return Qt::Key_Period;
    case 111:
        return Qt::Key_Slash;
    default:
        return std::nullopt;
    }
}

} // namespace

std::optional<QtKey> qtKeyOf(KeyEvent key) {
    QtKey made;
    made.modifiers.setFlag(Qt::ShiftModifier, (key.shift & kShiftKey) != 0);
    for (const auto& [code, name] : kFunctionKeys) {
        if (code == key.code) {
            made.key = name;
            return made;
        }
    }
    if (key.code >= 112 && key.code <= 135) {
        made.key = Qt::Key_F1 + key.code - 112;
        return made;
    }
    const auto character = characterOfKey(key);
    if (!character)
        return std::nullopt;
    made.text = QString(QLatin1Char(*character));
    if (const auto keypad = keypadKey(key.code)) {
        made.key = *keypad;
        made.modifiers.setFlag(Qt::KeypadModifier);
    } else {
        made.key = QLatin1Char(*character).unicode() >= 'a' && *character <= 'z' ? key.code : *character;
    }
    return made;
}

} // namespace zb::test
